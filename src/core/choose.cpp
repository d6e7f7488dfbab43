#include "core/choose.h"

#include "core/globals.h"

namespace wh {

namespace {
Choose* instance = nullptr;  // like the main form, never destroyed at exit

// Positions in twips as the answers are told apart; 15 twips a pixel.
constexpr int twips = 15;
}  // namespace

Choose::Choose()
    : Form({.class_name = "WellharrowerChoose", .caption = "Wellharrower", .width = 166,
            .height = 56, .popup = true, .tool_window = true}),
      Image1(add<ImageButton>("Image1", Place{8, 4, 48, 48})),
      Image2(add<ImageButton>("Image2", Place{56, 4, 48, 48})),
      Image3(add<ImageButton>("Image3", Place{104, 4, 48, 48})),
      Image4(add<ImageButton>("Image4", Place{8, 4, 48, 48})),
      Picture1(add<PictureBox>("Picture1", Place{0, 0, 166, 56})),
      Label1(add<Label>("Label1", Place{8, 8, 150, 40, &Picture1})),
      Label2(add<Label>("Label2", Place{8, 8, 150, 40})) {
  Picture1.Visible(false);
  Label2.Visible(false);
  Image1.LoadPicture("DEZ_JOS");
  Image2.LoadPicture("SPLITJOS");
  Image3.LoadPicture("SHRED_JOS");
  Image1.MouseMove = [this](int, int, int, int) { Image4.Left(120 / twips); };
  Image2.MouseMove = [this](int, int, int, int) { Image4.Left(840 / twips); };
  Image3.MouseMove = [this](int, int, int, int) { Image4.Left(1560 / twips); };
  Image4.Click = [this] { Image4_Click(); };
  Form_Load();
}

void Choose::Form_Load() {
  POINT p{};
  GetCursorPos(&p);
  Move(p.x - 1095 / twips, p.y - 270 / twips, Width(), Height());
  TopMost(true);
  SetCursorPos(Left() + 17, Top() + 24);
  if (language_flag == 1) {
    Label1.Caption("Please wait while             shredding...");
    Label2.Caption("  Please wait while     closing all programs");
  } else {
    Label1.Caption("Va rog asteptati        RAD...");
    Label2.Caption("  Va rog asteptati...       inchid  aplicatiile");
  }
}

void Choose::Image4_Click() {
  switch (Image4.Left() * twips) {
    case 120: choose_result = 0; break;
    case 840: choose_result = 1; break;
    case 1560: choose_result = 2; break;
    default: break;
  }
  choose_unload();
}

Choose& choose() {
  if (!instance) instance = new Choose();
  return *instance;
}

bool choose_loaded() { return instance != nullptr; }

void choose_unload() {
  // Unloaded from its own click: the object must outlive that event, so it
  // is let go rather than deleted; the next use loads a new one.
  Choose* gone = instance;
  instance = nullptr;
  if (gone) gone->unload();
}

}  // namespace wh
