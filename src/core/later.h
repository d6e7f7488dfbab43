#pragma once
// Routines that the start sequence calls and that belong to parts of the
// program still to come. Each is an empty function with its final name, so
// that the sequence stands whole and each part plugs into its step.
#include <string>

namespace wh {

void tray_add();                                 // notification area
void tray_remove();
void changelanguage(int language);               // texts of both languages
void uninstall_dropped(const std::string& path);  // uninstaller of a dropped item

}  // namespace wh
