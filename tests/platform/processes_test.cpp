#include "platform/processes.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/rt_error.h"

namespace wh {
namespace {

// The snapshot, names and numbers: tests/system's task manager test.
TEST(Processes, ChildExitCodeWhenWaited) {
  ProcessResult r;
  ASSERT_EQ(rt_ok, create_process("C:\\windows\\system32\\cmd.exe /c exit 3", true, r));
  EXPECT_NE(0u, r.pid);
  EXPECT_EQ(3u, r.exit_code);
  EXPECT_EQ(rt_file_not_found, create_process("C:\\windows\\no_such_program.exe", true, r));
}

TEST(SingleInstanceTest, SecondHolderSeesTheFirst) {
  std::string name = "WhTestMutex" + std::to_string(GetCurrentProcessId());
  {
    SingleInstance first(name);
    EXPECT_FALSE(first.previous_instance());
    SingleInstance second(name);
    EXPECT_TRUE(second.previous_instance());
  }
  SingleInstance again(name);
  EXPECT_FALSE(again.previous_instance()) << "released with its holders";
}

TEST(CommandTail, WhatFollowsTheProgramName) {
  EXPECT_EQ("\"D:\\x y\\f.txt\"", command_tail_of("\"C:\\Program Files\\wh.exe\" \"D:\\x y\\f.txt\""));
  EXPECT_EQ("start", command_tail_of("C:\\wh\\wh.exe start"));
  EXPECT_EQ(" two  blanks ", command_tail_of("wh.exe  two  blanks ")) << "only one blank goes";
  EXPECT_EQ("X", command_tail_of("\"C:\\wh.exe\"X"));
  EXPECT_EQ("", command_tail_of("wh.exe"));
  EXPECT_EQ("", command_tail_of("\"C:\\Program Files\\wh.exe\""));
  EXPECT_EQ("", command_tail_of("\"C:\\unclosed quote.exe arg"));
  EXPECT_EQ("", command_tail_of(""));
}

TEST(Modules, ExportsAndAMissingLibrary) {
  EXPECT_TRUE(version_is_nt());
  Module kernel("kernel32.dll");
  using TickFn = DWORD(WINAPI*)();
  auto tick = kernel.proc_as<TickFn>("GetTickCount");
  ASSERT_NE(nullptr, tick);
  EXPECT_NE(0u, tick());
  EXPECT_EQ(nullptr, kernel.proc("NoSuchExport"));
  Module missing;
  EXPECT_EQ(rt_file_not_found, missing.load("no_such_library.dll"));
  EXPECT_EQ(nullptr, missing.proc("DllRegisterServer"));
}

}  // namespace
}  // namespace wh
