#pragma once
// The strings of a file's version resource, as the start-up manager, the
// uninstaller and the task manager show them.
#include <array>
#include <cstdint>
#include <string>

namespace wh {

// CompanyName, FileDescription, FileVersion, InternalName, LegalCopyright,
// OriginalFileName, ProductName, ProductVersion.
using VersionStrings = std::array<std::string, 8>;

// 1 when the strings were read (a missing one stays empty), 2 when the file
// has no version resource or no translation table. All eight start empty.
int32_t file_version_info(const std::string& path, VersionStrings& out);

// The eight hex digits of the string table, from the first four bytes of
// "\VarFileInfo\Translation".
std::string translation_digits(unsigned char b0, unsigned char b1, unsigned char b2,
                               unsigned char b3);

}  // namespace wh
