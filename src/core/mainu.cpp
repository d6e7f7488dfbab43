#include "core/mainu.h"

#include "core/later.h"
#include "core/paths.h"
#include "core/routines.h"
#include "core/text.h"

namespace wh {

namespace {
// Never destroyed at exit: the program ends without unloading any form, and
// tearing windows down after the runtime's own statics are gone crashes.
Mainu* instance = nullptr;

const Place button_place(int index) { return Place{8 + index * 68, 8, 64, 48}; }
}  // namespace

Mainu::Mainu()
    : Form({.class_name = "Wellharrower", .caption = "Wellharrower", .width = 720, .height = 480}),
      highlight(add<Label>("highlight", Place{0, 0, 68, 52})),
      uninstall(add<ImageButton>("uninstall", button_place(0))),
      task(add<ImageButton>("task", button_place(1))),
      splity(add<ImageButton>("splity", button_place(2))),
      dirinfo(add<ImageButton>("dirinfo", button_place(3))),
      kila(add<ImageButton>("kila", button_place(4))),
      shred(add<ImageButton>("shred", button_place(5))),
      junk(add<ImageButton>("junk", button_place(6))),
      RUN(add<ImageButton>("RUN", button_place(7))),
      dupy(add<ImageButton>("dupy", button_place(8))),
      talpa(add<ImageButton>("talpa", button_place(9))),
      Image11(add<ImageButton>("Image11", Place{8, 64, 64, 48})),
      del(add<ImageButton>("del", Place{8, 400, 56, 24})),
      delall(add<ImageButton>("delall", Place{72, 400, 56, 24})),
      ref(add<ImageButton>("ref", Place{136, 400, 56, 24})),
      picProgress(add<PictureBox>("picProgress", Place{200, 400, 360, 20})),
      mark(add<Frame>("mark", Place{200, 200, 380, 90})),
      Label39(add<Label>("Label39", Place{10, 24, 360, 16, &mark})),
      Picture13(add<PictureBox>("Picture13", Place{10, 50, 360, 20, &mark})),
      Picture16(add<PictureBox>("Picture16", Place{200, 300, 190, 20})),
      Timer1(add_timer("Timer1", 4000, false)),
      Timer2(add_timer("Timer2", 400, false)),
      Timer3(add_timer("Timer3", 500, true)),
      Timer5(add_timer("Timer5", 1800, false)),
      timerul(add_timer("timerul", 4000, false)),
      closing(add_timer("closing", 900, false)),
      Autoshutdown(add_timer("Autoshutdown", 30000, false)) {
  highlight.Visible(false);
  mark.Visible(false);
  Timer3.Tick = [this] { Timer3_Timer(); };
  QueryUnload = [](int&, int mode) {
    if (mode == unload_windows) end_program();  // the session ends: no clean-up
    tray_remove();
  };
  Unload = [](int&) {
    // The object must outlive its own event; the program ends soon after.
    instance = nullptr;
    tray_remove();
  };
}

std::string Mainu::spatiuu(double& n) { return wh::spatiuu(n); }

void Mainu::Clear(const std::string& lit) {
  highlight.Visible(false);
  if (lit == "DEL")
    del.LoadPicture("DELETE_JOS");
  else if (lit == "DELALL")
    delall.LoadPicture("DELETEALL_JOS");
  else if (lit == "REF")
    ref.LoadPicture("REFRESH_JOS");
}

void Mainu::draw_progress(PictureBox& box, int16_t percent, double scale) {
  const int width = static_cast<int>(percent * scale + 30);
  box.Cls();
  box.FillRect(0, 0, width, box.ScaleHeight(), RGB(64, 160, 96));
  const std::string text = std::to_string(percent) + "%";
  box.PrintAt((box.ScaleWidth() - box.TextWidth(text)) / 2,
              (box.ScaleHeight() - box.TextHeight(text)) / 2, text);
  box.Refresh();
}

void Mainu::spProg(int16_t percent) { draw_progress(picProgress, percent, 3.3); }
void Mainu::spProg2(int16_t percent) { draw_progress(Picture13, percent, 3.3); }
void Mainu::spProg3(int16_t percent) { draw_progress(Picture16, percent, 1.6); }

void Mainu::Timer3_Timer() {
  // The power-off time check and the monitor plug in here.
}

Mainu& mainu() {
  if (!instance) instance = new Mainu();
  return *instance;
}

bool mainu_exists() { return instance != nullptr; }

void mainu_clear() {
  delete instance;
  instance = nullptr;
}

}  // namespace wh
