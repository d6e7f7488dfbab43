// The test prefix must be a fresh one, cut off from the host.
#include <windows.h>

#include <gtest/gtest.h>

TEST(Sandbox, HostRootIsNotReachable) {
  EXPECT_EQ(DRIVE_NO_ROOT_DIR, GetDriveTypeA("Z:\\"));
  EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA("Z:\\etc\\passwd"));
  // The only drive is the prefix's own C:.
  DWORD drives = GetLogicalDrives();
  EXPECT_TRUE(drives & (1u << 2));
  EXPECT_FALSE(drives & (1u << 25));
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
