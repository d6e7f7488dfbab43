#include "form/mainu.h"

#include "core/later.h"
#include "filetools/shredder.h"
#include "form/hover.h"

namespace wh {

namespace {
// Never destroyed at exit: the program ends without unloading any form, and
// tearing windows down after the runtime's own statics are gone crashes.
Mainu* instance = nullptr;
}  // namespace

Mainu::Mainu()
    : MainForm({.class_name = "Wellharrower", .caption = "Wellharrower",
                .width = skin::window_width, .height = skin::window_height, .popup = true,
                .icon = ::LoadIconA(exe_module(), MAKEINTRESOURCEA(1))}),
      search(add<Frame>("search", at(skin::strip_panel))),
      // An empty cover over the small bar: no outline.
      frame1(add<Frame>("frame1", at(skin::strip_panel), "", Frame::Options{.border = false})),
      Text6(add<TextBox>("Text6", Place{8, 12, 234, 22, &search})),
      Drive1(add<DriveListBox>("Drive1", Place{0, 0, 120, 200})),
      k1(add<FileListBox>("k1", Place{0, 0, 120, 100})),
      uninstall_page(*this, search, Text6),
      task_page(*this, frame1),
      split_page(*this),
      disk_page(*this),
      floppy_page(*this),
      shred_page(*this),
      options(*this),
      junk_page(*this, frame1, split_page.File1, shred_page.Dir3, Drive1, k1),
      startup_page(*this, search, Text6, k1),
      duplicates_page(*this, k1),
      ram(*this),
      monitor(*this, Drive1, ram, options.Text3, options.Text4, task_page.frogsus),
      power(*this) {
  search.Visible(false);
  frame1.Visible(false);
  // They sit on the dark strip under the pages.
  for (Frame* f : {&search, &frame1}) f->BackColor(skin::well_color);
  Drive1.Visible(false);
  k1.Visible(false);
  // Category 18 overwrites the index files with the shredder.
  junk_page.shred_file = [](const std::string& path, uint8_t passes) {
    shred_file(path, passes, true);
  };
  // Leaving a section for Options hides only some of its extras: the page
  // goes over what stays.
  options.optiuni.ZOrder(0);
  // Over the small progress bar of section 10 where they show.
  frame1.ZOrder(0);
  search.ZOrder(0);
  // Over every page: the tip panel and the wait panel.
  mark.ZOrder(0);
  quicktip.ZOrder(0);
  // The "great software" answer of an uninstall run lands in the minutes box.
  uninstall_page.mm = [this](const std::string& text) { power.mm.Text(text); };

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
  Command1.Click = [this] { Command1_Click(); };
  Text6.Change = [this] { Text6_Change(); };
  Text6.KeyPress = [this](int& ascii) { Text6_KeyPress(ascii); };
  Text6.KeyDown = [this](int& key, int shift) { Text6_KeyDown(key, shift); };
  Timer3.Tick = [this] { Timer3_Timer(); };
  Timer2.Tick = [this] { monitor.Timer2_Timer(); };
  task_page.frogsus.Click = [this] { ram.frogsus_Click(); };
  // A drag over the bare form, and over the duplicate finder's Option4 (which
  // never shows in section 3), is section 3's drag.
  for (DropEvent* over : {&OLEDragOver, &duplicates_page.Option4.OLEDragOver})
    *over = [this](const std::vector<std::string>& f) { split_page.Form_OLEDragOver(f); };
  OLEDropMode(true);
  duplicates_page.Option4.OLEDropMode(true);

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

void Mainu::Timer3_Timer() {
  power.time_check();
  disk_page.free_space_tick();
  monitor.run();
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
