#include "core/text.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>

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

std::string ucase(std::string_view s) {
  std::string r(s);
  for (char& c : r) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return r;
}

std::string lcase(std::string_view s) {
  std::string r(s);
  for (char& c : r) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return r;
}

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
