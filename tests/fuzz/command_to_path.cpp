// command_to_path on any command line, and again on its own result as the
// service scan does; folders come from the stand-in's small tree.
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/commands.h"
#include "fuzz_check.h"

using namespace wh;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string line(reinterpret_cast<const char*>(data), size);
  const std::string path = command_to_path(line);
  if (line.find(":\\") == std::string::npos) FUZZ_EXPECT(path.empty());
  FUZZ_EXPECT(path.empty() || (path.front() != ' ' && path.back() != ' '));
  (void)command_to_path(path);
  return 0;
}
