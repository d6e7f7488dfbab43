#include "platform/system_info.h"

namespace wh {

long nt_query_system_information(ULONG info_class, void* buffer, ULONG size) {
  using Fn = LONG(WINAPI*)(ULONG, PVOID, ULONG, PULONG);
  static const Fn fn = reinterpret_cast<Fn>(
      reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleA("ntdll.dll"),
                                               "NtQuerySystemInformation")));
  if (!fn) return -1;
  return fn(info_class, buffer, size, nullptr);
}

}  // namespace wh
