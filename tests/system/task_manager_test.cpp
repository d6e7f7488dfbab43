// The task manager on real processes and windows that the tests start
// themselves (copies of a small window program under names of their own):
// the single delete, the shell's names, ALT+F4 for shell folder windows,
// the window table and Timer1 keeping the selections.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/globals.h"
#include "core/tasks.h"
#include "platform/processes.h"
#include "support/scratch.h"
#include "support/test_form.h"
#include "system/task_page.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::row_of;
using wh::test::ScratchDir;

namespace {

bool alive(DWORD pid) {
  HANDLE h = OpenProcess(SYNCHRONIZE, FALSE, pid);
  if (!h) return false;
  const bool running = WaitForSingleObject(h, 0) == WAIT_TIMEOUT;
  CloseHandle(h);
  return running;
}

// Waits for a state the test made, not for a time: a process that ends or a
// window that comes or goes.
template <class F>
bool eventually(F&& done) {
  for (int i = 0; i < 250; ++i) {
    if (done()) return true;
    do_events();
    Sleep(20);
  }
  return done();
}

class TaskManagerTest : public ::testing::Test {
protected:
  ScratchDir dir{"tasks"};
  test::TestForm form;
  Frame& frame1 = form.add<Frame>("frame1", Place{0, 0, 10, 10});
  TaskPage page{form, frame1};
  std::vector<DWORD> started;

  void SetUp() override {
    task_list = std::make_unique<clsApplicazioni>();
    active_process = std::make_unique<clsActiveProcess>();
    ActiveSection = 0;
  }
  void TearDown() override {
    for (DWORD pid : started)
      if (alive(pid)) terminate_process_wait(pid, 0, 5000);
    task_list.reset();
    active_process.reset();
    ActiveSection = 0;
  }

  // A copy of the window program named `exe`, showing `title`.
  DWORD start(const std::string& exe, const std::string& title) {
    const std::string path = dir / exe;
    CopyFileA("C:\\wh\\whwindow.exe", path.c_str(), FALSE);
    ProcessResult r;
    EXPECT_EQ(0, create_process("\"" + path + "\" " + title, false, r));
    started.push_back(r.pid);
    EXPECT_TRUE(eventually([&] { return FindWindowA("WhTestWindow", title.c_str()) != nullptr; }));
    return r.pid;
  }

