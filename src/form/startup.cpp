// The start sequence: the command line decides between the ordinary start,
// the restart after a clean-up, the silent end of a second instance and the
// paths handed over by Explorer.
#include <windows.h>

#include <algorithm>

#include "core/choose.h"
#include "core/cmdline.h"
#include "core/globals.h"
#include "core/tray.h"
#include "core/loading.h"
#include "core/paths.h"
#include "core/tasks.h"
#include "core/poweroff.h"
#include "core/routines.h"
#include "core/settings.h"
#include "core/skin.h"
#include "core/text.h"
#include "filetools/shredder.h"
#include "filetools/splitter.h"
#include "form/mainu.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/processes.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"

namespace wh {

namespace {
PathKind path_kind(const std::string& p) {
  if (file_system().FileExists(p)) return PathKind::file;
  if (file_system().FolderExists(p)) return PathKind::folder;
  return PathKind::none;
}

bool previous_instance() {
  static SingleInstance self("Wellharrower.MainInstance");
  return self.previous_instance();
}

int upper_bound() { return static_cast<int>(cmdline_paths.size()) - 1; }
}  // namespace

void Mainu::Form_Initialize() {
  // The form's first event. Raised as one, so that the events it raises by
  // code (a box that load_settings ticks) are nested in it and their errors
  // come back to the statement that ticked the box.
  raise_event([this] { start(command_tail()); });
}

void Mainu::start(std::string tail) {
  StartWords words = start_words(tail);
  if (words.restart) {
    restart = true;
    if (words.tray) emini = "X";
    tail.clear();
  }
  if (tail.empty()) {
    // A second instance ends before anything is made. (A start with paths
    // makes no such test.)
    if (previous_instance()) end_program();
    ordinary_start();
  } else {
    start_with_paths(tail);
  }
}

bool Mainu::analyze(std::string& text) {
  return analyze_text(text, path_kind, cmdline_paths, cmdline_path_count);
}

void Mainu::ordinary_start() {
  lcd.Mode(0);
  lcd.WriteSpeed(0);
  for (ImageButton* b : {&RUN, &Image11, &uninstall, &junk, &task, &splity, &dirinfo, &kila, &shred})
    b->Enabled(true);
  lighton = "MAINU";
  delall.Visible(false);
  task_list = std::make_unique<clsApplicazioni>();
  active_process = std::make_unique<clsActiveProcess>();
  monitor.make_meter();
  ActiveSection = 1;
  light_section_button(uninstall);  // its section is the first
  uninstall_page.talpa.LoadPicture("PICIOR_JOS");
  del.LoadPicture("DELETE_JOS");
  delall.LoadPicture("DELETEALL_JOS");
  ref.LoadPicture("REFRESH_JOS");
  // Whole paths in Explorer's titles. The text value is written first, with
  // no backslash between folder and name, and then replaced by the number.
  const std::string cabinet = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\CabinetState";
  reg_set_value(HKEY_CURRENT_USER, cabinet, "FullPath", app_path() + app_exe_name() + ".exe");
  reg_set_dword(HKEY_CURRENT_USER, cabinet, "FullPath", 1);
  sequential_uninstall = 0;
  apply_skin();
  load_settings();
}

void Mainu::apply_skin() {
  clsSkinForm skin;
  skin.FormShape(*this, 101, 101);
}

// Each step in its place: a stored "true" ticks a box that was clear, and
// only that runs the box's handler, so the order is the order of effects.
void Mainu::load_settings() {
  reface = true;
  ++load_count_;
  if (val(setting("readed 0.95")) == 0) {
    displaytips = true;
    save_setting("readed 0.95", "1");
  }
  if (val(setting("runed")) == 0) {
    displaytips = true;
    first_run_done = false;
    show_loading([this](int language) { changelanguage(language); });
    wait_until([] { return first_run_done; });
  }
  // 0 is taken as unset, each coordinate alone.
  const double left = val(setting("left")), top = val(setting("top"));
  Left(static_cast<int>((left != 0 ? left : 4410) / twips_per_pixel_x()));
  Top(static_cast<int>((top != 0 ? top : 2820) / twips_per_pixel_y()));
  options.Text3.Text(number_text(val(setting("ramamount"))));
  options.Text4.Text(number_text(val(setting("ramtime"))));

  // From here on every failure is dropped and the next step runs.
  bool plugins = false;
  ignore_errors([&] { plugins = junk_page.scan_plugins(); });
  ignore_errors([&] {
    JunkPage& j = junk_page;
    j.showplugins.picture(plugins ? j.Image23.picture() : j.Image22.picture());
  });
  // A later call only scans the plug-ins again.
  if (load_count_ > 1) return;

  const double runs = val(setting("runed")) + 1;
  ignore_errors([&] { save_setting("runed", number_text(runs)); });
  if (runs == 45 && setting("limba") == "engleza") ignore_errors([&] { show_poweroff_once(); });

  ignore_errors([&] { options.Check4.Value(setting("keyboard") == "true" ? 1 : 0); });
  if (setting("autorefresh") == "true") {
    ignore_errors([&] { options.Check1.Value(1); });
    ignore_errors([&] { Timer1.Enabled(true); });
    ignore_errors([&] { options.Text1.Text(setting("autorefreshtime")); });
    ignore_errors([&] {
      Timer1.Interval(static_cast<unsigned>(std::max(0.0, val(setting("autorefreshtime")) * 1000)));
    });
  } else {
    ignore_errors([&] { options.Check1.Value(0); });
    ignore_errors([&] { Timer1.Enabled(false); });
  }
  if (setting("autofree") == "true") {
    ignore_errors([&] { options.Check2.Value(1); });
    if (setting("autofreetype") == "timp")
      ignore_errors([&] { options.Option8.Value(true); });
    else
      ignore_errors([&] { options.Option9.Value(true); });
  } else {
    ignore_errors([&] { options.Check2.Value(0); });
  }
  ignore_errors([&] { options.Check3.Value(setting("harrowall") == "true" ? 1 : 0); });
  ignore_errors([&] { options.Check5.Value(setting("autostart") == "true" ? 1 : 0); });
  ignore_errors([&] { options.Check7.Value(setting("context") == "true" ? 1 : 0); });
  if (setting("tray") == "true") {
    ignore_errors([&] { options.Check6.Value(1); });
    ignore_errors([&] { tray_add(); });
    ignore_errors([&] { Hide(); });
  } else {
    ignore_errors([&] { options.Check6.Value(0); });
    ignore_errors([&] { Show(); });  // the one place an ordinary start shows the form
  }
  if (setting("limba") == "romana")
    ignore_errors([&] { options.Option11.Value(true); });
  else
    ignore_errors([&] { options.Option10.Value(true); });

  ignore_errors([&] { options.Combo1.Text(setting("mod")); });
  ActiveSection = 0;  // so that the start section does not take itself for the present one
  ignore_errors([&] { enter_start_section(); });

  if (restart) {
    ignore_errors([&] { junk_Click(); });
    if (emini == "X") {
      ignore_errors([&] { tray_add(); });
      ignore_errors([&] { Hide(); });
    }
  }
  ignore_errors([&] { monitor_start(); });
}

void Mainu::monitor_start() { monitor.start(); }

// "Disk Space Explorer", which the Options page offers in English, has no
// line here: it starts with no section.
void Mainu::enter_start_section() {
  const std::string mod = options.Combo1.Text();
  if (mod == "Dezinstalare programe" || mod == "Uninstall programs")
    uninstall_Click();
  else if (mod == "StartUp Manager" || mod == "StartUp")
    RUN_Click();
  else if (mod == "TaskManager")
    task_Click();
  else if (mod == "Despicare fisiere" || mod == "Split Files")
    splity_Click();
  else if (mod == "JunkHarrower" || mod == "Curatare hard disk")
    junk_Click();
  else if (mod == "Wellformat")
    kila_Click();
  else if (mod == "DirInfo")
    dirinfo_Click();
  else if (mod == "Radere fisiere" || mod == "Shred Files")
    shred_Click();
  else if (mod == "Duplicate Harrower" || mod == "Gasire fisiere duplicat")
    dupy_Click();
}

void Mainu::show_poweroff_once() {
  Poweroff& p = poweroff();
  // Topmost, no size, no move, no activation, shown (flags 83).
  ::SetWindowPos(p.hwnd(), HWND_TOPMOST, 0, 0, 0, 0, 83);
  for (Control* c : std::initializer_list<Control*>{&p.md, &p.sm, &p.sp, &p.Label3})
    c->Visible(true);
}

void Mainu::start_with_paths(const std::string& tail) {
  std::string text = tail;
  const bool folder = analyze(text);
  choose_result = -1;
  if (!folder) {
    Choose& c = choose();
    c.Show();
    if (upper_bound() > 1) c.Image2.Visible(false);
    wait_until([] { return choose_result != -1; });
  } else {
    choose_result = 2;
  }

  if (choose_result == 0) {
    for (int i = 1; i <= upper_bound(); ++i) uninstall_page.uninstall_dropped(cmdline_paths[i]);
    end_program();
  } else if (choose_result == 2) {
    Choose& c = choose();
    c.Picture1.Visible(true);
    c.Label1.Visible(true);
    c.Label1.Caption(setting("limba") == "romana" ? "Va rog asteptati.."
                                                   : "Please wait while             shredding...");
    c.Show();
    for (int i = 1; i <= upper_bound(); ++i) {
      const std::string& path = cmdline_paths[i];
      if (file_system().FileExists(path)) {
        shred_file(path, 3, false, shred_page.progress());
      } else if (file_system().FolderExists(path)) {
        const std::string trimmed = trim(path);
        shred_folder(trimmed, 3, shred_page.progress());
        file_system().DeleteFolder(trimmed, false);  // errors ignored
        file_system().DeleteFile(path);
      }
    }
    end_program();
  } else if (choose_result == 1) {
    std::string file = tail;
    // One character off each end, and the drive's first character: whole
    // characters, not bytes.
    if (file.find('"') != std::string::npos) {
      const size_t n = utf8::length(file);
      file = std::string(utf8::mid(file, 2, n >= 2 ? n - 2 : 0));
    }
    if (!file_system().FileExists(file)) end_program();
    // The splitter's page takes the file from here.
    split_page.dir1.Path(parent_path(file));
    split_page.Drive2.Drive(std::string(utf8::left(file, 1)));
    split_page.File1.Path(split_page.dir1.Path());
    const std::string name = ucase(path_part(file, 6));
    for (int i = 0; i < split_page.File1.ListCount(); ++i) {
      if (ucase(split_page.File1.List(i)) != name) continue;
      split_page.File1.ListIndex(i);
      split_page.Option1.Value(true);
      split_page.File1_Click();
      break;
    }
    apply_skin();
    changelanguage(setting("limba") == "romana" ? 2 : 1);
    splity.Enabled(true);
    splity_Click();
    split_page.Label1_Click();
    split_page.calefisier.Caption(file);
    Show();
  }
}

}  // namespace wh
