// The trace viewer's address finder. Byte 0 picks the scanner, byte 1 the
// size of the pieces; the rest is the stream. Fed in those pieces it must
// give exactly what it gives fed one byte at a time (the file reader leans
// on that), lines and carried state alike. The two tidying routines run on
// the stream and on every line: a "%20" never survives them.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cleaning/url_scan.h"
#include "fuzz_check.h"

using namespace wh;

namespace {
bool same(const UrlScanState& a, const UrlScanState& b) {
  return a.window == b.window && a.window_length == b.window_length &&
         a.capturing == b.capturing && a.url == b.url;
}

void tidy(const std::string& text) {
  FUZZ_EXPECT(clean_url_text(text).find("%20") == std::string::npos);
  FUZZ_EXPECT(clean_url_text2(text).find("%20") == std::string::npos);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  const auto scanner = static_cast<UrlScanner>(data[0] % 3);
  const size_t piece = data[1] + 1u;
  const std::string_view bytes(reinterpret_cast<const char*>(data + 2), size - 2);

  UrlScanState by_byte, by_piece;
  std::vector<std::string> lines_by_byte, lines_by_piece;
  for (size_t i = 0; i < bytes.size(); ++i)
    url_scan_feed(by_byte, scanner, bytes.substr(i, 1), lines_by_byte);
  for (size_t i = 0; i < bytes.size(); i += piece)
    url_scan_feed(by_piece, scanner, bytes.substr(i, piece), lines_by_piece);
  FUZZ_EXPECT(lines_by_byte == lines_by_piece);
  FUZZ_EXPECT(same(by_byte, by_piece));

  // The state carries on into the next file: one more piece after it.
  url_scan_feed(by_byte, scanner, " http:x ", lines_by_byte);
  url_scan_feed(by_piece, scanner, " http:x ", lines_by_piece);
  FUZZ_EXPECT(lines_by_byte == lines_by_piece);

  tidy(std::string(bytes));
  for (const std::string& line : lines_by_piece) FUZZ_EXPECT(line.find("%20") == std::string::npos);
  return 0;
}
