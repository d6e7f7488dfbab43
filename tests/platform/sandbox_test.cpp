// The test prefix must be a fresh one, cut off from the host.
#include <windows.h>

#include <shellapi.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "support/scratch.h"

namespace {

using wh::test::path_exists;

struct BinState {
  HRESULT hr;
  long long bytes;
  long long items;
};

BinState query_bin() {
  SHQUERYRBINFO info{};
  info.cbSize = sizeof info;
  HRESULT hr = SHQueryRecycleBinA(nullptr, &info);
  return {hr, static_cast<long long>(info.i64Size), static_cast<long long>(info.i64NumItems)};
}

// Wine still reaches host paths through "\\?\unix\..." when Z: is gone.
std::string from_unix(std::string path) {
  for (char& c : path)
    if (c == '/') c = '\\';
  return "\\\\?\\unix" + path;
}

}  // namespace

TEST(Sandbox, HostRootIsNotReachable) {
  EXPECT_EQ(DRIVE_NO_ROOT_DIR, GetDriveTypeA("Z:\\"));
  EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA("Z:\\etc\\passwd"));
  EXPECT_FALSE(GetLogicalDrives() & (1u << 25));
}

TEST(Sandbox, PrefixIsNewEachRun) {
  // A mark that only an earlier run in the same prefix could have left.
  HKEY k = nullptr;
  const char* path = "Software\\WellharrowerTestRun";
  LONG opened = RegOpenKeyExA(HKEY_CURRENT_USER, path, 0, KEY_READ, &k);
  if (opened == ERROR_SUCCESS) RegCloseKey(k);
  EXPECT_NE(ERROR_SUCCESS, opened) << "the prefix was used before";
  ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyA(HKEY_CURRENT_USER, path, &k));
  RegCloseKey(k);
}

// Wine's recycle bin is the desktop trash under $XDG_DATA_HOME. test.sh moves
// that into the build tree and leaves a trashed file in the host's own trash;
// emptying the bin must leave it there.
TEST(Sandbox, RecycleBinIsNotTheHostTrash) {
  const char* marker = std::getenv("WH_HOST_TRASH_MARKER");
  if (!marker || !*marker)
    GTEST_SKIP() << "WH_HOST_TRASH_MARKER is unset (scripts/test.sh sets it): without the "
                    "harness the bin may be the host's trash, and is left alone";
  const std::string host_marker = from_unix(marker);
  ASSERT_TRUE(path_exists(host_marker)) << "the marker is out of reach: " << host_marker;

  // Whatever is in the bin now is not this test's to empty; with a bin that
  // were the host's trash, the marker alone would stop the test here.
  BinState before = query_bin();
  ASSERT_EQ(S_OK, before.hr);
  ASSERT_EQ(0, before.items) << "a fresh prefix's bin is not empty: is it the host's trash?";

  wh::test::ScratchDir dir("recycle");
  const std::string file = dir.file("junk.txt", "hello world 12345");
  const std::string from = file + '\0';  // the list ends with two NULs
  SHFILEOPSTRUCTA op{};
  op.wFunc = FO_DELETE;
  op.pFrom = from.c_str();
  op.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
  ASSERT_EQ(0, SHFileOperationA(&op));
  EXPECT_FALSE(path_exists(file));

  BinState filled = query_bin();
  EXPECT_EQ(17, filled.bytes);
  ASSERT_EQ(1, filled.items) << "the file did not reach the bin, or it holds more than it";

  EXPECT_EQ(S_OK, SHEmptyRecycleBinA(nullptr, nullptr,
                                     SHERB_NOCONFIRMATION | SHERB_NOPROGRESSUI | SHERB_NOSOUND));
  const BinState emptied = query_bin();
  EXPECT_EQ(0, emptied.bytes + emptied.items);
  EXPECT_TRUE(path_exists(host_marker)) << "emptying the bin removed a file of the host's trash";
}
