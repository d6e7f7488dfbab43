// The ini record reader and the start-up items read from its records, on
// any bytes as a win.ini, system.ini and wininit.ini at once.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz_check.h"
#include "system/startup_ini.h"

using namespace wh;

namespace {
bool plain(std::string_view r) {
  if (r.find_first_of(",\"") != std::string_view::npos) return false;
  auto blank = [](char c) { return c == ' ' || c == '\t'; };
  return r.empty() || (!blank(r.front()) && !blank(r.back()));
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const Records records = read_records(text);

  bool all_plain = true;
  std::vector<std::string> copies;
  for (std::string_view r : records) {
    // Views into the text, never across a line end.
    FUZZ_EXPECT(r.empty() || (r.data() >= text.data() && r.data() + r.size() <= text.data() + size));
    FUZZ_EXPECT(r.find_first_of("\r\n") == std::string_view::npos);
    all_plain = all_plain && plain(r);
    copies.emplace_back(r);
  }
  // The removal writes the records back and the next scan reads them
  // again: records that need no quoting come back the same.
  if (all_plain) {
    const std::string written = write_records(copies);
    const Records again = read_records(written);
    FUZZ_EXPECT(again.size() == records.size());
    for (size_t i = 0; i < again.size() && i < records.size(); ++i)
      FUZZ_EXPECT(again[i] == records[i]);
  }

  IniStartup ini;
  read_win_ini(records, ini);
  read_system_ini(records, ini);
  read_wininit_ini(records, ini);
  FUZZ_EXPECT(ini.nul_items.empty() || ini.nul_items.back().empty());
  (void)ini_rows(ini);
  // The first, a middle, the last and no item at all taken out (every one
  // would make long lines quadratic).
  for (const auto* items : {&ini.load_items, &ini.run_items}) {
    const size_t n = items->size();
    for (size_t j : {size_t{0}, n / 2, n ? n - 1 : 0, n}) {
      (void)load_line_without(*items, j);
      (void)run_line_without(*items, j);
    }
  }
  return 0;
}
