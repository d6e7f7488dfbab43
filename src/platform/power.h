#pragma once
// Shutting the machine down. The calls that would end the session go
// through a replaceable hook, so that tests can watch them instead.
#include <windows.h>

#include <functional>

namespace wh {

// OpenProcessToken(adjust | query), LookupPrivilegeValueA
// ("SeShutdownPrivilege"), AdjustTokenPrivileges(enabled).
int enable_shutdown_privilege();

// RtlAdjustPrivilege from ntdll; the NTSTATUS, or -1 when ntdll lacks it.
long rtl_adjust_privilege(ULONG privilege, bool enable, bool current_thread,
                          bool& was_enabled);

struct PowerCall {
  enum Kind { exit_windows, nt_shutdown_system } kind = exit_windows;
  UINT flags = 0;    // ExitWindowsEx flags, or the NtShutdownSystem action
  DWORD reason = 0;  // ExitWindowsEx only
};
// Returns what the real call would: nonzero (BOOL) for ExitWindowsEx, an
// NTSTATUS (0 = success) for NtShutdownSystem.
using PowerHook = std::function<long(const PowerCall&)>;

// Installs a hook and returns the previous one; an empty hook restores the
// real calls.
PowerHook set_power_hook(PowerHook hook);

// ExitWindowsEx(flags, reason) through the hook. Run-time number.
int exit_windows(UINT flags, DWORD reason = 0);
// NtShutdownSystem(action) through the hook (2 = power off). The NTSTATUS,
// or -1 when ntdll lacks it.
long nt_shutdown_system(int action);

}  // namespace wh
