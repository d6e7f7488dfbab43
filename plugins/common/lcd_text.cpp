// The texts of the pack's descriptions, shaped for the program's LCD panel.
#include <cstdio>
#include <string>
#include <vector>

#include "common/plugin.h"

namespace pack {

std::wstring lcd_lines(const std::wstring& title, const std::vector<std::wstring>& names,
                       const std::wstring& footer, size_t name_lines) {
  std::vector<std::wstring> lines{title};
  std::wstring line;
  size_t used = 0;
  for (const std::wstring& name : names) {
    if (line.empty()) {
      line = name;
    } else if (line.size() + 2 + name.size() <= lcd_width) {
      line += L", " + name;
    } else {
      lines.push_back(line);
      line = name;
      if (++used == name_lines) break;
    }
  }
  if (!line.empty() && used < name_lines) lines.push_back(line);
  if (!footer.empty()) lines.push_back(footer);
  std::wstring text;
  for (const std::wstring& each : lines) text += (text.empty() ? L"" : L"|") + each;
  return text;
}

namespace {
std::wstring size_text(unsigned long long bytes) {
  wchar_t text[32];
  if (bytes < 1024ull * 1024)
    swprintf(text, 32, L"%llu KB", (bytes + 1023) / 1024);
  else if (bytes < 1024ull * 1024 * 1024)
    swprintf(text, 32, L"%.1f MB", bytes / 1048576.0);
  else
    swprintf(text, 32, L"%.1f GB", bytes / 1073741824.0);
  return text;
}
}  // namespace

std::wstring count_line(unsigned long long count, const wchar_t* one, const wchar_t* many,
                        unsigned long long bytes) {
  std::wstring line = std::to_wstring(count) + L" " + (count == 1 ? one : many);
  if (bytes >= 1024) {
    const std::wstring sized = line + L", " + size_text(bytes);
    if (sized.size() <= lcd_width) line = sized;
  }
  return line;
}

std::wstring files_line(unsigned long long files, unsigned long long bytes, Language language) {
  return language == Language::english ? count_line(files, L"file", L"files", bytes)
                                       : count_line(files, L"fisier", L"fisiere", bytes);
}

}  // namespace pack
