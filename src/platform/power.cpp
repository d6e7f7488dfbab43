#include "platform/power.h"

#include <utility>

#include "platform/fso.h"
#include "platform/handles.h"
#include "platform/rt_error.h"

namespace wh {

namespace {

PowerHook& hook() {
  static PowerHook h;
  return h;
}

template <class F>
F ntdll_proc(const char* name) {
  HMODULE ntdll = GetModuleHandleA("ntdll.dll");
  return ntdll ? reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(ntdll, name)))
               : nullptr;
}

long real_call(const PowerCall& call) {
  if (call.kind == PowerCall::exit_windows) return ExitWindowsEx(call.flags, call.reason);
  using Fn = LONG(NTAPI*)(int);
  auto fn = ntdll_proc<Fn>("NtShutdownSystem");
  return fn ? fn(static_cast<int>(call.flags)) : -1;
}

long dispatch(const PowerCall& call) {
  return hook() ? hook()(call) : real_call(call);
}

}  // namespace

int enable_shutdown_privilege() {
  KernelHandle token;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, token.put()))
    return rt_from_win32(GetLastError());
  TOKEN_PRIVILEGES tp{};
  tp.PrivilegeCount = 1;
  tp.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
  if (!LookupPrivilegeValueA(nullptr, "SeShutdownPrivilege", &tp.Privileges[0].Luid))
    return rt_from_win32(GetLastError());
  // Success with ERROR_NOT_ALL_ASSIGNED means the account lacks the privilege.
  if (!AdjustTokenPrivileges(token.get(), FALSE, &tp, 0, nullptr, nullptr))
    return rt_from_win32(GetLastError());
  return GetLastError() == ERROR_NOT_ALL_ASSIGNED ? rt_permission_denied : rt_ok;
}

long rtl_adjust_privilege(ULONG privilege, bool enable, bool current_thread,
                          bool& was_enabled) {
  using Fn = LONG(NTAPI*)(ULONG, BOOLEAN, BOOLEAN, PBOOLEAN);
  was_enabled = false;
  auto fn = ntdll_proc<Fn>("RtlAdjustPrivilege");
  if (!fn) return -1;
  BOOLEAN old = FALSE;
  LONG status = fn(privilege, enable, current_thread, &old);
  was_enabled = old != FALSE;
  return status;
}

PowerHook set_power_hook(PowerHook h) { return std::exchange(hook(), std::move(h)); }

int exit_windows(UINT flags, DWORD reason) {
  SetLastError(ERROR_SUCCESS);
  if (dispatch(PowerCall{PowerCall::exit_windows, flags, reason})) return rt_ok;
  DWORD e = GetLastError();
  return e ? rt_from_win32(e) : rt_permission_denied;
}

long nt_shutdown_system(int action) {
  return dispatch(PowerCall{PowerCall::nt_shutdown_system, static_cast<UINT>(action), 0});
}

}  // namespace wh
