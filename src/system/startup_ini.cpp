#include "system/startup_ini.h"

#include <array>

namespace wh {

namespace {
// The characters that end an unquoted record.
constexpr auto separator = [] {
  std::array<bool, 256> t{};
  t[','] = t['\r'] = t['\n'] = true;
  return t;
}();
}  // namespace

Records read_records(std::string_view text) {
  Records out;
  // Ini lines are short: one guess saves most regrowths on a big file.
  out.reserve(text.size() / 24 + 1);
  size_t i = 0;
  const size_t n = text.size();
  auto line_end = [&](size_t at) { return text[at] == '\r' || text[at] == '\n'; };
  auto skip_line_end = [&] {
    if (i < n && text[i] == '\r') ++i;
    if (i < n && text[i] == '\n') ++i;
  };
  while (i < n) {
    while (i < n && (text[i] == ' ' || text[i] == '\t')) ++i;
    std::string_view record;
    if (i < n && text[i] == '"') {
      size_t stop = i + 1;
      while (stop < n && text[stop] != '"' && !line_end(stop)) ++stop;
      record = text.substr(i + 1, stop - i - 1);
      i = stop;
      if (i < n && text[i] == '"') ++i;
      while (i < n && text[i] != ',' && !line_end(i)) ++i;  // lost behind the quote
    } else {
      const size_t start = i;
      while (i < n && !separator[static_cast<unsigned char>(text[i])]) ++i;
      record = text.substr(start, i - start);
      while (!record.empty() && (record.back() == ' ' || record.back() == '\t'))
        record.remove_suffix(1);
    }
    out.push_back(record);
    if (i >= n) break;
    if (text[i] == ',') {
      ++i;
      // A comma at a line end leaves one more, empty record behind it.
      if (i >= n) {
        out.emplace_back();
      } else if (line_end(i)) {
        out.emplace_back();
        skip_line_end();
      }
    } else {
      skip_line_end();
    }
  }
  return out;
}

std::string write_records(const std::vector<std::string>& records) {
  std::string out;
  for (const std::string& r : records) {
    out += r;
    out += "\r\n";
  }
  return out;
}

std::vector<std::string> split_items(const std::string& text) {
  std::vector<std::string> items;
  if (text.empty()) return items;
  size_t start = 0;
  for (;;) {
    size_t p = text.find(';', start);
    if (p == std::string::npos) {
      items.push_back(text.substr(start));
      return items;
    }
    items.push_back(text.substr(start, p - start));
    start = p + 1;
  }
}

namespace {
bool starts_with(std::string_view s, std::string_view head) {
  return s.substr(0, head.size()) == head;
}
}  // namespace

void read_win_ini(const Records& records, IniStartup& ini) {
  int16_t counter = 0;
  for (std::string_view r : records) {
    ++counter;
    if (starts_with(r, "load=")) {
      ini.load_items = split_items(std::string(r.substr(5)));
      ini.load_line = counter;
    }
    if (starts_with(r, "run=")) {
      ini.run_items = split_items(std::string(r.substr(4)));
      ini.run_line = counter;
    }
  }
}

void read_system_ini(const Records& records, IniStartup& ini) {
  static constexpr std::string_view shell = "shell=Explorer.exe";
  for (std::string_view r : records)
    if (starts_with(r, shell) && r.size() > shell.size()) ini.shell_tail = r.substr(shell.size());
}

void read_wininit_ini(const Records& records, IniStartup& ini) {
  std::string all;
  for (std::string_view r : records) {
    if (!starts_with(r, "NUL=")) continue;
    all += r.substr(4);
    all += ';';
  }
  ini.nul_items = split_items(all);
}

std::vector<std::string> ini_rows(const IniStartup& ini) {
  std::vector<std::string> rows(ini.load_items);
  rows.insert(rows.end(), ini.run_items.begin(), ini.run_items.end());
  if (!ini.shell_tail.empty()) rows.push_back(ini.shell_tail);
  for (const std::string& item : ini.nul_items)
    if (!item.empty()) rows.push_back(item);
  return rows;
}

std::string load_line_without(const std::vector<std::string>& items, size_t j) {
  std::string line = "load=";
  const bool two = items.size() == 2;  // upper bound 1
  for (size_t i = 0; i < items.size(); ++i) {
    if (i == j) continue;
    line += items[i];
    if (!two) line += ";";
  }
  return line;
}

std::string run_line_without(const std::vector<std::string>& items, size_t j) {
  std::string line = "run=";
  for (size_t i = 0; i < items.size(); ++i) {
    if (i == j) continue;
    line += items[i];
    if (i + 1 != items.size()) line += ";";
  }
  return line;
}

}  // namespace wh
