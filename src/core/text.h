#pragma once
// Text is the program's universal value: settings, list rows and sizes are
// text, and a numeric read takes the leading number or 0.
#include <string>
#include <string_view>

namespace wh {

// The leading number of a text (blanks skipped, sign, digits, one point,
// exponent); 0 when there is none. "12abc" -> 12, "abc" -> 0, "" -> 0.
double val(std::string_view text);

// Parses the whole text as a number (blanks around allowed); false when it
// is not one. Used where the original conversion would fail on bad text.
bool parse_number(std::string_view text, double& out);

// Upper and lower case of ASCII and of the letters of the Latin (with
// Romanian's ș and ț), Greek, Cyrillic and Armenian alphabets whose two
// cases take as many bytes in UTF-8: every byte keeps its position, so a
// position found in the upper-cased text holds in the text itself. Other
// characters stay as they are.
std::string ucase(std::string_view s);
std::string lcase(std::string_view s);
// Blanks (spaces only) off both ends.
std::string trim(std::string_view s);
bool iequals(std::string_view a, std::string_view b);

// A number as decimal text: the shortest general form of a double with up
// to 15 significant digits, with `decimal` as the decimal symbol.
std::string number_text(double n, char decimal = '.');

// Rounds to the nearest whole number, halves to the even neighbour.
double round_even(double x);

// The user's decimal symbol (first character of it).
char locale_decimal();

}  // namespace wh
