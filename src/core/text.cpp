#include "core/text.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "platform/utf8.h"

namespace wh {

namespace {
size_t number_prefix(std::string_view t, size_t i) {
  size_t start = i;
  if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
  size_t digits = 0;
  while (i < t.size() && std::isdigit(static_cast<unsigned char>(t[i]))) ++i, ++digits;
  if (i < t.size() && t[i] == '.') {
    ++i;
    while (i < t.size() && std::isdigit(static_cast<unsigned char>(t[i]))) ++i, ++digits;
  }
  if (digits == 0) return start;
  if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
    size_t e = i + 1;
    if (e < t.size() && (t[e] == '+' || t[e] == '-')) ++e;
    size_t exp_digits = 0;
    while (e < t.size() && std::isdigit(static_cast<unsigned char>(t[e]))) ++e, ++exp_digits;
    if (exp_digits) i = e;
  }
  return i;
}

size_t skip_blanks(std::string_view t, size_t i) {
  while (i < t.size() && (t[i] == ' ' || t[i] == '\t')) ++i;
  return i;
}
}  // namespace

double val(std::string_view text) {
  size_t i = skip_blanks(text, 0);
  size_t end = number_prefix(text, i);
  if (end == i) return 0;
  return std::strtod(std::string(text.substr(i, end - i)).c_str(), nullptr);
}

bool parse_number(std::string_view text, double& out) {
  size_t i = skip_blanks(text, 0);
  size_t end = number_prefix(text, i);
  if (end == i || skip_blanks(text, end) != text.size()) return false;
  out = std::strtod(std::string(text.substr(i, end - i)).c_str(), nullptr);
  return true;
}

namespace {
bool in(char32_t c, char32_t first, char32_t last) { return c >= first && c <= last; }

// Ranges where the letters come in pairs, upper case first, at even codes
// (or at odd codes: Latin's Ĺ..ň and Ź..ž, Cyrillic's Ӂ..ӎ).
struct Pairs {
  char32_t first, last;
};
constexpr Pairs even_pairs[] = {{0x100, 0x12F}, {0x132, 0x137}, {0x14A, 0x177}, {0x200, 0x21F},
                                {0x222, 0x233}, {0x460, 0x481}, {0x48A, 0x4BF}, {0x4D0, 0x52F},
                                {0x1E00, 0x1E95}, {0x1EA0, 0x1EFF}};
constexpr Pairs odd_pairs[] = {{0x139, 0x148}, {0x179, 0x17E}, {0x4C1, 0x4CE}};

char32_t upper_of(char32_t c) {
  if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 32 : c;
  if (in(c, 0xE0, 0xFE) && c != 0xF7) return c - 0x20;
  if (c == 0xFF) return 0x178;
  for (const Pairs& p : even_pairs)
    if (in(c, p.first, p.last) && (c & 1)) return c - 1;
  for (const Pairs& p : odd_pairs)
    if (in(c, p.first, p.last) && !(c & 1)) return c - 1;
  if (in(c, 0x3B1, 0x3C1) || in(c, 0x3C3, 0x3CB)) return c - 0x20;
  if (c == 0x3C2) return 0x3A3;  // final sigma
  if (c == 0x3AC) return 0x386;
  if (in(c, 0x3AD, 0x3AF)) return c - 0x25;
  if (c == 0x3CC) return 0x38C;
  if (in(c, 0x3CD, 0x3CE)) return c - 0x3F;
  if (in(c, 0x430, 0x44F)) return c - 0x20;
  if (in(c, 0x450, 0x45F)) return c - 0x50;
  if (c == 0x4CF) return 0x4C0;
  if (in(c, 0x561, 0x586)) return c - 0x30;
  return c;
}

char32_t lower_of(char32_t c) {
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
  if (in(c, 0xC0, 0xDE) && c != 0xD7) return c + 0x20;
  if (c == 0x178) return 0xFF;
  for (const Pairs& p : even_pairs)
    if (in(c, p.first, p.last) && !(c & 1)) return c + 1;
  for (const Pairs& p : odd_pairs)
    if (in(c, p.first, p.last) && (c & 1)) return c + 1;
  if (in(c, 0x391, 0x3A1) || in(c, 0x3A3, 0x3AB)) return c + 0x20;
  if (c == 0x386) return 0x3AC;
  if (in(c, 0x388, 0x38A)) return c + 0x25;
  if (c == 0x38C) return 0x3CC;
  if (in(c, 0x38E, 0x38F)) return c + 0x3F;
  if (in(c, 0x410, 0x42F)) return c + 0x20;
  if (in(c, 0x400, 0x40F)) return c + 0x50;
  if (c == 0x4C0) return 0x4CF;
  if (in(c, 0x531, 0x556)) return c + 0x30;
  return c;
}

std::string map_case(std::string_view s, char32_t (*map)(char32_t)) {
  std::string r(s);
  for (size_t at = 0; at < r.size();) {
    const size_t n = utf8::char_size(r, at);
    const char32_t c = utf8::code_point(r, at);
    const char32_t m = c == utf8::replacement ? c : map(c);
    if (m != c) {
      const std::string bytes = utf8::encode(m);
      if (bytes.size() == n) r.replace(at, n, bytes);
    }
    at += n;
  }
  return r;
}
}  // namespace

std::string ucase(std::string_view s) { return map_case(s, upper_of); }

std::string lcase(std::string_view s) { return map_case(s, lower_of); }

std::string trim(std::string_view s) {
  size_t b = s.find_first_not_of(' ');
  if (b == std::string_view::npos) return {};
  size_t e = s.find_last_not_of(' ');
  return std::string(s.substr(b, e - b + 1));
}

bool iequals(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) !=
        std::tolower(static_cast<unsigned char>(b[i])))
      return false;
  return true;
}

std::string number_text(double n, char decimal) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.15G", n);
  std::string s(buf);
  // C's exponent has at least two digits and a sign, as the program's texts do.
  for (char& c : s)
    if (c == '.') c = decimal;
  return s;
}

double round_even(double x) { return std::nearbyint(x); }

}  // namespace wh
