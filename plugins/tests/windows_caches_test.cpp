// The plug-ins for Windows' own caches on the real folders of the prefix:
// Explorer's thumbnail and icon caches (held ones scheduled for the next
// start), the error reports of the machine and of the user, the shader
// caches, the crash dumps.
#include <windows.h>

#include <gtest/gtest.h>

#include "pack_support.h"
#include "support/pending.h"

using namespace pack_test;
using Lines = std::vector<std::string>;

namespace {

class WindowsCaches : public ::testing::Test {
protected:
  std::wstring local = local_appdata();
  Pack pack;
  Made made;
  Expect expect{made};
};

TEST_F(WindowsCaches, ExplorersCachesGoAndWhatExplorerHoldsGoesAtTheNextStart) {
  const std::wstring explorer = local + L"\\Microsoft\\Windows\\Explorer";
  for (const wchar_t* cache : {L"thumbcache_32.db", L"thumbcache_idx.db", L"thumbcache_sr.db",
                               L"iconcache_16.db", L"IconCache_48.db"})
    expect.gone(explorer + L"\\" + cache);
  for (const wchar_t* other : {L"ExplorerStartupLog.etl", L"thumbcache_32.db.bak", L"mythumbcache_1.db",
                               L"iconcache.dat", L"thumbcache_old\\thumbcache_1.db"})
    expect.keep(explorer + L"\\" + other);
  const std::wstring held = made.file(explorer + L"\\thumbcache_256.db", "in use");
  EXPECT_EQ((Lines{"Explorer's caches", "thumbnails, icons", "6 files, 2 KB", "what is in use goes",
                   "at the next start"}),
            describe(L"ExplorerCache"));

  const std::string pending = wh::test::pending_operations();
  {
    Holder explorer_holds(held);
    ASSERT_TRUE(explorer_holds.holding());
    ASSERT_FALSE(scheduled(held));
    EXPECT_TRUE(run(L"ExplorerCache"));
  }

  expect.check();
  EXPECT_EQ("in use", read(held));
  EXPECT_TRUE(scheduled(held));
  // Nothing else of the folder is in the list.
  const std::string now = wh::test::pending_operations(), folder = utf8(explorer);
  EXPECT_EQ(now.find(folder), now.rfind(folder));
  wh::test::restore_pending(pending);
}

// Error reports of the machine and of the user, shader caches, crash dumps:
// what is in them goes, the folders and their neighbours stay.
TEST_F(WindowsCaches, ReportsShaderCachesAndCrashDumpsAreEmptiedAndTheirFoldersStay) {
  std::vector<std::wstring> emptied;
  for (const std::wstring& root : {program_data(), local}) {
    const std::wstring wer = root + L"\\Microsoft\\Windows\\WER";
    for (const wchar_t* store : {L"ReportArchive", L"ReportQueue"}) {
      emptied.push_back(wer + L"\\" + store);
      expect.gone(emptied.back() + L"\\AppCrash_game.exe_3f2a\\Report.wer");
      expect.gone(emptied.back() + L"\\AppCrash_game.exe_3f2a\\memory.hdmp");
      expect.gone(emptied.back() + L"\\Critical_editor.exe_77\\Report.wer");
    }
    expect.keep(wer + L"\\Temp\\keep.xml");
    expect.keep(wer + L"\\ERC\\statecache.lock");
  }
  for (const wchar_t* cache :
       {L"D3DSCache", L"NVIDIA\\DXCache", L"NVIDIA\\GLCache", L"AMD\\DxCache", L"CrashDumps"}) {
    emptied.push_back(local + L"\\" + cache);
    expect.gone(emptied.back() + L"\\6f2b\\game.idx");
    expect.gone(emptied.back() + L"\\6f2b\\game.val");
  }
  expect.keep(local + L"\\NVIDIA\\NvBackend\\settings.json");
  expect.keep(local + L"\\AMD\\CN\\gmdb.blb");
  expect.keep(local + L"\\D3DSCache.txt");
  EXPECT_EQ("8 reports, 4 KB", describe(L"ErrorReports").back());
  EXPECT_EQ((Lines{"  Shader caches", "DirectX NVIDIA AMD", "8 files, 3 KB", "made again as", "needed"}),
            describe(L"ShaderCache"));

  for (const wchar_t* plugin : {L"ErrorReports", L"ShaderCache", L"CrashDumps"})
    ASSERT_TRUE(run(plugin)) << utf8(plugin);

  expect.check();
  for (const std::wstring& folder : emptied) {
    EXPECT_TRUE(exists(folder)) << utf8(folder);
    EXPECT_TRUE(names_in(folder).empty()) << utf8(folder);
  }
  EXPECT_EQ("0 reports", describe(L"ErrorReports").back());
  EXPECT_EQ("0 files", describe(L"ShaderCache")[2]);
}

}  // namespace
