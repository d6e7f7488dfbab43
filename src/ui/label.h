#pragma once
#include "ui/control.h"

namespace wh {

enum LabelAlignment { left_justify = 0, right_justify = 1, center = 2 };

struct LabelOptions {
  LabelAlignment alignment = left_justify;
  bool transparent = false;  // BackStyle 0
  bool word_wrap = true;
};

// A text; painted here so that a transparent label over the skin leaves no
// trace of its old text.
class Label : public Control {
public:
  using Options = LabelOptions;

  Label(Form& form, std::string name, const Place& place, const std::string& caption = {},
        const Options& options = {});

  std::string Caption() const { return window_text(); }
  void Caption(const std::string& text);
  bool transparent() const { return options_.transparent; }
  void transparent(bool on);
  void Alignment(LabelAlignment a);

  bool on_draw_item(DRAWITEMSTRUCT& d) override;
  bool on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) override;

private:
  Options options_;
};

}  // namespace wh
