#pragma once
// The command tail: the program's own words and the paths Explorer hands over.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace wh {

enum class PathKind { none, file, folder };

// What the start words ask for: "start" anywhere (case-sensitive) is a
// restart; with it, "X" anywhere sends the program to the tray.
struct StartWords {
  bool restart = false;
  bool tray = false;  // emini = "X"
};
StartWords start_words(std::string_view tail);

// Fills `paths` (index 0 unused, so the paths stand from 1) from the text.
// Without any double quote the whole text is one path at index 1 (empty when
// it names nothing). Otherwise every quoted part that names a file or
// folder is appended at ++count, the byte counter that is never reset.
// True when an accepted path is a folder.
bool analyze_text(std::string_view text, const std::function<PathKind(const std::string&)>& kind,
                  std::vector<std::string>& paths, uint8_t& count);

}  // namespace wh
