#pragma once
// The duplicate finder without its controls: the masks, the table of found
// files, the quick sort, the walk over runs of equal keys and the sampled
// comparison. The page feeds the table from its walkers and shows the lines.
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "filetools/quick_sort.h"

namespace wh {

// One file found; `size` only in same-content mode. `key` is what same-name
// mode compares: the upper-cased file name without its folder.
struct FoundFile {
  std::string path;
  double size = 0;
  std::string key;
};

// Numbered from 1: element 0 is never used.
using FoundTable = std::vector<FoundFile>;

// The five mask groups: 0 audio, 1 video, 2 documents, 3 graphics, 4 other.
extern const std::array<const char*, 4> kMaskGroups;

// The mask text of a scan: with `other` on, each of its entries and a
// semicolon; else the texts of the marked groups glued in index order.
// Video and documents have no closing semicolon, so together they make
// "*.mov*.doc", which matches neither: kept as the program always had it.
std::string mask_text(const std::array<bool, 5>& markers, const std::vector<std::string>& other);
// What the hidden file list gets: the text without its last character.
std::string mask_pattern(const std::string& text);

// The two-pointer quick sort with its direction flag, descending: the
// largest size, or the last name, first. Ties land where this very
// algorithm puts them, which decides the order of a group's lines.
void sort_by_size(int16_t low, int16_t high, FoundTable& table);
void sort_by_name(int16_t low, int16_t high, FoundTable& table);

// The upper-cased name part of a path, as same-name mode compares it.
std::string name_key(const std::string& path);

// The first ":\" of a result line, one character back: its path.
std::string line_path(const std::string& line);

// What a scan reports: a result line with its item data (the file's length),
// and the total label's text.
struct DupSink {
  std::function<void(const std::string& line, long item)> line;
  std::function<void(const std::string& text)> total;
  // The length of a file by its path, for same-name mode's item data.
  std::function<double(const std::string& path)> length;
};

class DupRuns {
public:
  DupRuns(FoundTable& table, bool by_content, double& totalwaist, bool english, DupSink sink)
      : table_(table), by_content_(by_content), totalwaist_(totalwaist), english_(english),
        sink_(std::move(sink)) {}

  // Adds the end mark (size 66666, or path "66666") and walks the runs of
  // equal records. The walk tests its index before each run, so the last
  // pair of the table is never looked at. A last real record equal to the
  // mark runs past the table: 9 (subscript out of range).
  void walk();
  // Same-content mode: the run's files compared by two 256-byte samples at
  // 10% and 90% of their length, every file with the run's first only. A
  // file that cannot be opened or read (under 10 bytes the sample position
  // is 0) ends the run silently with what was already listed.
  void compare_group(int first, int last);
  int16_t group() const { return group_; }

private:
  bool same(int a, int b) const;
  const FoundFile& at(int i) const;
  void names_run(int first, int last);
  void add_line(const std::string& path, double size);

  FoundTable& table_;
  bool by_content_;
  double& totalwaist_;
  bool english_;
  DupSink sink_;
  int16_t group_ = 0;
};

// The two samples of a file: 256 bytes from the 1-based positions
// int(size * 0.1) and int(size * 0.9), zero-filled past the end. 63 (bad
// record number) for position 0; the open's error when it fails.
struct Samples {
  std::array<unsigned char, 256> first{};
  std::array<unsigned char, 256> last{};
};
int read_samples(const std::string& path, double size, Samples& out);

}  // namespace wh
