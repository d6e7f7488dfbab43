// The main window itself: dragged by its bare surface, closed and minimised
// by the buttons drawn on its skin.
#include "core/globals.h"
#include "core/later.h"
#include "core/settings.h"
#include "core/skin_layout.h"
#include "core/text.h"
#include "form/mainu.h"

namespace wh {

void Mainu::Form_MouseDown(int, int, int x, int y) {
  drag_x_ = x;
  drag_y_ = y;
}

void Mainu::Form_MouseMove(int button, int, int x, int y) {
  // Leaving a button means arriving on the surface: whatever was lit goes out.
  Clear(lighton);
  power.surface();
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

}  // namespace wh