  // Rows by the process number in their ItemData.
  int row_of_pid(DWORD pid) {
    for (int row = 0; row < page.List2.ListCount(); ++row)
      if (static_cast<DWORD>(page.List2.ItemData(row)) == pid) return row;
    return -1;
  }
  void refresh() {
    page.afis_tasks();
    task_list->List3 = &page.List3;
    task_list->RefreshTaskList(form.hwnd(), true);
  }
};

// Names in any script: "țară" in the program's, "Școală", "学校" and an
// emoji in the window's title.
TEST_F(TaskManagerTest, ListsProcessesWithTheirNumbersAndTitledWindowsButNotOurOwn) {
  const std::string exe = "whtask_\xC8\x9B" "ar\xC4\x83.exe";
  const std::string title =
      "WhTest \xC8\x98" "coal\xC4\x83 \xE5\xAD\xA6\xE6\xA0\xA1 \xF0\x9F\x98\x80";
  const DWORD pid = start(exe, title);
  page.enter();
  ASSERT_EQ(ActiveSection, 2);
  const int row = row_of_pid(pid);
  ASSERT_GE(row, 0);
  EXPECT_EQ(page.List2.List(row), exe);
  EXPECT_EQ(active_process->th32ProcessID(row + 1), pid) << "the idle row is gone";
  EXPECT_EQ(row_of(page.List2, "[System Process]"), -1);
  EXPECT_GE(row_of(page.List3, title), 0) << "the title whole in the window list";
  EXPECT_EQ(task_list->NumTasks(), page.List3.ListCount());
  for (const auto& win : task_list->windows) EXPECT_NE(win.hwnd, form.hwnd());
}

TEST_F(TaskManagerTest, DeleteEndsTheSelectedProcessesEvenTheShellsName) {
  const DWORD plain = start("whtask_a.exe", "WhTest a");
  const DWORD shell = start("EXPLORER.EXE", "WhTest shell");
  const DWORD other = start("whtask_b.exe", "WhTest b");
  page.enter();
  page.List2.Selected(row_of_pid(plain), true);
  page.List2.Selected(row_of_pid(shell), true);
  page.del_block();
  EXPECT_TRUE(eventually([&] { return !alive(plain) && !alive(shell); }));
  EXPECT_TRUE(alive(other));
  EXPECT_EQ(form.calls.back(), "ref_Click");
  EXPECT_EQ(row_of_pid(plain), -1) << "the list is read again";
}

TEST_F(TaskManagerTest, TheSingleDeleteProtectsByContainment) {
  for (const char* name : {"kernel32.dll", "MPREXE", "32.DLL", "c:\\win\\mprexe.exe"})
    EXPECT_TRUE(TaskPage::protected_from_delete(name)) << name;
  for (const char* name : {"explorer.exe", "kernel32.exe"})
    EXPECT_FALSE(TaskPage::protected_from_delete(name)) << name;

  const DWORD kept = start("MPREXE.EXE", "WhTest mprexe");
  page.enter();
  page.List2.Selected(row_of_pid(kept), true);
  page.del_block();
  EXPECT_TRUE(alive(kept));
}

TEST_F(TaskManagerTest, ShellFolderWindowsGetAltF4AndTheirProcessLivesButNotInRomanian) {
  const DWORD path_pid = start("whtask_path.exe", "C:\\wh\\scratch\\tasks");
  const DWORD docs_pid = start("whtask_docs.exe", "mY DoCuMeNtS");
  for (const char* title : {"C:\\wh\\scratch\\tasks", "mY DoCuMeNtS"}) {
    refresh();
    page.List3.Selected(row_of(page.List3, title), true);
    page.del_block();
    EXPECT_TRUE(eventually([&] { return FindWindowA("WhTestWindow", title) == nullptr; })) << title;
  }
  EXPECT_TRUE(alive(path_pid));
  EXPECT_TRUE(alive(docs_pid));

  // A Romanian shell title is not recognised: its process is ended.
  const DWORD ro_pid = start("whtask_ro.exe", "Documentele mele");
  refresh();
  page.List3.Selected(row_of(page.List3, "Documentele mele"), true);
  page.del_block();
  EXPECT_TRUE(eventually([&] { return !alive(ro_pid); }));
  EXPECT_TRUE(alive(path_pid));
  EXPECT_EQ(row_of(page.List3, "Documentele mele"), -1);
}

TEST_F(TaskManagerTest, Timer1KeepsTheSelectedPositionsOnlyInSectionTwo) {
  start("whtask_t.exe", "WhTest timer");
  page.enter();
  const int count2 = page.List2.ListCount();
  page.List2.Selected(0, true);
  page.List2.Selected(count2 - 1, true);
  const int w = row_of(page.List3, "WhTest timer");
  page.List3.Selected(w, true);
  page.Timer1_Timer();
  EXPECT_TRUE(page.List2.Selected(0));
  EXPECT_TRUE(page.List2.Selected(count2 - 1) || page.List2.ListCount() < count2);
  EXPECT_TRUE(page.List3.Selected(w));
  EXPECT_EQ(page.List2.SelCount() + page.List3.SelCount(), 3);

  // Elsewhere the tick reads nothing.
  ActiveSection = 8;
  page.List2.Clear();
  page.Timer1_Timer();
  EXPECT_EQ(page.List2.ListCount(), 0);
}

TEST_F(TaskManagerTest, ARefusedEndOfAServiceStopsItWithNetStop) {
  const std::string exe = dir / "whsvc_k.exe";
  ASSERT_TRUE(CopyFileA("C:\\wh\\whservice.exe", exe.c_str(), FALSE));
  SC_HANDLE scm = OpenSCManagerA(nullptr, nullptr, SC_MANAGER_ALL_ACCESS);
  ASSERT_NE(scm, nullptr);
  // Wine's net takes the key name only, so the display name is the same.
  SC_HANDLE svc = CreateServiceA(scm, "WhTestSvc", "WhTestSvc", SERVICE_ALL_ACCESS,
                                 SERVICE_WIN32_OWN_PROCESS, SERVICE_DEMAND_START,
                                 SERVICE_ERROR_IGNORE, exe.c_str(), nullptr, nullptr, nullptr,
                                 nullptr, nullptr);
  ASSERT_NE(svc, nullptr) << GetLastError();
  SERVICE_STATUS st{};
  auto state = [&] {
    QueryServiceStatus(svc, &st);
    return st.dwCurrentState;
  };
  ASSERT_TRUE(StartServiceA(svc, 0, nullptr));
  EXPECT_TRUE(eventually([&] { return state() == SERVICE_RUNNING; }));

  // A number no process has: the end is refused, the walk finds the
  // service by its file's name and stops it.
  wh::killem(0xFFFFFFF0u, "WHSVC_K.EXE");
  EXPECT_TRUE(eventually([&] { return state() == SERVICE_STOPPED; }));

  if (state() != SERVICE_STOPPED) ControlService(svc, SERVICE_CONTROL_STOP, &st);
  DeleteService(svc);
  CloseServiceHandle(svc);
  CloseServiceHandle(scm);
}

}  // namespace
