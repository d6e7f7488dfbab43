#pragma once
// Code pages around the program's text. Our own "A" calls run in UTF-8 (the
// manifest's active code page; GetACP() answers 65001), but the programs we
// write files for run without that manifest: regedit reads a "REGEDIT4"
// file in the system's ANSI code page, cmd reads a batch file in the OEM
// one. And GDI's "A" text calls convert through the code page of the font's
// character set, not the process's: drawing and measuring go through UTF-16.
#include <windows.h>

#include <string>
#include <string_view>

namespace wh {

// The system's ANSI and OEM code pages, as programs without our manifest
// get them: HKLM\SYSTEM\CurrentControlSet\Control\Nls\CodePage (65001 on
// a Windows set to use UTF-8 worldwide), else the system locale's default.
UINT system_ansi_code_page();
UINT system_oem_code_page();

// Our text (the process's code page) in code page `cp`; false, with `out`
// left alone, when a character has no place there or the text is not
// well formed.
bool encode_text(std::string_view text, UINT cp, std::string& out);

// The text for a file that another program reads in code page `cp`: in that
// code page when every character has a place there, else as it is.
std::string text_for_code_page(std::string_view text, UINT cp);

// Our text as UTF-16, for the W calls that draw, measure and list; and
// back (a character our code page lacks becomes its default character, as
// the A calls give it).
std::wstring wide_text(std::string_view text);
std::string narrow_text(std::wstring_view text);

}  // namespace wh
