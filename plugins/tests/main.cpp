// The pack's tests. Started as `test_plugins hold <file>`, the binary is the
// other process that holds a file open for them.
#include <windows.h>
#include <shellapi.h>

#include <gtest/gtest.h>

#include "pack_support.h"

int main(int argc, char** argv) {
  int count = 0;
  wchar_t** args = CommandLineToArgvW(GetCommandLineW(), &count);
  if (args && count == 3 && lstrcmpW(args[1], L"hold") == 0) return pack_test::hold_main(args[2]);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
