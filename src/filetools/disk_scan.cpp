#include "filetools/disk_scan.h"

#include "core/text.h"

namespace wh {

namespace {
char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
}  // namespace

void sort_by_size(SizedTable& table) {
  if (table.empty()) return;
  quick_sort(0, index16(static_cast<double>(table.size()) - 1), table,
             [](const SizedEntry& a, const SizedEntry& b) { return a.size < b.size; });
}

std::string entry_line(const std::string& name, const std::string& size_text) {
  return name + " (" + size_text + ")";
}

std::string line_name(const std::string& line) {
  const size_t at = line.rfind(" (");
  return at == std::string::npos ? line : line.substr(0, at);
}

std::string line_name_for_delete(const std::string& line) {
  const size_t at = line.rfind('(');
  return trim(at == std::string::npos ? line : line.substr(0, at));
}

void RootCache::store(char letter, const SizedTable& folders) {
  letter = upper(letter);
  for (auto& e : entries_)
    if (e.letter == letter) {
      e.folders = folders;
      return;
    }
  if (static_cast<int>(entries_.size()) == kMax) entries_.erase(entries_.begin());
  entries_.push_back(Entry{letter, folders});
}

bool RootCache::driveexists(const std::string& path, int count) const {
  if (path.empty()) return false;
  const char letter = upper(path[0]);
  for (int i = 0; i < count && i < static_cast<int>(entries_.size()); ++i)
    if (entries_[i].letter == letter) return true;
  return false;
}

SizedTable* RootCache::find(char letter) {
  letter = upper(letter);
  for (auto& e : entries_)
    if (e.letter == letter) return &e.folders;
  return nullptr;
}

}  // namespace wh
