// Clipboard, power, memory and shell.
#include <gtest/gtest.h>

#include <shlobj.h>

#include <cstring>
#include <vector>

#include "platform/clipboard.h"
#include "platform/memory.h"
#include "platform/power.h"
#include "platform/rt_error.h"
#include "platform/shell.h"

namespace wh {
namespace {

TEST(Clipboard, TextRoundTrip) {
  ASSERT_EQ(rt_ok, clipboard_set_text("line one\r\nline two"));
  std::string text = "stale";
  ASSERT_EQ(rt_ok, clipboard_get_text(text));
  EXPECT_EQ("line one\r\nline two", text);

  ASSERT_EQ(rt_ok, clipboard_set_text(""));
  ASSERT_EQ(rt_ok, clipboard_get_text(text));
  EXPECT_EQ("", text);

  {
    ClipboardLock lock;
    ASSERT_TRUE(lock.is_open());
    EXPECT_TRUE(empty_clipboard());
  }
  ASSERT_EQ(rt_ok, clipboard_get_text(text));
  EXPECT_EQ("", text) << "an empty clipboard has no text";
}

// Puts a recording hook in place for the test's scope.
class PowerHookTest : public ::testing::Test {
protected:
  void SetUp() override {
    previous_ = set_power_hook([this](const PowerCall& c) {
      calls_.push_back(c);
      SetLastError(last_error_);
      return answer_;
    });
  }
  void TearDown() override { set_power_hook(previous_); }

  std::vector<PowerCall> calls_;
  long answer_ = 1;
  DWORD last_error_ = 0;

private:
  PowerHook previous_;
};

TEST_F(PowerHookTest, ExitWindowsGoesThroughTheHook) {
  EXPECT_EQ(rt_ok, exit_windows(EWX_SHUTDOWN | EWX_FORCE));
  ASSERT_EQ(1u, calls_.size());
  EXPECT_EQ(PowerCall::exit_windows, calls_[0].kind);
  EXPECT_EQ(5u, calls_[0].flags);
  EXPECT_EQ(0u, calls_[0].reason);

  answer_ = 0;
  last_error_ = ERROR_PRIVILEGE_NOT_HELD;
  EXPECT_NE(rt_ok, exit_windows(5)) << "a refused call is an error";
}

TEST_F(PowerHookTest, NtShutdownGoesThroughTheHook) {
  answer_ = 0x1234;
  EXPECT_EQ(0x1234, nt_shutdown_system(2));
  ASSERT_EQ(1u, calls_.size());
  EXPECT_EQ(PowerCall::nt_shutdown_system, calls_[0].kind);
  EXPECT_EQ(2u, calls_[0].flags);
}

TEST(Power, ShutdownPrivilegeCanBeEnabled) {
  EXPECT_EQ(rt_ok, enable_shutdown_privilege());
}

TEST(Memory, StatusAndLockedBlock) {
  MemoryStatus m = memory_status();
  EXPECT_GT(m.total_phys, 0);
  EXPECT_LE(m.avail_phys, m.total_phys);
  EXPECT_LE(m.load, 100u);

  VirtualBlock block;
  ASSERT_EQ(rt_ok, block.allocate(65536));
  ASSERT_NE(nullptr, block.data());
  std::memset(block.data(), 0xAB, block.size());
  EXPECT_EQ(rt_ok, block.lock());
  block.release();
  EXPECT_EQ(nullptr, block.data());
  EXPECT_EQ(rt_object_not_set, block.lock());
}

TEST(Shell, SpecialFoldersAndExecutables) {
  std::string windows = special_folder_path(CSIDL_WINDOWS);
  EXPECT_EQ(0, lstrcmpiA("C:\\windows", windows.c_str())) << windows;
  EXPECT_FALSE(special_folder_path(CSIDL_APPDATA).empty());

  std::string exe;
  EXPECT_GT(find_executable("C:\\wh\\test_platform.exe", exe), 32);
  EXPECT_EQ(0, lstrcmpiA("C:\\wh\\test_platform.exe", exe.c_str())) << exe;
  EXPECT_LE(find_executable("C:\\wh\\no such file.txt", exe), 32);
  EXPECT_EQ("", exe);
}

}  // namespace
}  // namespace wh
