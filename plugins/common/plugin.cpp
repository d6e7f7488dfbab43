// The automation component every plug-in of the pack is: class
// "<file base name>.Plugin" with a class id made from that name, late-bound
// members `Description` and `RUN`, self-registration.
//
// The pack at the first start: the program registers only the first file of
// its plug-in folder that it cannot make. So the registration of a member of
// the pack also registers the other members found in the same folder, and
// the unregistration removes them again: one registration makes the whole
// pack usable in that same start. A member is known by its version resource
// (product "JunkHarrower plug-in pack", original file name equal to the
// file's own name), read as data: no code of another file is run.
#include "common/plugin.h"

#include <windows.h>
#include <ole2.h>
#include <olectl.h>

#include <cstdint>
#include <string>

#include "common/walk.h"

namespace pack {

namespace {

HMODULE self;
LONG live_objects;

const wchar_t* const pack_product = L"JunkHarrower plug-in pack";
const HRESULT selfreg_e_class = static_cast<HRESULT>(0x80040201L);  // missing from mingw

std::wstring module_path() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(self, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) return {};
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

std::wstring folder_of(const std::wstring& path) {
  const size_t slash = path.find_last_of(L"\\/");
  return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash);
}

std::wstring file_name(const std::wstring& path) {
  const size_t slash = path.find_last_of(L"\\/");
  return slash == std::wstring::npos ? path : path.substr(slash + 1);
}

// The file's name without folder and last extension.
std::wstring base_name(const std::wstring& path) {
  const std::wstring name = file_name(path);
  const size_t dot = name.rfind(L'.');
  return dot == std::wstring::npos ? name : name.substr(0, dot);
}

std::wstring prog_id(const std::wstring& path) { return base_name(path) + L".Plugin"; }

uint64_t fnv1a(const std::string& text, uint64_t hash) {
  for (unsigned char c : text) {
    hash ^= c;
    hash *= 1099511628211ull;
  }
  return hash;
}

// 128 bits of two hashes of the upper-case class name in UTF-8, marked as a
// name-made id (version 8, RFC 4122 variant).
CLSID class_id(const std::wstring& progid) {
  std::wstring upper = progid;
  CharUpperBuffW(upper.data(), static_cast<DWORD>(upper.size()));
  std::string name(upper.size() * 4, '\0');
  name.resize(WideCharToMultiByte(CP_UTF8, 0, upper.data(), static_cast<int>(upper.size()),
                                  name.data(), static_cast<int>(name.size()), nullptr, nullptr));
  const uint64_t high = fnv1a(name, 14695981039346656037ull);
  const uint64_t low = fnv1a(name + "#", high);
  CLSID id;
  id.Data1 = static_cast<unsigned long>(high >> 32);
  id.Data2 = static_cast<unsigned short>(high >> 16);
  id.Data3 = static_cast<unsigned short>((high & 0x0FFF) | 0x8000);
  for (int i = 0; i < 8; ++i) id.Data4[i] = static_cast<unsigned char>(low >> (56 - 8 * i));
  id.Data4[0] = static_cast<unsigned char>((id.Data4[0] & 0x3F) | 0x80);
  return id;
}

std::wstring class_id_text(const std::wstring& progid) {
  wchar_t text[40] = {};
  StringFromGUID2(class_id(progid), text, 40);
  return text;
}

// A string of a file's version resource, in its first translation.
std::wstring version_string(const std::vector<BYTE>& info, const wchar_t* name) {
  struct Translation {
    WORD language, code_page;
  }* translations = nullptr;
  UINT size = 0;
  if (!VerQueryValueW(info.data(), L"\\VarFileInfo\\Translation",
                      reinterpret_cast<void**>(&translations), &size) ||
      size < sizeof(Translation))
    return {};
  wchar_t key[64];
  wsprintfW(key, L"\\StringFileInfo\\%04x%04x\\%s", translations[0].language,
            translations[0].code_page, name);
  wchar_t* value = nullptr;
  if (!VerQueryValueW(info.data(), key, reinterpret_cast<void**>(&value), &size) || !value)
    return {};
  return std::wstring(value, size > 0 && value[size - 1] == 0 ? size - 1 : size);
}

bool pack_member(const std::wstring& path) {
  DWORD ignored = 0;
  const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &ignored);
  if (size == 0) return false;
  std::vector<BYTE> info(size);
  if (!GetFileVersionInfoW(path.c_str(), 0, size, info.data())) return false;
  return version_string(info, L"ProductName") == pack_product &&
         same_name(version_string(info, L"OriginalFilename"), file_name(path));
}

