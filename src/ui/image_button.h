#pragma once
#include <string>

#include "ui/control.h"

namespace wh {

struct ImageButtonOptions {
  bool stretch = false;  // else drawn at its own size from 0,0
};

// A picture that acts as a button (the skin's buttons): an owner-drawn
// static with SS_NOTIFY, so that the mouse reaches it for hover and clicks.
class ImageButton : public Control {
public:
  using Options = ImageButtonOptions;

  ImageButton(Form& form, std::string name, const Place& place, const Options& options = {});

  Picture picture() const { return picture_; }
  void picture(Picture pic);
  // Loads a bitmap resource of the exe by name ("DEZ_SUS", "SPLITJOS").
  void LoadPicture(const std::string& resource_name);
  bool Stretch() const { return options_.stretch; }
  void Stretch(bool on);

  bool on_draw_item(DRAWITEMSTRUCT& d) override;
  bool on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) override;

private:
  Options options_;
  Picture picture_;
};

}  // namespace wh
