// CrashDumps: empties the folder where Windows keeps the dumps of programs
// that stopped working, %LOCALAPPDATA%\CrashDumps. The folder stays.
//
// The sample of docs/PLUGINS.md: a copy of the DLL under another name is
// another plug-in (the class name and class id come from the file's name).
#include <windows.h>
#include <shlobj.h>

#include "common/plugin.h"
#include "common/walk.h"

namespace pack {

namespace {
std::wstring dumps_folder() {
  const std::wstring local = known_folder(CSIDL_LOCAL_APPDATA);
  return local.empty() ? local : join(local, L"CrashDumps");
}
}  // namespace

std::wstring description(Language language) {
  const bool en = language == Language::english;
  const Tally found = tally(dumps_folder());
  if (found.files == 0) return en ? L"  No crash dumps" : L"  Nicio imagine de|  memorie (dump)";
  return (en ? L"    Crash dumps|" : L"  Imagini memorie|") +
         files_line(found.files, found.bytes, language) +
         (en ? L"|left by programs|that crashed" : L"|lasate de programe|care s-au blocat");
}

void run() {
  const std::wstring folder = dumps_folder();
  if (!folder.empty()) clear_tree(folder, true, Locked::skip);
}

}  // namespace pack
