#pragma once
// NtQuerySystemInformation and the 9x statistics keys' home.
#include <windows.h>

namespace wh {

// NtQuerySystemInformation(info_class, buffer, size) from ntdll: the
// NTSTATUS (0 = success), or -1 when ntdll lacks it. On x64 only the 64-bit
// layouts are accepted: basic information is 64 bytes (44 fails), the
// performance block 312 bytes or more, the time of day up to 48.
long nt_query_system_information(ULONG info_class, void* buffer, ULONG size);

}  // namespace wh
