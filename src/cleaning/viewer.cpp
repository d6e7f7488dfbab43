#include "cleaning/viewer.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "cleaning/traces.h"
#include "core/routines.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/registry.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"
#include "ui/list_box.h"

namespace wh {

UrlScanState url_scan_state;

namespace {

const std::string explorer_key = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";

// The file in big pieces: the finder gives the same lines as byte by byte.
void scan_into(const std::string& path, UrlScanner scanner, std::vector<std::string>& lines) {
  BinaryFile file;
  // A binary open makes a missing file, and settles for reading when the
  // file can't be written.
  if (file.open_binary(path) != rt_ok && file.open_read(path) != rt_ok) return;
  static std::vector<char> buffer(1 << 20);
  std::int64_t offset = 0;
  for (;;) {
    DWORD got = 0;
    if (file.read_at(offset, buffer.data(), static_cast<DWORD>(buffer.size()), got) != rt_ok ||
        got == 0)
      break;
    url_scan_feed(url_scan_state, scanner, std::string_view(buffer.data(), got), lines);
    offset += got;
  }
}

void scan_to_list(ListBox& junk_files, const std::string& path, UrlScanner scanner) {
  const std::vector<std::string> lines = scan_url_file(path, scanner);
  ListBox::Batch batch(junk_files);
  for (const std::string& line : lines) list_add_wide(junk_files, line);
}

// The values named by the letters of a key's MRUList, in its order.
std::vector<std::string> mru_values(const std::string& key) {
  std::vector<std::string> values;
  for (char letter : reg_get_value(HKEY_CURRENT_USER, key, "MRUList"))
    values.push_back(reg_get_value(HKEY_CURRENT_USER, key, std::string(1, letter)));
  return values;
}

}  // namespace

std::vector<std::string> scan_url_file(const std::string& path, UrlScanner scanner) {
  std::vector<std::string> lines;
  scan_into(path, scanner, lines);
  return lines;
}

void scan_index_file(ListBox& junk_files, const std::string& path) {
  scan_to_list(junk_files, path, UrlScanner::index_file);
}

void scan_opera_file(ListBox& junk_files, const std::string& path) {
  scan_to_list(junk_files, path, UrlScanner::opera_file);
}

void scan_firefox_history(ListBox& junk_files, const std::string& path) {
  scan_to_list(junk_files, path, UrlScanner::firefox_history);
}

void scan_index_tree(ListBox& junk_files, const std::string& folder, int passes) {
  std::vector<File> files;
  std::vector<Folder> folders;
  Folder(folder).Entries(files, folders);
  for (const File& f : files)
    if (ucase(f.Name) == "INDEX.DAT") scan_index_file(junk_files, folder + "\\" + f.Name);
  for (const Folder& sub : folders) scan_index_tree(junk_files, sub.Path(), passes);
}

std::vector<std::string> run_history_lines() {
  std::vector<std::string> lines;
  // Each value ends in "\1"; a shorter one fails the cut and gives no line.
  for (const std::string& text : mru_values(explorer_key + "RunMRU"))
    if (utf8::length(text) >= 2) lines.emplace_back(utf8::left(text, utf8::length(text) - 2));
  return lines;
}

std::vector<std::string> search_history_lines() {
  std::vector<std::string> lines;
  if (!is_nt()) {
    for (const std::string& text : mru_values(explorer_key + "Doc Find Spec MRU"))
      if (!text.empty()) lines.push_back(text);
    return lines;
  }
  for (const std::string& sub : reg_enum_keys(HKEY_USERS, find_history_key)) {
    HKEY key = nullptr;
    reg_open_key(HKEY_USERS, find_history_key + "\\" + sub, key);
    for (DWORD index = 0;; ++index) {
      // Buffers of 255 blanks; they count characters, whatever their size
      // in UTF-8.
      std::string name(255, ' '), data(255, ' ');
      DWORD name_size = 255, data_size = 255;
      if (reg_enum_value_chars(key, index, name, name_size, data, data_size) ==
          ERROR_NO_MORE_ITEMS)
        break;
      // The data without its closing NUL; a longer size than the buffer
      // still takes the whole buffer.
      if (data_size > 0) lines.emplace_back(utf8::left(data, std::min<DWORD>(data_size - 1, 255)));
      // A full buffer ends the whole view, and the key stays open.
      if (data_size == 255) return lines;
    }
    reg_close_key(key);
  }
  return lines;
}

std::vector<std::string> typed_url_lines() {
  std::vector<std::string> lines;
  for (int n = 1; n <= 100; ++n) {
    lines.push_back(reg_get_value(HKEY_CURRENT_USER,
                                  "Software\\Microsoft\\Internet Explorer\\TypedURLs",
                                  "url" + std::to_string(n)));
    if (lines.back().empty()) break;
  }
  return lines;
}

}  // namespace wh
