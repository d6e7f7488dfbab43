#pragma once
// Size texts and path pieces as the whole program shows and splits them.
// Pure: no controls, no file system.
#include <string>
#include <string_view>

namespace wh {

// The size text of the program, with the given decimal symbol:
// " 512 bytes", "1 KB", "1.99 MB", "1.5 GB". Truncates, never rounds; the
// GB branch cuts behind the point's position + 2 even when there is no
// point, so 2 GB reads "2 GB" and 100 GB reads "10 GB".
std::string spatiuu_text(double n, char decimal);

// The text before the last "\"; empty when there is none. The walk holds
// its position in a byte: a "\" behind position 255 that follows an earlier
// one keeps the walk from ever ending.
std::string parent_path(std::string_view path);

// The text behind the last "." (searched from the second character on), in
// upper case; a name whose only "." is the first character comes back whole
// in upper case; a name with no "." gives one blank.
std::string file_extension(std::string_view name);

// Trimmed; empty stays empty; otherwise ends in exactly one backslash.
std::string add_backslash(std::string_view path);

// folder + name, with a backslash between unless folder is a drive root
// such as "C:\" (tested from its third character on).
std::string join_path(std::string_view folder, std::string_view name);

}  // namespace wh
