// The Chromium plug-in's RUN over the caches of the prefix's browsers, made
// and called as the program makes and calls it (class name, late-bound RUN).
//   bench_chromium_plugin <Chromium.dll> <a profile it cleans> [<same caches again>]
// Registers the DLL, times one RUN, checks that the profile's caches are
// gone, unregisters it. Prints "figure chromium_run <ms> ms"; with a second
// copy of the caches, also the time of a plain FindFirstFileA / DeleteFileA /
// RemoveDirectoryA walk of it ("figure plain_delete"): Wine's own floor.
#include <windows.h>
#include <objbase.h>

#include <cstdio>
#include <string>

#include "bench_clock.h"
#include "plain_walks.h"
#include "platform/automation.h"
#include "platform/rt_error.h"

namespace {


HRESULT self_register(const char* dll, bool do_register) {
  HMODULE module = LoadLibraryA(dll);
  if (!module) return E_FAIL;
  using Entry = HRESULT(WINAPI*)();
  auto entry = reinterpret_cast<Entry>(reinterpret_cast<void*>(
      GetProcAddress(module, do_register ? "DllRegisterServer" : "DllUnregisterServer")));
  const HRESULT result = entry ? entry() : E_FAIL;
  FreeLibrary(module);
  return result;
}

bool exists(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::printf("usage: bench_chromium_plugin <Chromium.dll> <profile> [<copy>]\n");
    return 1;
  }
  const std::string profile = argv[2];
  if (self_register(argv[1], true) != S_OK) {
    std::printf("%s: no registration\n", argv[1]);
    return 1;
  }
  wh::AutomationObject plugin;
  double t0 = bench::now_ms();
  const bool ran = plugin.create("Chromium.Plugin") == wh::rt_ok && plugin.call("RUN") == wh::rt_ok;
  const double t = bench::now_ms() - t0;
  plugin.release();
  CoFreeUnusedLibrariesEx(0, 0);
  self_register(argv[1], false);
  bool left = false;
  for (const char* cache : {"\\Cache", "\\Code Cache", "\\GPUCache", "\\Service Worker\\CacheStorage"})
    left = left || exists(profile + cache);
  std::printf("%s: %s\n", profile.c_str(),
              !ran ? "RUN failed" : left ? "caches were left" : "caches removed");
  std::printf("figure chromium_run %.3f ms\n", t);
  if (argc > 3 && exists(argv[3])) {
    double p0 = bench::now_ms();
    plain::delete_tree(argv[3]);
    std::printf("figure plain_delete %.3f ms\n", bench::now_ms() - p0);
  }
  return ran && !left ? 0 : 1;
}
