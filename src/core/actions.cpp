// The three action buttons under the sections: del (the section's main
// action), delall (do it to everything) and ref (read again). Each tests
// ActiveSection by its own chain, in its own order.
#include "core/globals.h"
#include "core/later.h"
#include "core/mainu.h"
#include "core/settings.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/rt_error.h"

namespace wh {

namespace {
constexpr int twips = 15;
}  // namespace

bool spared_by_harrow_all(const std::string& row, const std::string& own_exe) {
  const std::string name = ucase(row);
  for (const std::string& kept : {std::string("KERNEL"), std::string("MPREXE"),
                                  std::string("EXPLORER.EXE"), ucase(own_exe) + ".EXE"})
    if (name.find(kept) != std::string::npos) return true;
  return false;
}

void Mainu::del_Click() {
  // A copy first: nothing a block does to the section may send it into
  // another block.
  const uint8_t section = ActiveSection;
  if (section == 10)
    del_duplicates();
  else if (section == 9)
    del_startup_items();
  else if (section == 8)
    del_junk();
  else if (section == 1)
    del_uninstall();
  else if (section == 2)
    del_tasks();
  else if (section == 3)
    del_split();
  else if (section == 4)
    del_disk_explorer();
  else if (section == 5)
    del_floppy();
  else if (section == 6)
    del_shred();
}

void Mainu::delall_Click() {
  if (ActiveSection == 2) {
    ignore_errors([&] { afis_tasks(); });
    // The first row is never touched; a row's process sits one further on
    // in the snapshot.
    for (int row = 1; row < List2.ListCount(); ++row) {
      ignore_errors([&] {
        const std::string text = List2.List(row);
        if (spared_by_harrow_all(text, app_exe_name())) return;
        if (!active_process) raise(rt_object_not_set);
        killem(active_process->th32ProcessID(row + 1), text);
      });
    }
  }
  if (ActiveSection == 8) {
    // 17, not 18: the index files are never harrowed by Harrow All.
    for (int i = 1; i <= 17; ++i) ignore_errors([&] { check[i]->Value(1); });
    for (int row = 0; row < pluginlist.ListCount(); ++row)
      ignore_errors([&] { pluginlist.Selected(row, true); });
    ignore_errors([&] { del_Click(); });
  }
  if (setting("harrowall") == "true" && ActiveSection == 2) {
    tray_remove();
    end_program();
  }
}

void Mainu::ref_Click() {
  if (ActiveSection == 9) {
    scan_startup();
  } else if (ActiveSection == 8) {
    if (!Frame15.Visible()) {
      junk_scan();
    } else {
      junk_files.Clear();
      if (Picture7.Left() * twips != 2850) {
        if (viewer_mode == 1)
          current_check_key = "CHECK2";
        else if (viewer_mode == 3)
          current_check_key = "CHECK11";
        else if (viewer_mode == 4)
          current_check_key = "CHECK12";
      }
      lupa_Click();
    }
  } else if (ActiveSection == 1) {
    List1.Clear();
    scan_installed_programs();
  } else if (ActiveSection == 2) {
    afis_tasks();
    if (!task_list) raise(rt_object_not_set);
    task_list->RefreshTaskList(hwnd(), true);
  } else if (ActiveSection == 4) {
    afisdirs(back.Caption(), false);
  } else if (ActiveSection == 3) {
    dir1.Refresh();
    File1.Refresh();
  } else if (ActiveSection == 5) {
    // No floppy drive is the usual case: every step here may fail.
    file_system().DeleteFile(app_path() + "\\killa.exe");  // result not looked at
    ignore_errors([&] { Dir2.Path("a:\\"); });
    ignore_errors([&] { Dir2.Refresh(); });
    ignore_errors([&] { File2.Refresh(); });
  } else if (ActiveSection == 6) {
    Dir3.Refresh();
    File3.Refresh();
  }
}

}  // namespace wh
