#pragma once
// Resources of the program file.
#include <windows.h>

#include <string>
#include <string_view>

namespace wh {

// The exe's module: resources live there, not in a library.
HMODULE exe_module();

// The bytes of a custom resource ("JPEG" 101, "RGN" 101, the floppy tool);
// empty when missing. The view stays valid for the life of the process.
std::string_view resource_bytes(const char* type, int id);
std::string_view resource_bytes(const char* type, const std::string& name);

// A bitmap resource by name; null when missing. The caller owns it.
HBITMAP load_bitmap_resource(const std::string& name, HMODULE module = nullptr);

}  // namespace wh
