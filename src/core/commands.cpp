#include "core/commands.h"

#include "core/text.h"
#include "platform/fso.h"
#include "platform/utf8.h"

namespace wh {

namespace {
// 1-based position of `what` at or after `from` (1-based); 0 when absent.
size_t instr(const std::string& s, const std::string& what, size_t from = 1) {
  if (from == 0 || from > s.size()) return 0;
  size_t p = s.find(what, from - 1);
  return p == std::string::npos ? 0 : p + 1;
}
// The same counted in characters.
size_t char_instr(const std::string& s, const std::string& what) {
  return utf8::char_position(s, instr(s, what));
}
}  // namespace

std::string command_to_path(std::string s) {
  if (!s.empty() && s.back() == '"') s.pop_back();
  if (s.empty()) return {};
  s = trim(s);

  // The last drive-like colon wins: a launcher named ahead of the real path
  // drops out. Without one the first ":\" stands.
  const size_t q = instr(s, ":\\");
  size_t colon = q;
  for (size_t next = instr(s, ":", colon + 1); next != 0; next = instr(s, ":", colon + 1))
    colon = next;
  if (colon == 0 || colon >= s.size() || s[colon] != '\\') colon = q;
  if (colon < 2) return {};  // no ":\", or nothing ahead of it for a drive letter
  // From the character ahead of the colon (the drive letter).
  s = std::string(utf8::mid(s, utf8::char_position(s, colon) - 1));

  // An uninstaller in its own folder: its parent is the program's folder.
  // The positions are added up as they come, even when several are found;
  // they count characters, and so does the cut.
  const std::string u = ucase(s);
  const size_t k = char_instr(u, "\\UNINS") + char_instr(u, "\\SHARED~1") +
                   char_instr(u, "\\SETUP\\1033");
  if (k != 0) {
    s = std::string(utf8::left(s, k - 1));
    if (s.empty() || s.back() != '\\') s += "\\cucu.exe";
    s = trim(s);
    FileSystemObject& fso = file_system();
    if (fso.FolderExists(fso.GetParentFolderName(s))) return trim(s);
  }

  // Arguments: the OR of the two positions, not the smaller of them.
  const size_t cut = char_instr(s, " -") | char_instr(s, "/");
  if (cut != 0) s = std::string(utf8::left(s, cut - 1));
  return trim(s);
}

}  // namespace wh
