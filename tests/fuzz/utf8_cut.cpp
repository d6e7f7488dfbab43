// The character routines that every count of the program goes through. The
// first two bytes are two counts, the rest is any text. A cut never splits
// a sequence, never grows, and the pieces put back give the text; upper and
// lower case keep every character's bytes where they were.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/text.h"
#include "fuzz_check.h"
#include "platform/utf8.h"

using namespace wh;

namespace {
// A cut that keeps whole characters ends where a character of s starts.
bool on_boundary(std::string_view s, std::size_t at) {
  std::size_t i = 0;
  while (i < at) i += utf8::char_size(s, i);
  return i == at;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  const std::size_t n = data[0], start = data[1];
  const std::string_view s(reinterpret_cast<const char*>(data) + 2, size - 2);

  const std::size_t total = utf8::length(s);
  FUZZ_EXPECT(total <= s.size());
  std::size_t walked = 0, count = 0;
  while (walked < s.size()) {
    const std::size_t k = utf8::char_size(s, walked);
    FUZZ_EXPECT(k >= 1 && k <= 4);
    // A sequence of more than one byte is well formed: a lead and its
    // continuation bytes, decoding to a code point above ASCII.
    if (k > 1) {
      const char32_t cp = utf8::code_point(s, walked);
      FUZZ_EXPECT(cp >= 0x80 && cp <= 0x10FFFF && !(cp >= 0xD800 && cp <= 0xDFFF));
      for (std::size_t j = 1; j < k; ++j)
        FUZZ_EXPECT(utf8::is_continuation(static_cast<unsigned char>(s[walked + j])));
    }
    walked += k;
    ++count;
  }
  FUZZ_EXPECT(walked == s.size() && count == total);

  const std::string_view l = utf8::left(s, n), r = utf8::right(s, total >= n ? total - n : 0);
  FUZZ_EXPECT(l.size() <= s.size() && utf8::length(l) == (n < total ? n : total));
  FUZZ_EXPECT(on_boundary(s, l.size()));
  FUZZ_EXPECT(std::string(l) + std::string(r) == s);
  // The characters of a piece are those of the text: cutting adds none.
  FUZZ_EXPECT(utf8::length(l) + utf8::length(r) == total);

  const std::string_view m = utf8::mid(s, start, n);
  FUZZ_EXPECT(m.size() <= s.size() && utf8::length(m) <= n);
  if (!m.empty()) {
    const std::size_t from = static_cast<std::size_t>(m.data() - s.data());
    FUZZ_EXPECT(on_boundary(s, from) && on_boundary(s, from + m.size()));
    FUZZ_EXPECT(utf8::char_position(s, from + 1) == (start == 0 ? 1 : start));
  }

  // Case keeps every byte position: what is found in the upper-cased text
  // is cut from the text itself.
  for (const std::string& cased : {ucase(s), lcase(s)}) {
    FUZZ_EXPECT(cased.size() == s.size());
    for (std::size_t at = 0; at < s.size(); at += utf8::char_size(s, at))
      FUZZ_EXPECT(utf8::char_size(cased, at) == utf8::char_size(s, at));
  }

  const std::string padded = utf8::pad_right(s, n);
  FUZZ_EXPECT(padded.compare(0, s.size(), s) == 0);
  FUZZ_EXPECT(utf8::length(padded) == (total > n ? total : n));
  return 0;
}
