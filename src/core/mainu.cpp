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
// The working area below the section buttons: every section's page.
const Place page_place{80, 64, 620, 330};
// Where the small extras of a section sit, beside the action buttons.
const Place extra_place(int index) { return Place{420 + index * 56, 400, 52, 24}; }
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
      Image22(add<ImageButton>("Image22", Place{0, 0, 16, 16})),
      Image23(add<ImageButton>("Image23", Place{0, 0, 16, 16})),
      List1(add<ListBox>("List1", page_place, ListBox::Options{.multi_select = multi_extended})),
      PIE(add<ImageButton>("PIE", extra_place(0))),
      QM(add<ImageButton>("QM", extra_place(1))),
      lupe(add<ImageButton>("lupe", extra_place(2))),
      delfolder(add<ImageButton>("delfolder", extra_place(3))),
      search(add<Frame>("search", Place{480, 340, 200, 44})),
      List2(add<ListBox>("List2", page_place, ListBox::Options{.multi_select = multi_extended})),
      frame1(add<Frame>("frame1", Place{80, 340, 320, 50})),
      frogsus(add<ImageButton>("frogsus", extra_place(0))),
      splitbox(add<Frame>("splitbox", page_place)),
      Option1(add<OptionButton>("Option1", Place{8, 16, 120, 20, &splitbox})),
      Label1(add<Label>("Label1", Place{136, 16, 120, 20, &splitbox})),
      dir1(add<DirListBox>("dir1", Place{8, 44, 240, 270, &splitbox})),
      File1(add<FileListBox>("File1", Place{256, 44, 240, 270, &splitbox})),
      Frame5(add<Frame>("Frame5", page_place)),
      Drive3(add<DriveListBox>("Drive3", Place{8, 16, 200, 20, &Frame5})),
      back(add<Label>("back", Place{216, 16, 390, 20, &Frame5})),
      list(add<ListBox>("list", Place{8, 44, 600, 270, &Frame5},
                        ListBox::Options{.multi_select = multi_extended})),
      explorer(add<ImageButton>("explorer", extra_place(1))),
      Frame6(add<Frame>("Frame6", page_place)),
      Dir2(add<DirListBox>("Dir2", Place{8, 16, 240, 300, &Frame6})),
      File2(add<FileListBox>("File2", Place{256, 16, 240, 300, &Frame6})),
      Frame8(add<Frame>("Frame8", page_place)),
      Option5(add<OptionButton>("Option5", Place{8, 16, 120, 20, &Frame8})),
      Drive4(add<DriveListBox>("Drive4", Place{136, 16, 200, 20, &Frame8})),
      Dir3(add<DirListBox>("Dir3", Place{8, 44, 240, 270, &Frame8})),
      File3(add<FileListBox>("File3", Place{256, 44, 240, 270, &Frame8})),
      junk_form(add<Frame>("junk_form", page_place)),
      ocupied(add<Label>("ocupied", Place{420, 16, 190, 20, &junk_form})),
      pluginlist(add<ListBox>("pluginlist", Place{420, 44, 190, 200, &junk_form},
                              ListBox::Options{.multi_select = multi_simple})),
      showplugins(add<ImageButton>("showplugins", extra_place(2))),
      Frame15(add<Frame>("Frame15", page_place)),
      Picture7(add<PictureBox>("Picture7", Place{8, 16, 600, 40, &Frame15})),
      junk_files(add<ListBox>("junk_files", Place{8, 60, 600, 260, &Frame15})),
      RUNframe(add<Frame>("RUNframe", page_place)),
      run_reg(add<ListBox>("run_reg", Place{8, 16, 600, 300, &RUNframe},
                           ListBox::Options{.multi_select = multi_extended})),
      umb_up(add<ImageButton>("umb_up", extra_place(3))),
      finddups(add<Frame>("finddups", page_place)),
      Picture17(add<PictureBox>("Picture17", Place{8, 16, 600, 300, &finddups})),
      quicktip(add<Frame>("quicktip", Place{200, 120, 320, 170}, "    QUICK TIP")),
      quicktiptext(add<Label>("quicktiptext", Place{8, 20, 304, 110, &quicktip})),
      OKU(add<Label>("OKU", Place{272, 140, 40, 20, &quicktip}, "OK")),
      Command1(add<Label>("Command1", Place{8, 140, 80, 20, &quicktip}, "show me")),
      Timer1(add_timer("Timer1", 4000, false)),
      Timer2(add_timer("Timer2", 400, false)),
      Timer3(add_timer("Timer3", 500, true)),
      Timer5(add_timer("Timer5", 1800, false)),
      timerul(add_timer("timerul", 4000, false)),
      closing(add_timer("closing", 900, false)),
      Autoshutdown(add_timer("Autoshutdown", 30000, false)),
      options(*this) {
  highlight.Visible(false);
  mark.Visible(false);
  Image22.Visible(false);
  Image23.Visible(false);
  for (int i = 1; i <= 18; ++i)
    check[i] = &add<CheckBox>("check(" + std::to_string(i) + ")",
                              Place{8 + (i - 1) / 9 * 200, 16 + (i - 1) % 9 * 26, 190, 22,
                                    &junk_form});
  // As designed: the first section's extras show, the other pages don't.
  for (Control* c : std::initializer_list<Control*>{
           &umb_up, &QM, &lupe, &search, &showplugins, &explorer, &talpa, &frogsus, &frame1,
           &splitbox, &Frame5, &Frame6, &Frame8, &RUNframe, &junk_form, &finddups, &Frame15,
           &Picture17, &quicktip})
    c->Visible(false);
  for (Control* page : std::initializer_list<Control*>{&splitbox, &Frame5, &Frame6, &Frame8,
                                                       &RUNframe, &junk_form, &finddups, &Frame15})
    page->ZOrder(0);  // over the lists that sit on the form itself
  options.optiuni.ZOrder(0);  // leaving a section for Options hides only some of its extras

  uninstall.Click = [this] { uninstall_Click(); };
  task.Click = [this] { task_Click(); };
  splity.Click = [this] { splity_Click(); };
  dirinfo.Click = [this] { dirinfo_Click(); };
  kila.Click = [this] { kila_Click(); };
  shred.Click = [this] { shred_Click(); };
  Image11.Click = [this] { Image11_Click(); };
  junk.Click = [this] { junk_Click(); };
  RUN.Click = [this] { RUN_Click(); };
  dupy.Click = [this] { dupy_Click(); };
  del.Click = [this] { del_Click(); };
  delall.Click = [this] { delall_Click(); };
  ref.Click = [this] { ref_Click(); };
  OKU.Click = [this] { quicktip.Visible(false); };
  Command1.Click = [this] { Command1_Click(); };
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
