#pragma once
// Routines that the start sequence and the sections call and that belong to
// parts of the program still to come. Each is an empty function with its
// final name, so that the callers stand whole and each part plugs into its
// place. The form's own blocks of this kind are the members of Mainu that
// later.cpp defines.
#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

namespace wh {

void tray_add();                                 // notification area
void tray_remove();
void changelanguage(int language);               // texts of both languages
void uninstall_dropped(const std::string& path);  // uninstaller of a dropped item

// The two Explorer verbs under HKEY_CLASSES_ROOT. True when the file verb is
// complete (register) or all four keys went (unregister).
bool register_context_menu();
bool unregister_context_menu();

// Task manager (section 2): the window list and the process snapshot.
class clsApplicazioni {
public:
  // Rebuilds the table of visible windows other than `own`, and List3 when
  // `fill_list` is true.
  void RefreshTaskList(HWND own, bool fill_list);
};

class clsActiveProcess {
public:
  // Process number at a position of the last snapshot (from 1).
  uint32_t th32ProcessID(int position) const;
};

// Made by the ordinary start; a start with paths has none.
extern std::unique_ptr<clsApplicazioni> task_list;
extern std::unique_ptr<clsActiveProcess> active_process;

}  // namespace wh
