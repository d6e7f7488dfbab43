#pragma once
// A JunkHarrower plug-in of the pack: the shared piece (plugin.cpp) is the
// automation object with `Description` and `RUN`, its class factory, the
// registration and DllMain; each cleaner is one file that defines the two
// functions below and nothing else of COM.
//
// The plug-ins run inside the program under the code page of its exe, which
// may be the system's or UTF-8: they use the "W" calls throughout, so that a
// folder or cache file of any name is reached.
#include <string>
#include <vector>

namespace pack {

enum class Language { english, romanian };

// What the cleaner says on the LCD panel: lines divided by "|", at most 5,
// each of at most 19 plain ASCII characters (the panel cuts the rest and
// shows a blank for anything above code 126).
std::wstring description(Language language);

// Does the cleaning. It may throw: the shared piece catches everything, as
// a failure leaving RUN would stop the program's whole Harrow run.
void run();

// The program's language, from its key store: Romanian when the value
// "limba" of HKCU\Software\Wellharrower\Optiuni says "romana", else English,
// as the program reads it at start.
Language program_language();

// The LCD lines of a description: `names` packed after `title`, joined by
// ", " as far as a line holds them, at most `name_lines` lines of them, then
// `footer` when there is one. "|" between the lines.
std::wstring lcd_lines(const std::wstring& title, const std::vector<std::wstring>& names,
                       const std::wstring& footer, size_t name_lines = 3);

// "12 files, 3.4 MB" / "12 fisiere, 3.4 MB": a count, its noun, and the
// size when there is room for it and it is 1 KB or more.
std::wstring count_line(unsigned long long count, const wchar_t* one, const wchar_t* many,
                        unsigned long long bytes);
std::wstring files_line(unsigned long long files, unsigned long long bytes, Language language);

constexpr size_t lcd_width = 19;

}  // namespace pack
