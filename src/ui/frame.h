#pragma once
#include "ui/control.h"

namespace wh {

struct FrameOptions {
  bool border = true;
};

// A panel that other controls sit in: hiding or disabling it does the same
// to everything inside. With a border it draws as a group box with Caption.
class Frame : public Control {
public:
  using Options = FrameOptions;

  Frame(Form& form, std::string name, const Place& place, const std::string& caption = {},
        const Options& options = {});

  std::string Caption() const { return window_text(); }
  void Caption(const std::string& text);

  bool on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) override;
  bool paint_background(HDC dc) override;
  bool is_container() const override { return true; }

private:
  Options options_;
};

}  // namespace wh
