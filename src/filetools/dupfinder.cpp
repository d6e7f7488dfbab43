#include "filetools/dupfinder.h"

#include <cmath>
#include <utility>

#include "filetools/quick_sort.h"

#include "core/routines.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"

namespace wh {

const std::array<const char*, 4> kMaskGroups = {
    "*.mp3;*.wav;*.wma;*.ogg;*.mid;",
    "*.mpg;*.wmv;*.avi;*.divx;*.mov",
    "*.doc;*.xls;*.sxw;*.sxc;*.ppt;*.pdf",
    "*.jpg;*.bmp;*.gif;*.psd;*.ppt;*.tif",
};

std::string mask_text(const std::array<bool, 5>& markers, const std::vector<std::string>& other) {
  std::string text;
  if (markers[4]) {
    for (const auto& mask : other) text += mask + ";";
    return text;
  }
  for (size_t i = 0; i < kMaskGroups.size(); ++i)
    if (markers[i]) text += kMaskGroups[i];
  return text;
}

std::string mask_pattern(const std::string& text) {
  return text.empty() ? text : std::string(utf8::left(text, utf8::length(text) - 1));
}

namespace {
int16_t add16(int16_t a, int b) { return index16(static_cast<double>(a) + b); }
}  // namespace

void sort_by_size(int16_t low, int16_t high, FoundTable& table) {
  quick_sort(low, high, table, [](const FoundFile& x, const FoundFile& y) { return x.size < y.size; });
}

void sort_by_name(int16_t low, int16_t high, FoundTable& table) {
  quick_sort(low, high, table, [](const FoundFile& x, const FoundFile& y) { return x.key < y.key; });
}

std::string name_key(const std::string& path) {
  const size_t slash = path.find_last_of('\\');
  return ucase(slash == std::string::npos ? path : path.substr(slash + 1));
}

std::string line_path(const std::string& line) {
  const size_t at = line.find(":\\");
  if (at == std::string::npos || at == 0) raise(rt_invalid_call);
  return line.substr(at - 1);
}

int read_samples(const std::string& path, double size, Samples& out) {
  out = Samples{};
  BinaryFile f;
  if (int e = f.open_read(path)) return e;
  const double first = std::floor(size * 0.1), last = std::floor(size * 0.9);
  if (first < 1 || last < 1) return rt_bad_record_number;
  DWORD got = 0;
  // Record reads: what lies past the end stays zero.
  if (int e = f.read_at(static_cast<int64_t>(first) - 1, out.first.data(), 256, got)) return e;
  if (int e = f.read_at(static_cast<int64_t>(last) - 1, out.last.data(), 256, got)) return e;
  return rt_ok;
}

const FoundFile& DupRuns::at(int i) const {
  if (i < 1 || i >= static_cast<int>(table_.size())) raise(rt_subscript);
  return table_[static_cast<size_t>(i)];
}

bool DupRuns::same(int a, int b) const {
  return by_content_ ? at(a).size == at(b).size : at(a).key == at(b).key;
}

void DupRuns::walk() {
  FoundFile mark;
  if (by_content_) {
    mark.size = 66666;
  } else {
    mark.path = "66666";
    mark.key = "66666";
  }
  table_.push_back(std::move(mark));
  const double counter = static_cast<double>(table_.size() - 1);
  int i = 2, first = 1, run = 0;
  while (i < counter - 1) {
    while (same(i, i - 1)) {
      ++run;
      ++i;
    }
    if (run > 0) {
      if (by_content_)
        compare_group(first, i - 1);
      else
        names_run(first, i - 1);
    }
    first = i;
    run = 0;
    ++i;
  }
}

void DupRuns::add_line(const std::string& path, double size) {
  sink_.line(std::to_string(group_) + " " + path, static_cast<long>(size));
}

void DupRuns::names_run(int first, int last) {
  group_ = add16(group_, 1);
  double length = 0;
  for (int k = first; k <= last; ++k) {
    length = sink_.length ? sink_.length(at(k).path) : 0;
    add_line(at(k).path, length);
  }
  totalwaist_ += (last - first) * length;
  sink_.total((english_ ? " Total waisted : " : "Total pierdut :") + spatiuu(totalwaist_));
}

void DupRuns::compare_group(int first, int last) {
  struct SampledFile {
    std::string path;
    double size;
    Samples samples;
    bool checked = false;
  };
  // A file that fails to open or read ends the run here, quietly.
  ignore_errors([&] {
    std::vector<SampledFile> run;
    for (int k = first; k <= last; ++k) {
      SampledFile s{at(k).path, at(k).size, {}};
      // A drive root's files were stored with a doubled backslash.
      if (s.path.find("\\\\") != std::string::npos) s.path = s.path.substr(0, 2) + s.path.substr(3);
      check(read_samples(s.path, s.size, s.samples));
      run.push_back(std::move(s));
    }
    for (size_t a = 0; a < run.size(); ++a) {
      if (run[a].checked) continue;
      group_ = add16(group_, 1);
      int count = 0;
      for (size_t b = a + 1; b < run.size(); ++b) {
        if (run[b].checked) continue;
        run[b].checked = true;  // compared once, whatever comes of it
        if (run[a].samples.first != run[b].samples.first ||
            run[a].samples.last != run[b].samples.last)
          continue;
        if (++count == 1) add_line(run[a].path, run[a].size);
        add_line(run[b].path, run[b].size);
      }
      if (count == 0) {
        group_ = add16(group_, -1);
      } else {
        totalwaist_ += count * run[a].size;
        sink_.total((english_ ? " Total waisted:" : " Total pierdut :") + spatiuu(totalwaist_));
      }
    }
  });
}

}  // namespace wh
