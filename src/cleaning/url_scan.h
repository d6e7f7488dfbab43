#pragma once
// The trace viewer's address finder: a byte stream in, tidied addresses out.
// The files it reads (index.dat, Opera's and Firefox's history) have no
// layout it knows: an address is a run of bytes that starts behind a scheme
// word and ends at a terminator byte. No system calls here: the file
// reading sits on top (cleaning/viewer.h), and the stream can arrive in
// pieces of any size with the same result as one byte at a time.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wh {

// What the three scanners carry from byte to byte, and from one file to the
// next: nothing resets it between files.
struct UrlScanState {
  // The bytes seen since the last clear. It is emptied at every 30th byte
  // counted by window_length, so a scheme word that straddles such a point
  // is not seen, and when an address ends (window_length goes on).
  std::string window;
  uint8_t window_length = 0;
  bool capturing = false;
  std::string url;
};

// Which scanner: they differ in the terminator bytes and the tidying.
enum class UrlScanner {
  index_file,       // blank and byte 0; clean_url_text
  opera_file,       // bytes 10 and 4; clean_url_text2
  firefox_history,  // ")"; clean_url_text
};

// Feeds the next bytes of a stream; each address that ends in them is
// tidied and appended to `lines`. An address still open at the end of the
// bytes stays in `state.url`, waiting for more.
void url_scan_feed(UrlScanState& state, UrlScanner scanner, std::string_view bytes,
                   std::vector<std::string>& lines);

// A leading "/" drops three characters (the "///" behind "file:"), every
// "%20" becomes a blank, a trailing "/" goes.
std::string clean_url_text(std::string text);
// The same, but a leading "/" drops two characters.
std::string clean_url_text2(std::string text);

}  // namespace wh
