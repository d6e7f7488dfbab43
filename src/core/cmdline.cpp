#include "core/cmdline.h"

#include "platform/rt_error.h"

namespace wh {

StartWords start_words(std::string_view tail) {
  StartWords w;
  if (tail.find("start") != std::string_view::npos) {
    w.restart = true;
    w.tray = tail.find('X') != std::string_view::npos;
  }
  return w;
}

bool analyze_text(std::string_view text, const std::function<PathKind(const std::string&)>& kind,
                  std::vector<std::string>& paths, uint8_t& count) {
  paths.clear();
  size_t open = text.find('"');
  if (open == std::string_view::npos) {
    paths.assign(2, std::string());
    std::string whole(text);
    PathKind k = kind(whole);
    if (k != PathKind::none) paths[1] = whole;
    return k == PathKind::folder;
  }
  bool folder = false;
  paths.resize(1);
  while (open != std::string_view::npos) {
    size_t close = text.find('"', open + 1);
    // An unclosed quote asks for a negative length: the error goes up.
    if (close == std::string_view::npos) raise(rt_invalid_call);
    std::string part(text.substr(open + 1, close - open - 1));
    PathKind k = kind(part);
    if (k != PathKind::none) {
      ++count;
      // ReDim Preserve to the counter: a wrapped counter shrinks the array.
      paths.resize(static_cast<size_t>(count) + 1);
      paths[count] = part;
      if (k == PathKind::folder) folder = true;
    }
    open = text.find('"', close + 1);
  }
  return folder;
}

}  // namespace wh
