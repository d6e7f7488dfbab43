#pragma once
// Scratch places for tests that touch the real file system and registry.
// Each starts empty (leftovers of an aborted run are removed first) and is
// removed again when the test ends. They use plain Win32 calls only, so they
// stay trustworthy while the platform layer itself is under test.
#include <windows.h>

#include <string>
#include <vector>

namespace wh::test {

// C:\wh\scratch\<name>
class ScratchDir {
public:
  explicit ScratchDir(const std::string& name);
  ~ScratchDir();
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;

  const std::string& path() const { return path_; }
  // path() + "\" + relative
  std::string operator/(const std::string& relative) const;
  // Makes a file (and its folders) with the given bytes; returns its path.
  std::string file(const std::string& relative, const std::string& bytes = {}) const;
  // Makes a folder (and its parents); returns its path.
  std::string folder(const std::string& relative) const;

private:
  std::string path_;
};

// HKEY_CURRENT_USER\Software\WhTest\<name>
class ScratchKey {
public:
  explicit ScratchKey(const std::string& name);
  ~ScratchKey();
  ScratchKey(const ScratchKey&) = delete;
  ScratchKey& operator=(const ScratchKey&) = delete;

  HKEY hive() const { return HKEY_CURRENT_USER; }
  // The subkey path under hive(), e.g. "Software\WhTest\name".
  const std::string& subkey() const { return subkey_; }
  // An open handle to the key itself.
  HKEY key() const { return key_; }

private:
  std::string subkey_;
  HKEY key_ = nullptr;
};

// Whole file as bytes; empty when it cannot be read.
std::string read_file(const std::string& path);
void write_file(const std::string& path, const std::string& bytes);
// A file of `size` bytes that takes no room: Wine extends it with ftruncate,
// so the host leaves the gap unallocated. True when it has that length.
bool sparse_file(const std::string& path, long long size);
bool path_exists(const std::string& path);
// The names in a folder, sorted; none when it cannot be listed.
std::vector<std::string> names_in(const std::string& folder);
// Removes a tree, clearing read-only and friends on the way.
void remove_tree(const std::string& path);

}  // namespace wh::test
