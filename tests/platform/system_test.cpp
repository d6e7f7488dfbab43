// Power, memory and shell.
#include <gtest/gtest.h>

#include <shlobj.h>

#include <vector>

#include "platform/memory.h"
#include "platform/power.h"
#include "platform/rt_error.h"
#include "platform/shell.h"

namespace wh {
namespace {

// The NT call through the hook: tests/monitor's power-off test.
TEST(Power, ExitWindowsGoesThroughTheHookAndARefusalIsAnError) {
  std::vector<PowerCall> calls;
  long answer = 1;
  PowerHook previous = set_power_hook([&](const PowerCall& c) {
    calls.push_back(c);
    SetLastError(ERROR_PRIVILEGE_NOT_HELD);
    return answer;
  });
  EXPECT_EQ(rt_ok, exit_windows(EWX_SHUTDOWN | EWX_FORCE));
  ASSERT_EQ(1u, calls.size());
  EXPECT_EQ(PowerCall::exit_windows, calls[0].kind);
  EXPECT_EQ(5u, calls[0].flags);
  answer = 0;
  EXPECT_NE(rt_ok, exit_windows(5));
  set_power_hook(previous);
  EXPECT_EQ(rt_ok, enable_shutdown_privilege());
}

TEST(Memory, Status) {
  MemoryStatus m = memory_status();
  EXPECT_GT(m.total_phys, 0);
  EXPECT_LE(m.avail_phys, m.total_phys);
  EXPECT_LE(m.load, 100u);
}

TEST(Shell, SpecialFoldersAndExecutables) {
  std::string windows = special_folder_path(CSIDL_WINDOWS);
  EXPECT_EQ(0, lstrcmpiA("C:\\windows", windows.c_str())) << windows;
  std::string exe;
  EXPECT_GT(find_executable("C:\\wh\\test_platform.exe", exe), 32);
  EXPECT_EQ(0, lstrcmpiA("C:\\wh\\test_platform.exe", exe.c_str())) << exe;
  EXPECT_LE(find_executable("C:\\wh\\no such file.txt", exe), 32);
  EXPECT_EQ("", exe);
}

}  // namespace
}  // namespace wh
