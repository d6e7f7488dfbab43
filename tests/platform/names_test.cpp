// Text in any script: the tests run in the product's UTF-8 code page (they
// link its manifest), characters are counted and cut whole, files for other
// programs take the system's code page when they fit, and a listing hands
// out names longer than the A record holds.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "platform/clipboard.h"
#include "platform/code_pages.h"
#include "platform/file_find.h"
#include "platform/fso.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"
#include "support/scratch.h"

namespace wh {
namespace {

using test::path_exists;
using test::ScratchDir;

// "școală" (ș U+0219, ă U+0103), "学校" and an emoji (U+1F600, four bytes).
const std::string school = "\xC8\x99" "coal\xC4\x83";
const std::string cjk = "\xE5\xAD\xA6\xE6\xA0\xA1";
const std::string emoji = "\xF0\x9F\x98\x80";

TEST(Utf8Characters, CountCutAndPadWholeCharacters) {
  const std::string text = school + cjk + emoji + "!";
  EXPECT_EQ(10u, utf8::length(text));
  EXPECT_EQ("\xC8\x99" "c", utf8::left(text, 2));
  EXPECT_EQ(emoji + "!", utf8::right(text, 2));
  EXPECT_EQ("\xC4\x83" + cjk, utf8::mid(text, 6, 3));
  EXPECT_EQ("", utf8::mid(text, 11));
  EXPECT_EQ(text, utf8::left(text, 99));
  EXPECT_EQ(7u, utf8::char_position(text, text.find(cjk) + 1));
  EXPECT_EQ("\xC4\x83  ", utf8::pad_right("\xC4\x83", 3));
  EXPECT_EQ(0x1F600u, utf8::code_point(text, text.find(emoji)));

  // A byte that starts no well-formed sequence is a character of its own,
  // and a cut never takes half of a good one.
  EXPECT_EQ(1u, utf8::length("\xC8"));
  EXPECT_EQ(2u, utf8::length("\xE5\xAD"));           // cut short
  EXPECT_EQ(2u, utf8::length("\xC0\xAF"));           // overlong "/"
  EXPECT_EQ(3u, utf8::length("\xED\xA0\x80"));       // a surrogate
  EXPECT_EQ(5u, utf8::length("\xF4\x90\x80\x80" "a"));  // above U+10FFFF
  EXPECT_EQ(utf8::replacement, utf8::code_point("\xE9z", 0));
  EXPECT_EQ("\xE9", utf8::left("\xE9z", 1));
}

TEST(CodePages, TextForOtherProgramsTakesTheirCodePageOnlyWhenEveryCharacterFits) {
  EXPECT_EQ(static_cast<UINT>(CP_UTF8), GetACP()) << "the manifest of the .rc reached this exe";
  std::string out = "untouched";
  EXPECT_TRUE(encode_text("P\xC3\xA2ine \xC3\xAEn", 1252, out));
  EXPECT_EQ("P\xE2ine \xEEn", out);
  EXPECT_TRUE(encode_text("\xC3\xA2\xC3\xAE", 437, out));
  EXPECT_EQ("\x83\x8C", out);
  // No best fit: Windows would write ș as a plain s in 1252.
  out = "untouched";
  EXPECT_FALSE(encode_text(school, 1252, out));
  EXPECT_FALSE(encode_text(emoji, 1250, out));
  EXPECT_FALSE(encode_text("\xC8 broken", 1252, out));
  EXPECT_EQ("untouched", out);
  EXPECT_EQ(school, text_for_code_page(school, 437)) << "left as it is";
  EXPECT_EQ("\xE2", text_for_code_page("\xC3\xA2", 1252));
  EXPECT_EQ(school, text_for_code_page(school, CP_UTF8));

  // The system's pages are those of a program without our manifest.
  EXPECT_NE(static_cast<UINT>(CP_UTF8), system_ansi_code_page()) << "Wine's prefix is not UTF-8";
  EXPECT_TRUE(IsValidCodePage(system_oem_code_page()));
}

TEST(Clipboard, TextGoesBothWaysWholeWithOtherPrograms) {
  // Another program puts UTF-16 there, as a path copied from a message.
  const std::wstring path = L"C:\\\x0219" L"coal\x0103\\\x5B66";
  ASSERT_TRUE(OpenClipboard(nullptr));
  EmptyClipboard();
  HGLOBAL mem = GlobalAlloc(GMEM_MOVEABLE, (path.size() + 1) * sizeof(wchar_t));
  memcpy(GlobalLock(mem), path.c_str(), (path.size() + 1) * sizeof(wchar_t));
  GlobalUnlock(mem);
  SetClipboardData(CF_UNICODETEXT, mem);
  CloseClipboard();
  std::string text;
  EXPECT_EQ(rt_ok, clipboard_get_text(text));
  EXPECT_EQ("C:\\" + school + "\\" + cjk.substr(0, 3), text);

  // And what we put there reads whole in UTF-16.
  ASSERT_EQ(rt_ok, clipboard_set_text(school + " " + emoji));
  ASSERT_TRUE(OpenClipboard(nullptr));
  const auto* w = static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT)));
  ASSERT_NE(nullptr, w);
  EXPECT_EQ(std::wstring(L"\x0219" L"coal\x0103 \xD83D\xDE00"), w);
  GlobalUnlock(GetClipboardData(CF_UNICODETEXT));
  CloseClipboard();

  {
    ClipboardLock lock;
    ASSERT_TRUE(lock.is_open());
    EXPECT_TRUE(empty_clipboard());
  }
  ASSERT_EQ(rt_ok, clipboard_get_text(text));
  EXPECT_EQ("", text) << "an empty clipboard has no text";
}

TEST(FileFindNames, ANameLongerThanTheARecordIsListedMeasuredAndDeletedWhole) {
  // 85 CJK characters: 255 bytes of UTF-8, the most a Linux file system
  // under Wine takes. (Windows takes 255 UTF-16 units: up to 765 bytes,
  // beyond the A record's 259, which is why listings go through the W calls.)
  std::string long_name;
  for (int i = 0; i < 85; ++i) long_name += "\xE5\xAD\xA6";
  ScratchDir dir("names_long");
  const std::string inner = dir.folder(school);
  dir.file(school + "\\" + long_name, std::string(1000, 'l'));
  dir.file(school + "\\" + emoji + ".txt", std::string(24, 'e'));

  std::vector<std::string> listed;
  for (FileFind find(inner + "\\*"); find.found();) {
    if (find.entry().name[0] != '.') listed.push_back(find.entry().name);
    if (!find.next()) break;
  }
  std::sort(listed.begin(), listed.end());
  EXPECT_EQ((std::vector<std::string>{long_name, emoji + ".txt"}), listed);

  double size = 0;
  EXPECT_EQ(rt_ok, Folder(inner).Size(size));
  EXPECT_EQ(1024, size);
  EXPECT_EQ(rt_ok, file_system().DeleteFolder(inner, true));
  EXPECT_FALSE(path_exists(inner));
}

}  // namespace
}  // namespace wh
