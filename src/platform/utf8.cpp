#include "platform/utf8.h"

namespace wh::utf8 {

namespace {
// The well-formed sequences (Unicode, table 3-7): the lead byte decides the
// length and the allowed range of the second byte; later bytes are 80..BF.
struct Lead {
  unsigned char size, low, high;
};
Lead lead_of(unsigned char c) {
  if (c < 0x80) return {1, 0, 0};
  if (c >= 0xC2 && c <= 0xDF) return {2, 0x80, 0xBF};
  if (c == 0xE0) return {3, 0xA0, 0xBF};
  if (c == 0xED) return {3, 0x80, 0x9F};  // no surrogates
  if (c >= 0xE1 && c <= 0xEF) return {3, 0x80, 0xBF};
  if (c == 0xF0) return {4, 0x90, 0xBF};
  if (c >= 0xF1 && c <= 0xF3) return {4, 0x80, 0xBF};
  if (c == 0xF4) return {4, 0x80, 0x8F};  // up to U+10FFFF
  return {0, 0, 0};                       // 80..C1, F5..FF: no lead
}
}  // namespace

std::size_t char_size(std::string_view s, std::size_t at) {
  if (at >= s.size()) return 0;
  const Lead l = lead_of(static_cast<unsigned char>(s[at]));
  if (l.size <= 1) return 1;
  if (s.size() - at < l.size) return 1;
  const auto second = static_cast<unsigned char>(s[at + 1]);
  if (second < l.low || second > l.high) return 1;
  for (std::size_t k = 2; k < l.size; ++k)
    if (!is_continuation(static_cast<unsigned char>(s[at + k]))) return 1;
  return l.size;
}

char32_t code_point(std::string_view s, std::size_t at) {
  const std::size_t n = char_size(s, at);
  if (n == 0) return 0;
  const auto c = static_cast<unsigned char>(s[at]);
  if (n == 1) return c < 0x80 ? c : replacement;
  char32_t cp = c & (0x7F >> n);
  for (std::size_t k = 1; k < n; ++k) cp = (cp << 6) | (static_cast<unsigned char>(s[at + k]) & 0x3F);
  return cp;
}

std::string encode(char32_t cp) {
  std::string out;
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    if (cp >= 0xD800 && cp <= 0xDFFF) return out;
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp <= 0x10FFFF) {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
  return out;
}

std::size_t length(std::string_view s) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < s.size(); at += char_size(s, at)) ++count;
  return count;
}

std::size_t offset(std::string_view s, std::size_t chars) {
  std::size_t at = 0;
  for (; chars > 0 && at < s.size(); --chars) at += char_size(s, at);
  return at;
}

std::string_view left(std::string_view s, std::size_t n) { return s.substr(0, offset(s, n)); }

std::string_view right(std::string_view s, std::size_t n) {
  const std::size_t total = length(s);
  return n >= total ? s : s.substr(offset(s, total - n));
}

std::string_view mid(std::string_view s, std::size_t start, std::size_t n) {
  if (start == 0) start = 1;
  const std::size_t from = offset(s, start - 1);
  if (from >= s.size()) return {};
  return left(s.substr(from), n);
}

std::size_t char_position(std::string_view s, std::size_t byte_position) {
  if (byte_position == 0) return 0;
  return length(s.substr(0, byte_position - 1)) + 1;
}

std::string pad_right(std::string_view s, std::size_t n) {
  std::string out(s);
  const std::size_t have = length(s);
  if (have < n) out.append(n - have, ' ');
  return out;
}

}  // namespace wh::utf8
