// The main window itself: dragged by its bare surface, closed and minimised
// by the buttons drawn on its skin, and the two layouts of the trace panel.
#include "core/globals.h"
#include "core/later.h"
#include "core/mainu.h"
#include "core/settings.h"
#include "core/skin_layout.h"
#include "core/text.h"

namespace wh {

void Mainu::Form_MouseDown(int, int, int x, int y) {
  drag_x_ = x;
  drag_y_ = y;
}

void Mainu::Form_MouseMove(int button, int, int x, int y) {
  // Leaving a button means arriving on the surface: whatever was lit goes out.
  Clear(lighton);
  lighton = "MAINU";
  if (button == 1) Move(Left() + x - drag_x_, Top() + y - drag_y_, Width(), Height());
}

void Mainu::Form_MouseUp(int, int, int, int) {
  // Twips, as the position is read back; a drag off the left edge stores a
  // negative number, and only exactly 0 reads as unset.
  save_setting("left", number_text(static_cast<double>(Left()) * twips_per_pixel_x()));
  save_setting("top", number_text(static_cast<double>(Top()) * twips_per_pixel_y()));
}

void Mainu::Image1_Click() {
  tray_remove();
  end_program();
}

void Mainu::Image10_MouseUp(int button, int, int, int) {
  if (button == 1) {
    WindowState(1);
  } else {
    tray_add();
    Hide();
  }
}

// The trace panel over the whole working area, or narrow beside the
// categories. The refresh button tells the two apart by Picture7's left
// edge: 2850 twips in the wide one only.
void Mainu::famare() {
  const skin::Rect& c = skin::content;
  const int title_left = 2850 / twips_per_pixel_x();
  del.Visible(false);
  delall.Visible(false);
  Picture9.Move(8, 16, title_left - 14, 40);
  Frame15.Move(c.left, c.top, c.width, c.height);
  Picture7.Move(title_left, 16, c.width - title_left - 8, 40);
  junk_files.Move(8, 62, c.width - 16, c.height - 70);
  junk_files.Clear();
  Frame15.Visible(true);
}

void Mainu::famic() {
  const skin::Rect& c = skin::content;
  const int width = 230;
  del.Visible(false);
  delall.Visible(false);
  Picture9.Move(8, 16, width - 16, 24);
  Frame15.Move(c.left + c.width - width, c.top, width, c.height);
  Picture7.Move(8, 44, width - 16, 40);
  junk_files.Move(8, 90, width - 16, c.height - 98);
  junk_files.Clear();
  Frame15.Visible(true);
}

}  // namespace wh
