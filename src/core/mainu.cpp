#include "core/mainu.h"

#include "core/hover.h"
#include "core/later.h"
#include "core/paths.h"
#include "core/routines.h"
#include "core/skin_layout.h"
#include "core/text.h"

namespace wh {

namespace {
// Never destroyed at exit: the program ends without unloading any form, and
// tearing windows down after the runtime's own statics are gone crashes.
Mainu* instance = nullptr;

Place at(const skin::Rect& r) { return Place{r.left, r.top, r.width, r.height}; }
// The working area below the section buttons: every section's page.
const Place page_place = at(skin::content);
// Where the small extras of a section sit, beside the action buttons.
Place extra_place(int index) { return at(skin::extras[index]); }

// The panel has its size from its properties, as a designer leaves them.
kaLCDDisplay& make_lcd(Form& form) {
  LcdPropertyBag bag;
  bag.WriteProperty("TotalCols", "20");
  bag.WriteProperty("TotalRows", "5");
  return *kaLCDDisplay::Create(form.hwnd(), skin::lcd.left, skin::lcd.top, 0, &bag);
}
}  // namespace

Mainu::Mainu()
    : Form({.class_name = "Wellharrower", .caption = "Wellharrower",
            .width = skin::window_width, .height = skin::window_height, .popup = true,
            .icon = ::LoadIconA(exe_module(), MAKEINTRESOURCEA(1))}),
      highlight(add<Label>("highlight", Place{0, 0, 68, 52})),
      Image1(add<ImageButton>("Image1", at(skin::Image1))),
      Image10(add<ImageButton>("Image10", at(skin::Image10))),
      uninstall(add<ImageButton>("uninstall", at(skin::uninstall))),
      task(add<ImageButton>("task", at(skin::task))),
      splity(add<ImageButton>("splity", at(skin::splity))),
      dirinfo(add<ImageButton>("dirinfo", at(skin::dirinfo))),
      kila(add<ImageButton>("kila", at(skin::kila))),
      shred(add<ImageButton>("shred", at(skin::shred))),
      junk(add<ImageButton>("junk", at(skin::junk))),
      RUN(add<ImageButton>("RUN", at(skin::RUN))),
      dupy(add<ImageButton>("dupy", at(skin::dupy))),
      talpa(add<ImageButton>("talpa", extra_place(4))),
      Image11(add<ImageButton>("Image11", at(skin::Image11))),
      del(add<ImageButton>("del", at(skin::del))),
      delall(add<ImageButton>("delall", at(skin::delall))),
      ref(add<ImageButton>("ref", at(skin::ref))),
      picProgress(add<PictureBox>("picProgress", at(skin::progress))),
      mark(add<Frame>("mark", at(skin::wait_panel), "Please wait...")),
      Label39(add<Label>("Label39", Place{12, 26, 356, 18, &mark})),
      Picture13(add<PictureBox>("Picture13", Place{12, 54, 356, 22, &mark})),
      Picture16(add<PictureBox>("Picture16", at(skin::progress_small))),
      Image22(add<ImageButton>("Image22", Place{0, 0, 16, 16})),
      Image23(add<ImageButton>("Image23", Place{0, 0, 16, 16})),
      List1(add<ListBox>("List1", page_place, ListBox::Options{.multi_select = multi_extended})),
      PIE(add<ImageButton>("PIE", extra_place(0))),
      QM(add<ImageButton>("QM", extra_place(1))),
      lupe(add<ImageButton>("lupe", extra_place(2))),
      delfolder(add<ImageButton>("delfolder", extra_place(3))),
      search(add<Frame>("search", at(skin::strip_panel))),
      List2(add<ListBox>("List2", page_place, ListBox::Options{.multi_select = multi_extended})),
      frame1(add<Frame>("frame1", at(skin::strip_panel))),
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
      Frame9(add<Frame>("Frame9", Place{488, 12, 124, 104, &Frame8}, "Overwrite times")),
      Option5(add<OptionButton>("Option5", Place{10, 22, 106, 20, &Frame9}, "3 Normal")),
      Option6(add<OptionButton>("Option6", Place{10, 48, 106, 20, &Frame9}, "5 Advanced")),
      Option7(add<OptionButton>("Option7", Place{10, 74, 106, 20, &Frame9}, "7 Paranoia")),
      Drive4(add<DriveListBox>("Drive4", Place{10, 16, 226, 22, &Frame8})),
      Dir3(add<DirListBox>("Dir3", Place{10, 44, 226, 240, &Frame8})),
      File3(add<FileListBox>("File3", Place{244, 16, 234, 268, &Frame8})),
      Label22(add<Label>("Label22", Place{10, 292, 600, 30, &Frame8})),
      junk_form(add<Frame>("junk_form", page_place)),
      ocupied(add<Label>("ocupied", Place{420, 16, 190, 20, &junk_form})),
      pluginlist(add<ListBox>("pluginlist", Place{420, 44, 190, 200, &junk_form},
                              ListBox::Options{.multi_select = multi_simple})),
      showplugins(add<ImageButton>("showplugins", extra_place(2))),
      Frame15(add<Frame>("Frame15", page_place)),
      Picture9(add<PictureBox>("Picture9", Place{8, 16, 176, 40, &Frame15})),
      Picture7(add<PictureBox>("Picture7", Place{8, 16, 600, 40, &Frame15})),
      junk_files(add<ListBox>("junk_files", Place{8, 60, 600, 260, &Frame15})),
      RUNframe(add<Frame>("RUNframe", page_place)),
      run_reg(add<ListBox>("run_reg", Place{8, 16, 600, 300, &RUNframe},
                           ListBox::Options{.multi_select = multi_extended})),
      umb_up(add<ImageButton>("umb_up", extra_place(3))),
      finddups(add<Frame>("finddups", page_place)),
      Picture17(add<PictureBox>("Picture17", Place{8, 16, 600, 300, &finddups})),
      quicktip(add<Frame>("quicktip", at(skin::tip_panel), "    QUICK TIP")),
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
      lcd(make_lcd(*this)),
      options(*this),
      wellshred(*this) {
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

  // No caption, yet the taskbar can minimise and restore it: that takes a
  // system menu and a minimise box in the style.
  ::SetWindowLongA(hwnd(), GWL_STYLE,
                   ::GetWindowLongA(hwnd(), GWL_STYLE) | WS_SYSMENU | WS_MINIMIZEBOX);
  MouseDown = [this](int b, int s, int x, int y) { Form_MouseDown(b, s, x, y); };
  MouseMove = [this](int b, int s, int x, int y) { Form_MouseMove(b, s, x, y); };
  MouseUp = [this](int b, int s, int x, int y) { Form_MouseUp(b, s, x, y); };
  Image1.Click = [this] { Image1_Click(); };
  Image10.MouseUp = [this](int b, int s, int x, int y) { Image10_MouseUp(b, s, x, y); };
  wire_hover(*this);
  // The pictures as designed; the start and the sections change them.
  for (auto [button, name] : std::initializer_list<std::pair<ImageButton*, const char*>>{
           {&uninstall, "DEZ_JOS"}, {&task, "TASK_JOS"}, {&splity, "SPLITJOS"},
           {&dirinfo, "DIRINFO_JOS"}, {&kila, "KILLA_JOS"}, {&shred, "SHRED_JOS"},
           {&junk, "JUNK_JOS"}, {&RUN, "RUN_JOS"}, {&dupy, "DUP_JOS"},
           {&talpa, "PICIOR_JOS"}, {&del, "DELETE_JOS"}, {&delall, "DELETEALL_JOS"},
           {&ref, "REFRESH_JOS"}})
    button->LoadPicture(name);
  // Over the small progress bar of section 10 where they show.
  frame1.ZOrder(0);
  search.ZOrder(0);
  // Over every page: the tip panel and the shred section's wait panel.
  mark.ZOrder(0);
  quicktip.ZOrder(0);
  // The progress boxes sit on the dark skin.
  for (PictureBox* p : {&picProgress, &Picture16}) {
    p->BackColor(skin::well_color);
    p->ForeColor(skin::text_color);
    p->Cls();
  }
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