// Where the classes go: HKEY_CLASSES_ROOT, which writes the machine's
// classes; a user without the rights to those (a program started without
// elevation on Windows of today) gets the same keys in his own classes.
struct Root {
  HKEY hive;
  const wchar_t* prefix;
};
const Root machine{HKEY_CLASSES_ROOT, L""};
const Root user{HKEY_CURRENT_USER, L"Software\\Classes\\"};

LONG set_text(const Root& root, const std::wstring& key, const wchar_t* name,
              const std::wstring& value) {
  HKEY opened;
  LONG result = RegCreateKeyExW(root.hive, (root.prefix + key).c_str(), 0, nullptr, 0, KEY_WRITE,
                                nullptr, &opened, nullptr);
  if (result != ERROR_SUCCESS) return result;
  result = RegSetValueExW(opened, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                          static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(opened);
  return result;
}

std::wstring get_text(const Root& root, const std::wstring& key) {
  HKEY opened;
  if (RegOpenKeyExW(root.hive, (root.prefix + key).c_str(), 0, KEY_QUERY_VALUE, &opened) !=
      ERROR_SUCCESS)
    return {};
  std::wstring value(1024, L'\0');
  DWORD size = static_cast<DWORD>(value.size() * sizeof(wchar_t)), type = 0;
  const LONG result = RegQueryValueExW(opened, nullptr, nullptr, &type,
                                       reinterpret_cast<BYTE*>(value.data()), &size);
  RegCloseKey(opened);
  if (result != ERROR_SUCCESS || type != REG_SZ) return {};
  value.resize(size / sizeof(wchar_t));
  while (!value.empty() && value.back() == 0) value.pop_back();
  return value;
}

bool write_class(const Root& root, const std::wstring& path) {
  const std::wstring progid = prog_id(path), id = class_id_text(progid);
  const std::wstring clsid = L"CLSID\\" + id, title = base_name(path) + L" plug-in";
  LONG failed = set_text(root, progid, nullptr, title);
  if (failed) return false;
  failed |= set_text(root, progid + L"\\CLSID", nullptr, id);
  failed |= set_text(root, clsid, nullptr, title);
  failed |= set_text(root, clsid + L"\\ProgID", nullptr, progid);
  failed |= set_text(root, clsid + L"\\InprocServer32", nullptr, path);
  failed |= set_text(root, clsid + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
  return failed == 0;
}

bool register_file(const std::wstring& path) {
  return write_class(machine, path) || write_class(user, path);
}

// Removes the class of this file's name where it is this file's: a
// registration of the same name by a copy elsewhere stays.
void unregister_in(const Root& root, const std::wstring& path) {
  const std::wstring progid = prog_id(path), id = class_id_text(progid);
  const std::wstring clsid = L"CLSID\\" + id;
  const std::wstring server = get_text(root, clsid + L"\\InprocServer32");
  if (!server.empty() && !same_name(server, path)) return;
  const std::wstring listed = get_text(root, progid + L"\\CLSID");
  for (const std::wstring& key : {clsid + L"\\InprocServer32", clsid + L"\\ProgID", clsid})
    RegDeleteKeyW(root.hive, (root.prefix + key).c_str());
  if (listed.empty() || same_name(listed, id)) {
    RegDeleteKeyW(root.hive, (root.prefix + progid + L"\\CLSID").c_str());
    RegDeleteKeyW(root.hive, (root.prefix + progid).c_str());
  }
}

void unregister_file(const std::wstring& path) {
  unregister_in(user, path);
  unregister_in(machine, path);
}

// The other members of the pack in this file's folder.
template <class Each> void for_each_sibling(const std::wstring& path, Each each) {
  if (!pack_member(path)) return;
  const std::wstring folder = folder_of(path);
  for (const std::wstring& name : files_in(folder)) {
    const std::wstring sibling = join(folder, name);
    if (!same_name(sibling, path) && pack_member(sibling)) each(sibling);
  }
}

enum : DISPID { id_description = 1, id_run = 2 };

struct Plugin : IDispatch {
  LONG refs = 1;
  Plugin() { InterlockedIncrement(&live_objects); }
  virtual ~Plugin() { InterlockedDecrement(&live_objects); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (iid == IID_IUnknown || iid == IID_IDispatch) {
      *out = static_cast<IDispatch*>(this);
      AddRef();
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return InterlockedIncrement(&refs); }
  ULONG STDMETHODCALLTYPE Release() override {
    const LONG left = InterlockedDecrement(&refs);
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  // Callers may spell the names in any case.
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    HRESULT result = S_OK;
    for (UINT i = 0; i < count; ++i) {
      if (lstrcmpiW(names[i], L"Description") == 0) {
        ids[i] = id_description;
      } else if (lstrcmpiW(names[i], L"RUN") == 0) {
        ids[i] = id_run;
      } else {
        ids[i] = DISPID_UNKNOWN;
        result = DISP_E_UNKNOWNNAME;
      }
    }
    return result;
  }
  // Neither member ever fails: an error out of RUN would stop the program's
  // whole Harrow, and a description that cannot be made is an empty one.
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*,
                                   VARIANT* result, EXCEPINFO*, UINT*) override {
    if (result) VariantInit(result);
    if (id == id_description && (flags & DISPATCH_PROPERTYGET)) {
      std::wstring text;
      try {
        text = description(program_language());
      } catch (...) {
        text.clear();
      }
      if (result) {
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocString(text.c_str());
      }
      return S_OK;
    }
    if (id == id_run && (flags & DISPATCH_METHOD)) {
      try {
        run();
      } catch (...) {
      }
      return S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }
};

struct Factory : IClassFactory {
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (iid == IID_IUnknown || iid == IID_IClassFactory) {
      *out = static_cast<IClassFactory*>(this);
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  // One factory for the life of the module.
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
    *out = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    Plugin* plugin = new (std::nothrow) Plugin;
    if (!plugin) return E_OUTOFMEMORY;
    const HRESULT result = plugin->QueryInterface(iid, out);
    plugin->Release();
    return result;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    if (lock)
      InterlockedIncrement(&live_objects);
    else
      InterlockedDecrement(&live_objects);
    return S_OK;
  }
} factory;

}  // namespace

Language program_language() {
  HKEY store;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Wellharrower\\Optiuni", 0, KEY_QUERY_VALUE,
                    &store) != ERROR_SUCCESS)
    return Language::english;
  wchar_t value[32] = {};
  DWORD size = sizeof value - sizeof(wchar_t), type = 0;
  const LONG result =
      RegQueryValueExW(store, L"limba", nullptr, &type, reinterpret_cast<BYTE*>(value), &size);
  RegCloseKey(store);
  const bool romanian = result == ERROR_SUCCESS && type == REG_SZ && lstrcmpW(value, L"romana") == 0;
  return romanian ? Language::romanian : Language::english;
}

}  // namespace pack

using namespace pack;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) {
    self = instance;
    DisableThreadLibraryCalls(instance);
  }
  return TRUE;
}

HRESULT WINAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
  if (clsid != class_id(prog_id(module_path()))) {
    *out = nullptr;
    return CLASS_E_CLASSNOTAVAILABLE;
  }
  return factory.QueryInterface(iid, out);
}

HRESULT WINAPI DllCanUnloadNow() { return live_objects == 0 ? S_OK : S_FALSE; }

HRESULT WINAPI DllRegisterServer() {
  try {
    const std::wstring path = module_path();
    const HRESULT result = register_file(path) ? S_OK : selfreg_e_class;
    for_each_sibling(path, [](const std::wstring& sibling) { register_file(sibling); });
    return result;
  } catch (...) {
    return selfreg_e_class;
  }
}

HRESULT WINAPI DllUnregisterServer() {
  try {
    const std::wstring path = module_path();
    unregister_file(path);
    for_each_sibling(path, [](const std::wstring& sibling) { unregister_file(sibling); });
    return S_OK;
  } catch (...) {
    return selfreg_e_class;
  }
}

}  // extern "C"
