#include "platform/shell_link.h"

#include <windows.h>
#include <objbase.h>
#include <shlobj.h>

#include "platform/rt_error.h"

namespace wh {

namespace {
// The thread's apartment is the window's; joining it again is harmless.
void com_ready() {
  static const bool done = [] {
    ::CoInitialize(nullptr);
    return true;
  }();
  (void)done;
}

std::wstring wide(const std::string& s) {
  const int n = ::MultiByteToWideChar(CP_ACP, 0, s.c_str(), -1, nullptr, 0);
  std::wstring w(n > 0 ? n : 1, L'\0');
  ::MultiByteToWideChar(CP_ACP, 0, s.c_str(), -1, w.data(), n);
  w.resize(w.size() - 1);
  return w;
}

template <class T>
struct Com {
  T* p = nullptr;
  ~Com() {
    if (p) p->Release();
  }
};
}  // namespace

int shell_link_target(const std::string& link, std::string& target) {
  target.clear();
  com_ready();
  Com<IShellLinkA> sl;
  if (FAILED(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                                reinterpret_cast<void**>(&sl.p))))
    return rt_cannot_create_object;
  Com<IPersistFile> pf;
  if (FAILED(sl.p->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&pf.p))))
    return rt_cannot_create_object;
  if (FAILED(pf.p->Load(wide(link).c_str(), STGM_READ))) return rt_file_not_found;
  char buf[MAX_PATH + 1] = {};
  WIN32_FIND_DATAA fd{};
  if (FAILED(sl.p->GetPath(buf, MAX_PATH, &fd, SLGP_RAWPATH))) return rt_file_not_found;
  target = buf;
  return 0;
}

int shell_link_create(const std::string& link, const std::string& target,
                      const std::string& arguments) {
  com_ready();
  Com<IShellLinkA> sl;
  if (FAILED(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                                reinterpret_cast<void**>(&sl.p))))
    return rt_cannot_create_object;
  sl.p->SetPath(target.c_str());
  if (!arguments.empty()) sl.p->SetArguments(arguments.c_str());
  Com<IPersistFile> pf;
  if (FAILED(sl.p->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&pf.p))))
    return rt_cannot_create_object;
  if (FAILED(pf.p->Save(wide(link).c_str(), TRUE))) return rt_path_file_access;
  return 0;
}

}  // namespace wh
