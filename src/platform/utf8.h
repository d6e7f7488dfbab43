#pragma once
// Characters of the program's text. The manifest asks Windows for the UTF-8
// code page, so every "A" call takes and gives UTF-8 and a std::string may
// hold several bytes per character. Wherever the program counts characters
// (the LCD's columns, cuts, widths, paddings, buffers of so many characters)
// it counts them with these routines, which never split a sequence.
//
// A character is one code point: a well-formed UTF-8 sequence of 1 to 4
// bytes. A byte that starts no well-formed sequence (a stray continuation
// byte, a cut, overlong or surrogate sequence, a byte of a legacy code page
// on a Windows that ignores the manifest) is one character of its own, as
// the W side shows it (one U+FFFD each). Combining marks, joiners, variation
// selectors and emoji modifiers are characters of their own too: a "ș"
// written as s + U+0326 is two, an emoji with a skin tone is two. File names
// on Windows are almost always composed, so a letter is one character.
//
// Pure: no Win32 call (tests/fuzz builds it natively).
#include <cstddef>
#include <string>
#include <string_view>

namespace wh::utf8 {

constexpr char32_t replacement = 0xFFFD;

inline bool is_continuation(unsigned char c) { return (c & 0xC0) == 0x80; }

// Bytes that a text of `units` UTF-16 code units may take in UTF-8: a
// buffer that the W API sizes in characters (MAX_PATH, 255) needs three
// bytes a unit in ours (a pair of surrogates is four).
constexpr std::size_t bytes_for(std::size_t units) { return units * 3; }

// Bytes of the character that starts at byte `at` (1 to 4); 0 at or past
// the end.
std::size_t char_size(std::string_view s, std::size_t at);

// The code point of the character at byte `at`; `replacement` for a byte
// that starts no well-formed sequence, 0 at or past the end.
char32_t code_point(std::string_view s, std::size_t at);

// The UTF-8 bytes of a code point (none for one above U+10FFFF or a
// surrogate).
std::string encode(char32_t cp);

// Number of characters.
std::size_t length(std::string_view s);

// Bytes taken by the first `chars` characters (all of s when it has fewer).
std::size_t offset(std::string_view s, std::size_t chars);

// The first / last `n` characters, whole when s has fewer.
std::string_view left(std::string_view s, std::size_t n);
std::string_view right(std::string_view s, std::size_t n);
// From the 1-based character `start`, `n` characters (the rest when n
// reaches past the end); empty when start lies past the end.
std::string_view mid(std::string_view s, std::size_t start, std::size_t n = std::string_view::npos);

// 1-based character position of byte `at` (which should start a character),
// as the old routines counted positions; 0 stays 0 for "not found" use:
// pass the 1-based byte position and get the 1-based character position.
std::size_t char_position(std::string_view s, std::size_t byte_position);

// The text padded with blanks to `n` characters (never cut).
std::string pad_right(std::string_view s, std::size_t n);

}  // namespace wh::utf8
