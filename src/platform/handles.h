#pragma once
// One owner for every kind of OS handle. The traits say what "no handle" is
// (Win32 is not consistent: CreateFile and FindFirstFile give
// INVALID_HANDLE_VALUE, most others NULL) and how to let go of it.
#include <windows.h>

#include <utility>

namespace wh {

template <class Traits>
class UniqueHandle {
public:
  using type = typename Traits::type;

  UniqueHandle() noexcept : h_(Traits::invalid()) {}
  explicit UniqueHandle(type h) noexcept : h_(h) {}
  UniqueHandle(UniqueHandle&& o) noexcept : h_(o.release()) {}
  UniqueHandle& operator=(UniqueHandle&& o) noexcept {
    if (this != &o) reset(o.release());
    return *this;
  }
  UniqueHandle(const UniqueHandle&) = delete;
  UniqueHandle& operator=(const UniqueHandle&) = delete;
  ~UniqueHandle() { reset(); }

  type get() const noexcept { return h_; }
  bool valid() const noexcept { return h_ != Traits::invalid(); }
  explicit operator bool() const noexcept { return valid(); }

  type release() noexcept { return std::exchange(h_, Traits::invalid()); }
  void reset(type h = Traits::invalid()) noexcept {
    type old = std::exchange(h_, h);
    if (old != Traits::invalid()) Traits::close(old);
  }
  // For APIs that hand a handle back through a pointer.
  type* put() noexcept {
    reset();
    return &h_;
  }

private:
  type h_;
};

// Processes, threads, mutexes, tokens: NULL when absent.
struct KernelHandleTraits {
  using type = HANDLE;
  static HANDLE invalid() noexcept { return nullptr; }
  static void close(HANDLE h) noexcept { ::CloseHandle(h); }
};

// CreateFileA, CreateToolhelp32Snapshot: INVALID_HANDLE_VALUE when absent.
struct FileHandleTraits {
  using type = HANDLE;
  static HANDLE invalid() noexcept { return INVALID_HANDLE_VALUE; }
  static void close(HANDLE h) noexcept { ::CloseHandle(h); }
};

struct FindHandleTraits {
  using type = HANDLE;
  static HANDLE invalid() noexcept { return INVALID_HANDLE_VALUE; }
  static void close(HANDLE h) noexcept { ::FindClose(h); }
};

struct KeyHandleTraits {
  using type = HKEY;
  static HKEY invalid() noexcept { return nullptr; }
  // Closing a predefined root key is a harmless no-op, so no special case.
  static void close(HKEY h) noexcept { ::RegCloseKey(h); }
};

struct ModuleHandleTraits {
  using type = HMODULE;
  static HMODULE invalid() noexcept { return nullptr; }
  static void close(HMODULE h) noexcept { ::FreeLibrary(h); }
};

using KernelHandle = UniqueHandle<KernelHandleTraits>;
using FileHandle = UniqueHandle<FileHandleTraits>;
using FindHandle = UniqueHandle<FindHandleTraits>;
using KeyHandle = UniqueHandle<KeyHandleTraits>;
using ModuleHandle = UniqueHandle<ModuleHandleTraits>;

}  // namespace wh
