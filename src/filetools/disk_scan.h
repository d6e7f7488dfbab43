#pragma once
// The disk explorer without its controls: the sized entries of a folder,
// the cache of root listings, and the text of a line and back.
#include <string>
#include <vector>

#include "filetools/quick_sort.h"

namespace wh {

struct SizedEntry {
  std::string name;
  double size = 0;
};
using SizedTable = std::vector<SizedEntry>;

// Largest first, by the program's quick sort.
void sort_by_size(SizedTable& table);

// Item data of a folder's line: 1 below 200 MiB, 0 from there on (those
// show the wait panel when walked into).
constexpr double kBigFolder = 209715200;

// "name (size text)"; `size_text` is spatiuu's.
std::string entry_line(const std::string& name, const std::string& size_text);
// The name of a line: the text before its last " (".
std::string line_name(const std::string& line);
// The name for a deletion: before the last "(", trimmed.
std::string line_name_for_delete(const std::string& line);

// The root listings by drive letter, oldest first; at most 17.
class RootCache {
public:
  static constexpr int kMax = 17;
  struct Entry {
    char letter;
    SizedTable folders;
  };
  // A new letter goes at the end, dropping the oldest when full; a letter
  // held already gets its listing replaced in place.
  void store(char letter, const SizedTable& folders);
  // True when the upper-case first letter of `path` is one of the first
  // `count` entries' letters.
  bool driveexists(const std::string& path, int count) const;
  SizedTable* find(char letter);
  int count() const { return static_cast<int>(entries_.size()); }
  const std::vector<Entry>& entries() const { return entries_; }

private:
  std::vector<Entry> entries_;
};

}  // namespace wh
