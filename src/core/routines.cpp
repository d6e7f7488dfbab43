#include "core/routines.h"

#include <shlobj.h>

#include <algorithm>

#include "core/paths.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/rt_error.h"
#include "platform/shell.h"
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
  for (DWORD index = 0;; ++index) {
    std::string name;
    if (reg_enum_key(key, index, name, 255) != ERROR_SUCCESS) break;
    names.push_back(cut_at_nul(name));
  }
  return names;
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
  // long so that nothing is overrun, and only its first 165 count.
  constexpr size_t held = 165;
  char buffer[256] = {};
  DWORD n = get_short_path_name(path, buffer, 255);
  return std::string(buffer, std::min<size_t>(n, held));
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
// The width of a line in the form's own font, as the form measures text.
int form_text_width(const Form& form, const std::string& text) {
  HDC dc = GetDC(form.hwnd());
  HGDIOBJ old = SelectObject(dc, font_handle(FontDesc{}));
  SIZE size{};
  GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
  SelectObject(dc, old);
  ReleaseDC(form.hwnd(), dc);
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
