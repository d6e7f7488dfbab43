#include "core/routines.h"

#include <shlobj.h>

#include <algorithm>

#include "core/paths.h"
#include "core/text.h"
#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/rt_error.h"
#include "platform/shell.h"
#include "platform/utf8.h"
#include "ui/form.h"
#include "ui/list_box.h"

namespace wh {

namespace {
std::string cut_at_nul(std::string s) {
  if (auto nul = s.find('\0'); nul != std::string::npos) s.resize(nul);
  return s;
}
}  // namespace

std::string reg_get_value(HKEY hive, const std::string& subkey, const std::string& name,
                          const std::string& def, RegView view) {
  std::string result = def;
  HKEY key = nullptr;
  reg_open_key(hive, subkey, key, view);  // unchecked: a null key fails below
  DWORD type = 0, size = 0;
  if (reg_query_value_size(key, name, type, size) == ERROR_SUCCESS) {
    std::string buffer(size, ' ');
    reg_query_value(key, name, &type, buffer.data(), &size);
    result = cut_at_nul(buffer);
  }
  reg_close_key(key);
  return result;
}

void reg_set_value(HKEY hive, const std::string& subkey, const std::string& name,
                   const std::string& text, RegView view) {
  RegKey key;
  key.create(hive, subkey, view);
  key.set(name, REG_SZ, text);
}

void reg_set_dword(HKEY hive, const std::string& subkey, const std::string& name, DWORD value,
                   RegView view) {
  RegKey key;
  key.create(hive, subkey, view);
  key.set_dword(name, value);
}

std::vector<std::string> reg_enum_keys(HKEY hive, const std::string& subkey, RegView view) {
  std::vector<std::string> names;
  HKEY key = nullptr;
  // The key is never closed: every call leaves one handle open.
  reg_open_key(hive, subkey, key, view);
  // A buffer of 255 characters: room for 255 in UTF-8, and a longer name
  // (254 and its NUL fill it) fails as it did.
  for (DWORD index = 0;; ++index) {
    std::string name;
    if (reg_enum_key(key, index, name, utf8::bytes_for(255)) != ERROR_SUCCESS) break;
    if (utf8::length(name) >= 255) break;
    names.push_back(cut_at_nul(name));
  }
  return names;
}

LONG reg_enum_value_chars(HKEY key, DWORD index, std::string& name, DWORD& name_size,
                          std::string& data, DWORD& data_size) {
  RegValue value;
  const LONG r = reg_enum_value(key, index, value);
  if (r != ERROR_SUCCESS) return r;
  const DWORD n = static_cast<DWORD>(utf8::length(value.name));
  const DWORD d = static_cast<DWORD>(utf8::length(value.data));
  // As the A call leaves a buffer that is too small (Wine's way): long data
  // touch nothing but the size they need; a long name fills what it can.
  if (d > data_size) {
    data_size = d;
    return ERROR_MORE_DATA;
  }
  data = value.data;
  data_size = d;
  if (n >= name_size) {  // no room for the NUL behind it
    name = std::string(utf8::left(value.name, name_size > 0 ? name_size - 1 : 0));
    return ERROR_MORE_DATA;
  }
  name = value.name;
  name_size = n;
  return ERROR_SUCCESS;
}

void reg_delete_value(HKEY hive, const std::string& subkey, const std::string& name,
                      RegView view) {
  RegKey key;
  key.open(hive, subkey, view);
  key.delete_value(name);
}

std::string spatiuu(double& n) { return spatiuu_text(n, locale_decimal()); }

std::string short_path(const std::string& path) {
  // The routine's buffer holds 165 characters but tells the call 255; the
  // answer can never be longer than the buffer. Our buffer really is 255
  // characters long so that nothing is overrun, and only its first 165
  // count. Characters, not bytes: a UTF-8 answer of 254 characters fits,
  // a longer one fails as it did and leaves the buffer's NULs.
  constexpr size_t held = 165;
  char buffer[utf8::bytes_for(255) + 1] = {};
  DWORD n = get_short_path_name(path, buffer, utf8::bytes_for(255));
  if (n >= utf8::bytes_for(255)) return std::string(std::min<size_t>(n, held), '\0');
  const std::string_view answer(buffer, n);
  if (utf8::length(answer) >= 255) return std::string(held, '\0');
  return std::string(utf8::left(answer, held));
}

std::string special_folder(int csidl) { return special_folder_path(csidl); }

std::string find_associated_program(const std::string& extension) {
  std::string folder = temp_path();
  if (folder.empty()) return {};
  std::string scratch = temp_file_name(folder, "~");
  if (scratch.empty()) return {};
  // The new name keeps the path up to its first "." anywhere: a temporary
  // folder with a dot in its path makes this rename fail.
  std::string renamed = scratch.substr(0, scratch.find('.') + 1) + extension;
  rename_path(scratch, renamed);
  std::string program;
  find_executable(renamed, program);
  delete_file_a(renamed);
  return program;
}

bool is_nt() { return version_is_nt(); }

void shell_open(HWND owner, const std::string& path) {
  shell_execute(owner, "open", path, "", "C:\\", SW_SHOWNORMAL);
}

std::string resource_to_file(const std::string& path, uint8_t number, const std::string& type) {
  ignore_errors([&] {
    HMODULE self = GetModuleHandleA(nullptr);
    HRSRC found = FindResourceA(self, MAKEINTRESOURCEA(number), type.c_str());
    if (!found) raise(rt_invalid_call);
    HGLOBAL loaded = LoadResource(self, found);
    const void* bytes = LockResource(loaded);
    DWORD size = SizeofResource(self, found);
    BinaryFile file;
    check(file.open_binary(path));
    check(file.write_at(0, bytes, size));
  });
  return path;
}

void run_and_wait(const std::string& command) {
  ProcessResult result;
  create_process(command, true, result);
}

int register_component(HWND hwnd, const std::string& path, bool do_register) {
  Module library(path);
  auto entry = library.proc_as<WNDPROC>(do_register ? "DllRegisterServer" : "DllUnregisterServer");
  // The entry is called as a window procedure with the handle and zeros.
  LRESULT answer = CallWindowProcA(entry, hwnd, 0, 0, 0);
  return answer != 0 ? 15 : 0;
}

}  // namespace wh

namespace wh {

namespace {
// The width of a line in the form's own font, as the form measures text:
// on one memory DC made at the first need and kept, with that font in it.
// Under Wine a GetDC on the form costs trips to the server, which a long
// list paid at every line.
int form_text_width(const Form&, const std::string& text) {
  static const HDC dc = [] {
    HDC made = CreateCompatibleDC(nullptr);
    SelectObject(made, font_handle(FontDesc{}));
    return made;
  }();
  SIZE size{};
  const std::wstring w = wide_text(text);  // GDI's A calls miss UTF-8
  GetTextExtentPoint32W(dc, w.c_str(), static_cast<int>(w.size()), &size);
  return size.cx;
}
}  // namespace

void list_add_wide(ListBox& list, const std::string& line) {
  // LB_ADDSTRING straight to the window: one message, and sorted lists
  // still place the line.
  list.send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
  const int width = form_text_width(list.form(), line) + 10;
  // A Tag that is no number fails the comparison; with errors ignored the
  // block behind it runs, so the first line always sets the width.
  double widest = 0;
  if (!parse_number(list.Tag, widest) || width > widest) {
    list.Tag = std::to_string(width);
    list_set_extent(list, width);
  }
}

LRESULT list_set_extent(ListBox& list, int width) {
  return list.send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width), 0);
}

}  // namespace wh
