#pragma once
// The small routines that every part of the program calls. Thin and trusting
// on purpose: none reports a failure, a missing key reads as empty text.
#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/registry.h"

namespace wh {

class ListBox;

// --- registry, through the single-byte code page
// Each takes the view of HKLM\Software last (platform/registry.h); the
// default is the old calls' own.
// The value's bytes up to the first NUL, whatever its type (a number comes
// back as its raw bytes); `def` when the value cannot be read.
std::string reg_get_value(HKEY hive, const std::string& subkey, const std::string& name,
                          const std::string& def = {}, RegView view = RegView::native);
// REG_SZ of exactly the text's characters (no NUL), the path made if missing.
void reg_set_value(HKEY hive, const std::string& subkey, const std::string& name,
                   const std::string& text, RegView view = RegView::native);
void reg_set_dword(HKEY hive, const std::string& subkey, const std::string& name, DWORD value,
                   RegView view = RegView::native);
// The subkey names; no elements when the key cannot be opened or has none.
std::vector<std::string> reg_enum_keys(HKEY hive, const std::string& subkey,
                                       RegView view = RegView::native);
// RegEnumValueA into a name and a data buffer that hold so many characters,
// as the program's byte buffers did before its text was UTF-8. `name_size`
// and `data_size` go in as the buffers' sizes and come out as the lengths,
// both in characters (the data's NUL counts). Too long for its buffer gives
// ERROR_MORE_DATA as the A call does under Wine: data leave the buffers as
// they came and set the size they need; a name fills its buffer and keeps
// its size. Any other failure leaves everything as it came in.
LONG reg_enum_value_chars(HKEY key, DWORD index, std::string& name, DWORD& name_size,
                          std::string& data, DWORD& data_size);
void reg_delete_value(HKEY hive, const std::string& subkey, const std::string& name,
                      RegView view = RegView::native);

// --- sizes, paths and names
// The size text with the user's decimal symbol (see spatiuu_text).
std::string spatiuu(double& n);
// GetShortPathNameA through a 165-character buffer that is announced as 255.
std::string short_path(const std::string& path);
std::string special_folder(int csidl);
// The program that opens files of an extension (no dot), found through a
// scratch file in the temporary folder; empty when there is none.
std::string find_associated_program(const std::string& extension);
bool is_nt();

// --- shell, files and components
// ShellExecuteA "open" with working folder "C:\"; the code is dropped.
void shell_open(HWND owner, const std::string& path);
// Writes custom resource `number` of `type` into `path` without truncating:
// an older, longer file keeps its tail. Errors ignored.
std::string resource_to_file(const std::string& path, uint8_t number, const std::string& type);
// Starts a command and waits for it without limit, pumping nothing.
void run_and_wait(const std::string& command);
// DllRegisterServer / DllUnregisterServer of a library: 15 when the entry
// returned non-zero, else 0.
int register_component(HWND hwnd, const std::string& path, bool do_register);

// --- list boxes
// LB_ADDSTRING, then widens the horizontal extent when the line is the
// widest so far (kept in the list's Tag).
void list_add_wide(ListBox& list, const std::string& line);
LRESULT list_set_extent(ListBox& list, int width);

}  // namespace wh
