#include "platform/registry.h"

#include <vector>

namespace wh {

REGSAM view_access(RegView view) {
  switch (view) {
    case RegView::reg64: return KEY_WOW64_64KEY;
    case RegView::reg32: return KEY_WOW64_32KEY;
    default: return 0;
  }
}

const std::vector<RegView>& software_views(HKEY hive) {
  static const std::vector<RegView> machine{RegView::reg64, RegView::reg32};
  static const std::vector<RegView> one{RegView::native};
  return hive == HKEY_LOCAL_MACHINE ? machine : one;
}

// RegOpenKeyA and RegCreateKeyA ask for MAXIMUM_ALLOWED; their Ex forms in a
// view ask for the same.
LONG reg_open_key(HKEY hive, const std::string& subkey, HKEY& out, RegView view) {
  out = nullptr;
  if (view == RegView::native) return RegOpenKeyA(hive, subkey.c_str(), &out);
  return RegOpenKeyExA(hive, subkey.c_str(), 0, MAXIMUM_ALLOWED | view_access(view), &out);
}

LONG reg_open_key_ex(HKEY hive, const std::string& subkey, REGSAM access, HKEY& out,
                     RegView view) {
  out = nullptr;
  return RegOpenKeyExA(hive, subkey.c_str(), 0, access | view_access(view), &out);
}

LONG reg_create_key(HKEY hive, const std::string& subkey, HKEY& out, RegView view) {
  out = nullptr;
  if (view == RegView::native) return RegCreateKeyA(hive, subkey.c_str(), &out);
  return RegCreateKeyExA(hive, subkey.c_str(), 0, nullptr, 0, MAXIMUM_ALLOWED | view_access(view),
                         nullptr, &out, nullptr);
}

LONG reg_close_key(HKEY key) { return RegCloseKey(key); }

LONG reg_query_value_size(HKEY key, const std::string& name, DWORD& type, DWORD& size) {
  type = REG_NONE;
  size = 0;
  return RegQueryValueExA(key, name.c_str(), nullptr, &type, nullptr, &size);
}

LONG reg_query_value(HKEY key, const std::string& name, DWORD* type, void* buffer,
                     DWORD* size) {
  return RegQueryValueExA(key, name.c_str(), nullptr, type, static_cast<BYTE*>(buffer),
                          size);
}

LONG reg_query_value(HKEY key, const std::string& name, DWORD& type, std::string& data) {
  data.clear();
  DWORD size = 0;
  LONG r = reg_query_value_size(key, name, type, size);
  // The value may grow between the two calls; go round until it fits.
  while (r == ERROR_SUCCESS || r == ERROR_MORE_DATA) {
    data.assign(size, '\0');
    DWORD got = size;
    r = RegQueryValueExA(key, name.c_str(), nullptr, &type,
                         reinterpret_cast<BYTE*>(data.data()), &got);
    if (r == ERROR_SUCCESS) {
      data.resize(got);
      return r;
    }
    if (r != ERROR_MORE_DATA) break;
    size = got > size ? got : size * 2 + 16;
  }
  data.clear();
  return r;
}

LONG reg_set_value(HKEY key, const std::string& name, DWORD type, const void* data,
                   DWORD size) {
  return RegSetValueExA(key, name.c_str(), 0, type, static_cast<const BYTE*>(data), size);
}

LONG reg_set_value(HKEY key, const std::string& name, DWORD type, const std::string& bytes) {
  return reg_set_value(key, name, type, bytes.data(), static_cast<DWORD>(bytes.size()));
}

LONG reg_set_dword(HKEY key, const std::string& name, DWORD value) {
  return reg_set_value(key, name, REG_DWORD, &value, sizeof value);
}

LONG reg_set_default(HKEY key, const std::string& subkey, const std::string& text) {
  return reg_set_default(key, subkey, text, static_cast<DWORD>(text.size()));
}

LONG reg_set_default(HKEY key, const std::string& subkey, const std::string& text, DWORD length) {
  return RegSetValueA(key, subkey.empty() ? nullptr : subkey.c_str(), REG_SZ, text.c_str(), length);
}

LONG reg_enum_key(HKEY key, DWORD index, std::string& name, DWORD bufsize) {
  std::vector<char> buf(bufsize + 1, '\0');
  LONG r = RegEnumKeyA(key, index, buf.data(), bufsize);
  name = r == ERROR_SUCCESS ? std::string(buf.data()) : std::string();
  return r;
}

LONG reg_enum_value(HKEY key, DWORD index, RegValue& value) {
  // Value names are at most 16383 characters; only the data may need more.
  std::vector<char> name(16384);
  std::string data(256, '\0');
  for (;;) {
    DWORD name_len = static_cast<DWORD>(name.size());
    DWORD data_len = static_cast<DWORD>(data.size());
    DWORD type = REG_NONE;
    LONG r = RegEnumValueA(key, index, name.data(), &name_len, nullptr, &type,
                           reinterpret_cast<BYTE*>(data.data()), &data_len);
    if (r == ERROR_MORE_DATA) {
      data.assign(data_len > data.size() ? data_len : data.size() * 4, '\0');
      continue;
    }
    if (r == ERROR_SUCCESS) {
      value.name.assign(name.data(), name_len);
      value.type = type;
      data.resize(data_len);
      value.data = std::move(data);
    }
    return r;
  }
}

LONG reg_delete_key(HKEY key, const std::string& subkey, RegView view) {
  if (view == RegView::native) return RegDeleteKeyA(key, subkey.c_str());
  return RegDeleteKeyExA(key, subkey.c_str(), view_access(view), 0);
}

LONG reg_delete_value(HKEY key, const std::string& name) {
  return RegDeleteValueA(key, name.c_str());
}

LONG reg_delete_tree(HKEY key, const std::string& subkey, RegView view) {
  HKEY raw = nullptr;
  LONG r = RegOpenKeyExA(key, subkey.c_str(), 0, KEY_READ | KEY_WRITE | view_access(view), &raw);
  if (r != ERROR_SUCCESS) return r;
  KeyHandle k(raw);
  // Names first: deleting while enumerating shifts the indexes.
  std::vector<std::string> children;
  std::string name;
  for (DWORD i = 0; reg_enum_key(k.get(), i, name, 260) == ERROR_SUCCESS; ++i)
    children.push_back(name);
  // Below an opened key the handle's view holds.
  for (const auto& child : children) {
    r = reg_delete_tree(k.get(), child, view);
    if (r != ERROR_SUCCESS) return r;
  }
  k.reset();
  return reg_delete_key(key, subkey, view);
}

LONG RegKey::open(HKEY hive, const std::string& subkey, RegView view) {
  HKEY raw = nullptr;
  LONG r = reg_open_key(hive, subkey, raw, view);
  key_.reset(r == ERROR_SUCCESS ? raw : nullptr);
  return r;
}

LONG RegKey::open(HKEY hive, const std::string& subkey, REGSAM access, RegView view) {
  HKEY raw = nullptr;
  LONG r = reg_open_key_ex(hive, subkey, access, raw, view);
  key_.reset(r == ERROR_SUCCESS ? raw : nullptr);
  return r;
}

LONG RegKey::create(HKEY hive, const std::string& subkey, RegView view) {
  HKEY raw = nullptr;
  LONG r = reg_create_key(hive, subkey, raw, view);
  key_.reset(r == ERROR_SUCCESS ? raw : nullptr);
  return r;
}

LONG reg_enum_value(HKEY key, DWORD index, char* name, DWORD& name_size, DWORD& type,
                    BYTE* data, DWORD& data_size) {
  return ::RegEnumValueA(key, index, name, &name_size, nullptr, &type, data, &data_size);
}

}  // namespace wh
