#pragma once
// The one clock of the benchmark programs.
#include <windows.h>

namespace bench {

// Seconds on the performance counter, from an arbitrary start.
inline double seconds() {
  static const double per_second = [] {
    LARGE_INTEGER f;
    QueryPerformanceFrequency(&f);
    return static_cast<double>(f.QuadPart);
  }();
  LARGE_INTEGER t;
  QueryPerformanceCounter(&t);
  return static_cast<double>(t.QuadPart) / per_second;
}

inline double now_ms() { return seconds() * 1e3; }
inline double now_us() { return seconds() * 1e6; }

}  // namespace bench
