// Harrow All in the task manager, against a process list the test hands it:
// never the machine's own processes.
#include <gtest/gtest.h>

#include "core/globals.h"
#include "core/tasks.h"
#include "core/text.h"
#include "platform/files.h"
#include "support/test_form.h"
#include "system/task_page.h"

using namespace wh;
using Names = std::vector<std::string>;

namespace {

class ProbeTasks : public TaskPage {
public:
  using TaskPage::TaskPage;
  Names rows;    // what afis_tasks puts in List2
  Names killed;
  int refreshed = 0;
  void afis_tasks() override {
    ++refreshed;
    List2.Clear();
    // Position 0 is the idle process; row i is position i + 1.
    std::vector<ProcessEntry> snapshot{{"[System Process]", 0}};
    for (const std::string& r : rows) {
      List2.AddItem(r);
      snapshot.push_back({r, 1000 + static_cast<DWORD>(snapshot.size())});
    }
    active_process->assign(snapshot);
  }
  std::vector<uint32_t> pids;
  void killem(uint32_t pid, const std::string& row) override {
    killed.push_back(row);
    pids.push_back(pid);
  }
};

TEST(TaskPage, HarrowAllSparesTheSystemTheProgramAndTheFirstRow) {
  test::TestForm form;
  Frame& frame1 = form.add<Frame>("frame1", Place{0, 0, 10, 10});
  ProbeTasks page(form, frame1);
  active_process = std::make_unique<clsActiveProcess>();
  // Spared by name, in any case: "myexplorer.exe.old" holds "EXPLORER.EXE";
  // the program's own name only with ".exe".
  page.rows = {"notepad.exe", "c:\\windows\\system32\\kernel32.dll", "mprexe.exe",
               "Explorer.exe", "myexplorer.exe.old", ucase(app_exe_name()) + ".exe",
               "calc.exe", app_exe_name() + ".com", "explorer.com"};
  page.delall_block();
  EXPECT_EQ(1, page.refreshed) << "the list is read afresh first";
  EXPECT_EQ((Names{"calc.exe", app_exe_name() + ".com", "explorer.com"}), page.killed);
  EXPECT_EQ((std::vector<uint32_t>{1007, 1008, 1009}), page.pids) << "row 6 is snapshot position 7";

  page.rows = {"only.exe"};
  page.killed.clear();
  page.delall_block();
  EXPECT_TRUE(page.killed.empty()) << "with one row there is nothing to harrow";
  active_process.reset();
}

}  // namespace
