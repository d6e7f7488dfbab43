// Category 18 in a test binary of its own: it stops the prefix's Explorer,
// after which this process has no tray (Wine starts a new one for the next
// process that comes from outside).
#include <windows.h>
#include <wininet.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "cleaning/index_files.h"
#include "cleaning/junk_state.h"
#include "core/kill_process.h"
#include "core/routines.h"
#include "filetools/shredder.h"
#include "platform/processes.h"
#include "support/pending.h"
#include "support/scratch.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::read_file;
using wh::test::pending_operations;
using wh::test::restore_pending;
using wh::test::ScratchDir;

namespace {

// Under its short name when the file still stood at the time, else as is.
bool scheduled(const std::string& pending, const std::string& path) {
  auto has = [&](const std::string& p) {
    return pending.find("\\??\\" + p + std::string(1, '\0')) != std::string::npos;
  };
  return has(path) || has(short_path(path));
}

int explorers() {
  std::vector<ProcessEntry> all;
  process_snapshot(all);
  int n = 0;
  for (const ProcessEntry& p : all)
    if (lstrcmpiA(p.exe.c_str(), "explorer.exe") == 0) ++n;
  return n;
}

TEST(IndexFiles, KillByNameMatchesTheBaseNameWithoutExe) {
  // "explorer.exe" itself never matches: the name is compared without ".EXE".
  const int before = explorers();
  kill_process_by_name("explorer.exe");
  kill_process_by_name("xplorer");
  EXPECT_EQ(before, explorers());
}

TEST(IndexFiles, OverwrittenScheduledHistoryEmptiedExplorerStopped) {
  // Any cache call makes the prefix's three index files.
  FILETIME ft{};
  for (auto [url, type] : {std::pair{"Visited: user@http://index.example/", URLHISTORY_CACHE_ENTRY},
                          {"http://index.example/", 0}, {"Cookie:user@index.example/", COOKIE_CACHE_ENTRY}})
    CommitUrlCacheEntryA(url, nullptr, ft, ft, type | NORMAL_CACHE_ENTRY, nullptr, 0, nullptr, nullptr);
  cache_folder = special_folder(0x20);
  cookies_folder = special_folder(0x21);
  history_folder = special_folder(0x22);
  ScratchDir temp("indextemp");
  temp_folder = temp.path();
  const std::vector<std::string> index = {cache_folder + "\\Content.IE5\\index.dat",
                                          history_folder + "\\History.IE5\\index.dat",
                                          cookies_folder + "\\index.dat"};
  for (const std::string& f : index) ASSERT_TRUE(path_exists(f)) << f;
  const std::string before_bytes = read_file(index[1]);

  // Other files of the history tree, at both levels.
  const std::string note = history_folder + "\\note.txt";
  const std::string deep = history_folder + "\\History.IE5\\MSHist01\\day.txt";
  CreateDirectoryA((history_folder + "\\History.IE5\\MSHist01").c_str(), nullptr);
  wh::test::write_file(note, "n");
  wh::test::write_file(deep, "d");
  // A Temporary Internet Files tree under the temporary folder, as 9x had.
  const std::string old_cache =
      temp.file("Temporary Internet Files\\Content.IE5\\index.dat", std::string(600, 'c'));

  if (explorers() == 0) {  // the desktop process, started if no window made it yet
    ProcessResult started;
    create_process("explorer.exe", false, started);
    for (int i = 0; i < 100 && explorers() == 0; ++i) Sleep(20);
  }
  ASSERT_GT(explorers(), 0);
  ASSERT_FALSE(path_exists("c:\\temp"));
  const std::string pending_before = pending_operations();

  std::vector<std::string> shredded;
  clean_index_files(
      [&](const std::string& path, uint8_t passes) {
        shredded.push_back(path);
        EXPECT_EQ(1, passes);
        shred_file(path, passes, true);
      },
      true);
  const std::string pending = pending_operations();
  restore_pending(pending_before);

  // Each one overwritten once (or found locked) and scheduled.
  for (const std::string& f : index) {
    EXPECT_EQ(1, std::count(shredded.begin(), shredded.end(), f)) << f;
    EXPECT_TRUE(scheduled(pending, f)) << f;
    if (path_exists(f) && f == index[1]) {
      EXPECT_NE(before_bytes, read_file(f));
    }
  }
  for (const std::string& gone : {old_cache, note, deep}) EXPECT_FALSE(path_exists(gone)) << gone;
  EXPECT_EQ(0, explorers());
  EXPECT_FALSE(path_exists("c:\\temp"));
  // The second spelling of step 4 lacks its backslash.
  EXPECT_NE(std::string::npos, pending.find("indextempHistory"));
}

}  // namespace
