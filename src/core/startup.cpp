// The start sequence: the command line decides between the ordinary start,
// the restart after a clean-up, the silent end of a second instance and the
// paths handed over by Explorer.
#include <windows.h>

#include "core/choose.h"
#include "core/cmdline.h"
#include "core/globals.h"
#include "core/later.h"
#include "core/mainu.h"
#include "core/routines.h"
#include "core/settings.h"
#include "core/text.h"
#include "filetools/shredder.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/processes.h"

namespace wh {

namespace {
constexpr int twips = 15;  // per pixel at 96 dpi; positions are stored in twips

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

void Mainu::Form_Initialize() { start(command_tail()); }

void Mainu::start(std::string tail) {
  StartWords words = start_words(tail);
  if (words.restart) {
    restart = true;
    if (words.tray) emini = "X";
    tail.clear();
  }
  if (tail.empty())
    ordinary_start();
  else
    start_with_paths(tail);
}

bool Mainu::analyze(std::string& text) {
  return analyze_text(text, path_kind, cmdline_paths, cmdline_path_count);
}

void Mainu::ordinary_start() {
  if (previous_instance()) end_program();
  for (ImageButton* b : {&RUN, &Image11, &uninstall, &junk, &task, &splity, &dirinfo, &kila, &shred})
    b->Enabled(true);
  lighton = "MAINU";
  delall.Visible(false);
  ActiveSection = 1;
  shred.LoadPicture("SHRED_JOS");
  kila.LoadPicture("KILLA_JOS");
  dirinfo.LoadPicture("DIRINFO_JOS");
  splity.LoadPicture("SPLITJOS");
  task.LoadPicture("TASK_JOS");
  uninstall.LoadPicture("DEZ_SUS");  // lit: its section is the first
  dupy.LoadPicture("DUP_JOS");
  talpa.LoadPicture("PICIOR_JOS");
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
  // The shaped window comes with the skin.
}

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
    // The first-run window (language and start section) comes with the
    // window work; until then the first run goes straight on.
    first_run_done = true;
    wait_until([] { return first_run_done; });
  }
  const double left = val(setting("left")), top = val(setting("top"));
  Left(static_cast<int>((left != 0 ? left : 4410) / twips));
  Top(static_cast<int>((top != 0 ? top : 2820) / twips));
  if (load_count_ > 1) return;
  save_setting("runed", number_text(val(setting("runed")) + 1));
  if (setting("tray") == "true") {
    tray_add();
    Hide();
  } else {
    Show();
  }
  language_flag = setting("limba") == "romana" ? 2 : 1;
  ActiveSection = 0;
  if (restart) {
    junk_Click();
    if (emini == "X") {
      tray_add();
      Hide();
    }
  }
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
    for (int i = 1; i <= upper_bound(); ++i) uninstall_dropped(cmdline_paths[i]);
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
        shred_file(path, 3, false);
      } else if (file_system().FolderExists(path)) {
        const std::string trimmed = trim(path);
        shred_folder(trimmed, 3);
        file_system().DeleteFolder(trimmed, false);  // errors ignored
        file_system().DeleteFile(path);
      }
    }
    end_program();
  } else if (choose_result == 1) {
    std::string file = tail;
    if (file.find('"') != std::string::npos) file = file.substr(1, file.size() - 2);
    if (!file_system().FileExists(file)) end_program();
    // The splitter's page takes the file from here.
    apply_skin();
    changelanguage(setting("limba") == "romana" ? 2 : 1);
    splity.Enabled(true);
    Show();
  }
}

}  // namespace wh
