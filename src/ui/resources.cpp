#include "ui/resources.h"

namespace wh {

HMODULE exe_module() { return ::GetModuleHandleA(nullptr); }

namespace {
std::string_view bytes_of(HRSRC res) {
  if (!res) return {};
  HGLOBAL mem = ::LoadResource(exe_module(), res);
  if (!mem) return {};
  // Resources stay mapped with the module: no unlock or free is needed.
  const char* p = static_cast<const char*>(::LockResource(mem));
  return p ? std::string_view(p, ::SizeofResource(exe_module(), res)) : std::string_view{};
}
}  // namespace

std::string_view resource_bytes(const char* type, int id) {
  return bytes_of(::FindResourceA(exe_module(), MAKEINTRESOURCEA(id), type));
}

std::string_view resource_bytes(const char* type, const std::string& name) {
  return bytes_of(::FindResourceA(exe_module(), name.c_str(), type));
}

HBITMAP load_bitmap_resource(const std::string& name, HMODULE module) {
  // A DIB section keeps the colours of the file whatever the screen depth.
  return static_cast<HBITMAP>(::LoadImageA(module ? module : exe_module(), name.c_str(),
                                           IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
}

}  // namespace wh
