#pragma once
// Stand-in for the file-system object in the native fuzz build: the few
// members the fuzzed routines call, over an in-memory set of folders. It is
// found ahead of src/platform/fso.h on the include path of tests/fuzz only.
#include <string>

namespace wh {

class FileSystemObject {
public:
  // True for the folders of the stand-in's small fixed tree (any case).
  bool FolderExists(const std::string& path) const;
  // The text before the last component, separators trimmed; "" for a root.
  std::string GetParentFolderName(const std::string& path) const;
};

FileSystemObject& file_system();

}  // namespace wh
