// A sample plug-in for JunkHarrower: empties the folder where Windows keeps
// the crash dumps of programs that stopped working (%LOCALAPPDATA%\CrashDumps).
//
// An in-process automation component whose class is "<file base name>.Plugin"
// and whose class id is made from that name, so a copy of this file under
// another name is another plug-in. Late-bound members only: `Description`
// (text, lines divided by "|") and `RUN` (no arguments).
#include <windows.h>
#include <ole2.h>
#include <olectl.h>
#include <shlobj.h>

#include <cstdint>
#include <string>

namespace {

HMODULE self;
LONG live_objects;

std::string module_path() {
  char path[MAX_PATH] = {};
  GetModuleFileNameA(self, path, MAX_PATH);
  return path;
}

// The file's name without folder and last extension.
std::string base_name() {
  std::string name = module_path();
  const size_t slash = name.find_last_of("\\/");
  if (slash != std::string::npos) name = name.substr(slash + 1);
  const size_t dot = name.rfind('.');
  return dot == std::string::npos ? name : name.substr(0, dot);
}

std::string prog_id() { return base_name() + ".Plugin"; }

uint64_t fnv1a(const std::string& text, uint64_t hash) {
  for (unsigned char c : text) {
    hash ^= c;
    hash *= 1099511628211ull;
  }
  return hash;
}

// 128 bits of two hashes of the upper-case class name, marked as a
// name-made id (version 8, RFC 4122 variant).
CLSID class_id() {
  std::string name = prog_id();
  CharUpperBuffA(name.data(), static_cast<DWORD>(name.size()));
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

std::string class_id_text() {
  wchar_t wide[40] = {};
  StringFromGUID2(class_id(), wide, 40);
  char text[40] = {};
  WideCharToMultiByte(CP_ACP, 0, wide, -1, text, sizeof text, nullptr, nullptr);
  return text;
}

std::string dumps_folder() {
  char local[MAX_PATH] = {};
  if (FAILED(SHGetFolderPathA(nullptr, CSIDL_LOCAL_APPDATA, nullptr, 0, local))) return {};
  return std::string(local) + "\\CrashDumps";
}

// Files under a folder, counted through its subfolders.
int count_files(const std::string& folder) {
  WIN32_FIND_DATAA found;
  HANDLE walk = FindFirstFileA((folder + "\\*").c_str(), &found);
  if (walk == INVALID_HANDLE_VALUE) return 0;
  int count = 0;
  do {
    const std::string name = found.cFileName;
    if (name == "." || name == "..") continue;
    if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
      count += count_files(folder + "\\" + name);
    else
      ++count;
  } while (FindNextFileA(walk, &found));
  FindClose(walk);
  return count;
}

// Empties a folder, keeping it. A file in use stays where it is.
void empty_folder(const std::string& folder) {
  WIN32_FIND_DATAA found;
  HANDLE walk = FindFirstFileA((folder + "\\*").c_str(), &found);
  if (walk == INVALID_HANDLE_VALUE) return;
  do {
    const std::string name = found.cFileName;
    if (name == "." || name == "..") continue;
    const std::string path = folder + "\\" + name;
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
      empty_folder(path);
      RemoveDirectoryA(path.c_str());
    } else {
      DeleteFileA(path.c_str());
    }
  } while (FindNextFileA(walk, &found));
  FindClose(walk);
}

// Up to 19 characters a line show on the program's display.
std::wstring description() {
  const int count = count_files(dumps_folder());
  std::string text = count == 0 ? "  No crash dumps"
                                : "    Crash dumps|" + std::to_string(count) +
                                      (count == 1 ? " file" : " files") +
                                      "|left by programs|that crashed";
  return std::wstring(text.begin(), text.end());
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
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*,
                                   VARIANT* result, EXCEPINFO*, UINT*) override {
    if (result) VariantInit(result);
    if (id == id_description && (flags & DISPATCH_PROPERTYGET)) {
      if (result) {
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocString(description().c_str());
      }
      return S_OK;
    }
    if (id == id_run && (flags & DISPATCH_METHOD)) {
      const std::string folder = dumps_folder();
      if (!folder.empty()) empty_folder(folder);
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
    Plugin* plugin = new Plugin;
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

LONG set_text(const std::string& key, const char* name, const std::string& value) {
  HKEY opened;
  LONG result = RegCreateKeyExA(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                                &opened, nullptr);
  if (result != ERROR_SUCCESS) return result;
  result = RegSetValueExA(opened, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                          static_cast<DWORD>(value.size() + 1));
  RegCloseKey(opened);
  return result;
}

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) {
    self = instance;
    DisableThreadLibraryCalls(instance);
  }
  return TRUE;
}

HRESULT WINAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
  if (clsid != class_id()) {
    *out = nullptr;
    return CLASS_E_CLASSNOTAVAILABLE;
  }
  return factory.QueryInterface(iid, out);
}

HRESULT WINAPI DllCanUnloadNow() { return live_objects == 0 ? S_OK : S_FALSE; }

HRESULT WINAPI DllRegisterServer() {
  const std::string progid = prog_id(), clsid = "CLSID\\" + class_id_text();
  const std::string title = base_name() + " plug-in";
  LONG failed = set_text(progid, nullptr, title);
  failed |= set_text(progid + "\\CLSID", nullptr, class_id_text());
  failed |= set_text(clsid, nullptr, title);
  failed |= set_text(clsid + "\\ProgID", nullptr, progid);
  failed |= set_text(clsid + "\\InprocServer32", nullptr, module_path());
  failed |= set_text(clsid + "\\InprocServer32", "ThreadingModel", "Apartment");
  return failed ? SELFREG_E_CLASS : S_OK;
}

HRESULT WINAPI DllUnregisterServer() {
  const std::string progid = prog_id(), clsid = "CLSID\\" + class_id_text();
  for (const std::string& key : {clsid + "\\InprocServer32", clsid + "\\ProgID", clsid,
                                 progid + "\\CLSID", progid})
    RegDeleteKeyA(HKEY_CLASSES_ROOT, key.c_str());
  return S_OK;
}

}  // extern "C"
