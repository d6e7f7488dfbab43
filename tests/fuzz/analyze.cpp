// The command tail: the start words and the paths of analyze. The first
// byte is the path counter that earlier calls left; names ending in "\" are
// folders, other names with a "." are files, the rest name nothing.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/cmdline.h"
#include "fuzz_check.h"
#include "platform/rt_error.h"

using namespace wh;

namespace {
PathKind kind_of(const std::string& name) {
  if (name.empty()) return PathKind::none;
  if (name.back() == '\\') return PathKind::folder;
  return name.find('.') != std::string::npos ? PathKind::file : PathKind::none;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  (void)start_words(text);

  const uint8_t before = data[0];
  uint8_t count = before;
  std::vector<std::string> paths{"left", "from", "before"};
  const size_t quotes = static_cast<size_t>(std::count(text.begin(), text.end(), '"'));
  size_t accepted = 0;
  bool any_folder = false;
  auto kind = [&](const std::string& name) {
    const PathKind k = kind_of(name);
    accepted += k != PathKind::none;
    any_folder = any_folder || k == PathKind::folder;
    return k;
  };
  bool folder = false;
  try {
    folder = analyze_text(text, kind, paths, count);
  } catch (const RuntimeError& e) {
    // Only an unclosed quote raises.
    FUZZ_EXPECT(e.number() == rt_invalid_call);
    FUZZ_EXPECT(quotes % 2 == 1);
    return 0;
  }
  FUZZ_EXPECT(folder == any_folder);
  if (quotes == 0) {
    FUZZ_EXPECT(count == before);
    FUZZ_EXPECT(paths.size() == 2 && paths[0].empty());
    FUZZ_EXPECT(accepted ? paths[1] == text : paths[1].empty());
    return 0;
  }
  FUZZ_EXPECT(quotes % 2 == 0);
  // The counter is a byte: 256 accepted paths bring it back where it was.
  FUZZ_EXPECT(count == static_cast<uint8_t>(before + accepted));
  if (accepted == 0) {
    FUZZ_EXPECT(paths.size() == 1);
  } else {
    FUZZ_EXPECT(paths.size() == size_t{count} + 1);
    FUZZ_EXPECT(kind_of(paths[count]) != PathKind::none);
  }
  return 0;
}
