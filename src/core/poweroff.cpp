#include "core/poweroff.h"

namespace wh {

namespace {
Poweroff* instance = nullptr;  // like the main form, never destroyed at exit
}  // namespace

Poweroff::Poweroff()
    : Form({.class_name = "WellharrowerPoweroff", .caption = "Wellharrower", .width = 360,
            .height = 180, .tool_window = true}),
      Label3(add<Label>("Label3", Place{12, 12, 330, 70},
                        "You have runned Wellharrower for 45 times.As you know this application  "
                        "is free but you can show the author your appreciation by clicking one "
                        "of the buttons below.")),
      md(add<ImageButton>("md", Place{12, 96, 64, 40})),
      sm(add<ImageButton>("sm", Place{96, 96, 64, 40})),
      sp(add<ImageButton>("sp", Place{180, 96, 64, 40})) {
  // A shutdown shows this window with its picture alone; these come out at
  // the 45th start only.
  for (Control* c : std::initializer_list<Control*>{&Label3, &md, &sm, &sp}) c->Visible(false);
}

Poweroff& poweroff() {
  if (!instance) instance = new Poweroff();
  return *instance;
}

bool poweroff_loaded() { return instance != nullptr; }

void poweroff_unload() {
  Poweroff* gone = instance;
  instance = nullptr;
  if (gone) gone->unload();
}

}  // namespace wh
