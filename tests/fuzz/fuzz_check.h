#pragma once
// A broken expectation inside a fuzz target: said on stderr, then abort(),
// which libFuzzer reports as a crash with the input saved.
#include <cstdio>
#include <cstdlib>

#define FUZZ_EXPECT(cond) \
  ((cond) ? void(0) : wh_fuzz_fail(#cond, __FILE__, __LINE__))

[[noreturn]] inline void wh_fuzz_fail(const char* what, const char* file, int line) {
  std::fprintf(stderr, "expectation failed: %s (%s:%d)\n", what, file, line);
  std::abort();
}
