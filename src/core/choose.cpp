#include "core/choose.h"

#include "core/globals.h"
#include "core/skin_layout.h"

namespace wh {

namespace {
Choose* instance = nullptr;  // like the main form, never destroyed at exit

// Image4's places, in twips as its click tells the answers apart.
constexpr int harrow_left = 120, split_left = 840, shred_left = 1560;

// The answer frame: the answer picture beneath it shows through, ringed.
class AnswerMark : public ImageButton {
public:
  AnswerMark(Form& form, std::string name, const Place& place,
             std::initializer_list<const ImageButton*> answers)
      : ImageButton(form, std::move(name), place), answers_(answers) {}

  bool on_draw_item(DRAWITEMSTRUCT& d) override {
    RECT rc;
    ::GetClientRect(hwnd(), &rc);
    paint_parent_background(hwnd(), d.hDC);
    for (const ImageButton* a : answers_) {
      if (!a->Visible() || a->Left() != Left() || a->Top() != Top() || !a->picture()) continue;
      MemoryDC mem(d.hDC);
      mem.select(a->picture()->get());
      SIZE size = picture_size(a->picture());
      ::BitBlt(d.hDC, 0, 0, size.cx, size.cy, mem.get(), 0, 0, SRCCOPY);
    }
    HPEN pen = ::CreatePen(PS_SOLID, 2, skin::accent_color);
    HGDIOBJ old_pen = ::SelectObject(d.hDC, pen);
    HGDIOBJ old_brush = ::SelectObject(d.hDC, ::GetStockObject(NULL_BRUSH));
    ::RoundRect(d.hDC, rc.left + 2, rc.top + 2, rc.right - 1, rc.bottom - 1, 12, 12);
    ::SelectObject(d.hDC, old_brush);
    ::SelectObject(d.hDC, old_pen);
    ::DeleteObject(pen);
    return true;
  }

private:
  std::vector<const ImageButton*> answers_;
};

int twips_to_x(int twips) { return twips / twips_per_pixel_x(); }
}  // namespace

Choose::Choose()
    : Form({.class_name = "WellharrowerChoose", .caption = "Wellharrower",
            .width = skin::choose_width, .height = skin::choose_height, .popup = true,
            .tool_window = true}),
      Image1(add<ImageButton>("Image1", Place{twips_to_x(harrow_left), 4, 48, 48})),
      Image2(add<ImageButton>("Image2", Place{twips_to_x(split_left), 4, 48, 48})),
      Image3(add<ImageButton>("Image3", Place{twips_to_x(shred_left), 4, 48, 48})),
      // Designed over the first answer, where the pointer is put.
      Image4(add<AnswerMark>("Image4", Place{twips_to_x(harrow_left), 4, 48, 48},
                             std::initializer_list<const ImageButton*>{&Image1, &Image2,
                                                                       &Image3})),
      Picture1(add<PictureBox>("Picture1", Place{0, 0, skin::choose_width, skin::choose_height})),
      Label1(add<Label>("Label1", Place{58, 10, 96, 40, &Picture1}, "",
                        Label::Options{.transparent = true})),
      Label2(add<Label>("Label2", Place{58, 10, 96, 40}, "",
                        Label::Options{.transparent = true})) {
  picture(LoadPicture("CHOOSE_BACK"));
  Image1.LoadPicture("CHOOSE_HARROW");
  Image2.LoadPicture("CHOOSE_SPLIT");
  Image3.LoadPicture("CHOOSE_SHRED");
  Picture1.picture(LoadPicture("CHOOSE_WAIT"));
  for (Label* l : {&Label1, &Label2}) l->ForeColor(skin::text_color);
  // Children made later sit lower: the frame goes over the answers, the
  // wait panel over everything, and Label2 over the panel.
  Image4.ZOrder(0);
  Picture1.ZOrder(0);
  Label2.ZOrder(0);
  Picture1.Visible(false);
  Label1.Visible(false);
  Label2.Visible(false);

  Image1.MouseMove = [this](int, int, int, int) { Image4.Left(twips_to_x(harrow_left)); };
  Image2.MouseMove = [this](int, int, int, int) { Image4.Left(twips_to_x(split_left)); };
  Image3.MouseMove = [this](int, int, int, int) { Image4.Left(twips_to_x(shred_left)); };
  Image4.Click = [this] { Image4_Click(); };
  Resize = [this] { Form_Resize(); };
  Form_Load();
  // The first showing brings a Resize; Form_Load showed the window.
  Form_Resize();
}

void Choose::Form_Load() {
  // The mouse in pixels, the window's place in twips at a fixed 15 a pixel.
  POINT p{};
  ::GetCursorPos(&p);
  const int left = p.x * 15 - 1095, top = p.y * 15 - 270;
  Move(left / twips_per_pixel_x(), top / twips_per_pixel_y(), Width(), Height());
  // Topmost, no size, no move, no activation, shown (flags 83).
  ::SetWindowPos(hwnd(), HWND_TOPMOST, 0, 0, 0, 0, 83);
  ::SetCursorPos(Left() * twips_per_pixel_x() / 15 + 17, Top() * twips_per_pixel_y() / 15 + 24);
  if (language_flag == 1) {
    Label1.Caption("Please wait while             shredding...");
    Label2.Caption("  Please wait while     closing all programs");
  } else {
    Label1.Caption("Va rog asteptati        RAD...");
    Label2.Caption("  Va rog asteptati...       inchid  aplicatiile");
  }
}

void Choose::Form_Resize() {
  const int screen_w = ::GetSystemMetrics(SM_CXSCREEN);
  const int screen_h = ::GetSystemMetrics(SM_CYSCREEN);
  if (Left() + Width() > screen_w) Left(screen_w - Width());
  if (Top() + Height() > screen_h) Top(screen_h - Height());
}

void Choose::Image4_Click() {
  // Any other place leaves the answer as it was.
  switch (Image4.Left() * twips_per_pixel_x()) {
    case harrow_left: choose_result = 0; break;
    case split_left: choose_result = 1; break;
    case shred_left: choose_result = 2; break;
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
