#pragma once
// Thin wrappers around the ANSI registry API. Unlike the rest of the platform
// layer these return the registry's own Win32 codes (ERROR_SUCCESS = 0,
// ERROR_FILE_NOT_FOUND = 2, ...), not run-time error numbers: callers mostly
// ignore them, and the few that look compare with 0.
//
// Every function passes the key through unchecked, so a key that failed to
// open (nullptr) goes on to the next call, which then fails on its own.
//
// A 64-bit Windows keeps two views of HKLM\Software: what 32-bit programs
// write there lands in Software\Wow6432Node. Opens, creates and deletes take
// the view; `native` is the old calls' own behaviour (the view of this
// build), the others add KEY_WOW64_64KEY or KEY_WOW64_32KEY. A handle keeps
// its view for the keys opened relative to it. HKCU and HKLM\System are not
// redirected: there both views are the one key.
#include <windows.h>

#include <string>
#include <vector>

#include "platform/handles.h"

namespace wh {

enum class RegView { native, reg64, reg32 };

// The access bit of a view: 0, KEY_WOW64_64KEY or KEY_WOW64_32KEY.
REGSAM view_access(RegView view);
// The views in which hive\Software is read as one list: the 64-bit view,
// then the 32-bit one, for HKEY_LOCAL_MACHINE; the one key elsewhere.
const std::vector<RegView>& software_views(HKEY hive);

// RegOpenKeyA: default access, as the old API gives it. In a named view,
// RegOpenKeyExA with the same access (RegOpenKeyA takes no view).
LONG reg_open_key(HKEY hive, const std::string& subkey, HKEY& out,
                  RegView view = RegView::native);
// RegOpenKeyExA with the given access.
LONG reg_open_key_ex(HKEY hive, const std::string& subkey, REGSAM access, HKEY& out,
                     RegView view = RegView::native);
// RegCreateKeyA: opens, making the whole path when missing (RegCreateKeyExA
// with the same access in a named view).
LONG reg_create_key(HKEY hive, const std::string& subkey, HKEY& out,
                    RegView view = RegView::native);
LONG reg_close_key(HKEY key);

// RegQueryValueExA with no buffer: the type and the size in bytes of the
// data (for strings the size counts the stored NUL, if one was stored).
LONG reg_query_value_size(HKEY key, const std::string& name, DWORD& type, DWORD& size);
// RegQueryValueExA: the raw bytes exactly as stored, any type. An empty name
// is the default value.
LONG reg_query_value(HKEY key, const std::string& name, DWORD& type, std::string& data);
// RegQueryValueExA into a caller's buffer; size is in/out as in the API.
LONG reg_query_value(HKEY key, const std::string& name, DWORD* type, void* buffer,
                     DWORD* size);

// RegSetValueExA with any type and exactly `size` bytes of `data`.
LONG reg_set_value(HKEY key, const std::string& name, DWORD type, const void* data,
                   DWORD size);
// The same with the bytes of a string (no NUL added: append one to store it).
// Wine quirk: a REG_SZ written without its NUL gains one, so it reads back
// one byte longer than it was written.
LONG reg_set_value(HKEY key, const std::string& name, DWORD type, const std::string& bytes);
LONG reg_set_dword(HKEY key, const std::string& name, DWORD value);
// RegSetValueA: the default (unnamed) REG_SZ value of subkey, made if missing.
// An empty subkey sets the key's own default value.
LONG reg_set_default(HKEY key, const std::string& subkey, const std::string& text);
// The same with the length told to the API (which takes the text's own).
LONG reg_set_default(HKEY key, const std::string& subkey, const std::string& text, DWORD length);

// RegEnumKeyA by index; `bufsize` is the size told to the API (a name of that
// length or more fails with ERROR_MORE_DATA). ERROR_NO_MORE_ITEMS ends a walk.
LONG reg_enum_key(HKEY key, DWORD index, std::string& name, DWORD bufsize = 256);

struct RegValue {
  std::string name;
  DWORD type = REG_NONE;
  std::string data;  // raw bytes
};
// RegEnumValueA by index, name and raw data; grows its buffers as needed.
LONG reg_enum_value(HKEY key, DWORD index, RegValue& value);
// RegEnumValueA into the caller's buffers, exactly as the API does it: the
// sizes go in as the buffers' and come back as the API sets them.
LONG reg_enum_value(HKEY key, DWORD index, char* name, DWORD& name_size, DWORD& type,
                    BYTE* data, DWORD& data_size);

// RegDeleteKeyA: the key must have no subkeys on NT. RegDeleteKeyExA in a
// named view.
LONG reg_delete_key(HKEY key, const std::string& subkey, RegView view = RegView::native);
LONG reg_delete_value(HKEY key, const std::string& name);
// Deletes subkey and everything below it, depth first. ERROR_FILE_NOT_FOUND
// when it is missing; the first failure otherwise stops the walk.
LONG reg_delete_tree(HKEY key, const std::string& subkey, RegView view = RegView::native);

// An owned key. Methods mirror the free functions on the held key.
class RegKey {
public:
  RegKey() = default;
  explicit RegKey(HKEY owned) : key_(owned) {}

  LONG open(HKEY hive, const std::string& subkey, RegView view = RegView::native);  // RegOpenKeyA
  LONG open(HKEY hive, const std::string& subkey, REGSAM access,
            RegView view = RegView::native);  // RegOpenKeyExA
  LONG create(HKEY hive, const std::string& subkey, RegView view = RegView::native);  // RegCreateKeyA
  void close() { key_.reset(); }

  HKEY get() const { return key_.get(); }
  bool is_open() const { return key_.valid(); }
  HKEY release() { return key_.release(); }

  LONG query(const std::string& name, DWORD& type, std::string& data) const {
    return reg_query_value(get(), name, type, data);
  }
  LONG query_size(const std::string& name, DWORD& type, DWORD& size) const {
    return reg_query_value_size(get(), name, type, size);
  }
  LONG set(const std::string& name, DWORD type, const std::string& bytes) const {
    return reg_set_value(get(), name, type, bytes);
  }
  LONG set_dword(const std::string& name, DWORD value) const {
    return reg_set_dword(get(), name, value);
  }
  LONG enum_key(DWORD index, std::string& name, DWORD bufsize = 256) const {
    return reg_enum_key(get(), index, name, bufsize);
  }
  LONG enum_value(DWORD index, RegValue& value) const {
    return reg_enum_value(get(), index, value);
  }
  LONG delete_value(const std::string& name) const { return reg_delete_value(get(), name); }

private:
  KeyHandle key_;
};

}  // namespace wh
