// The cleaning run of section 8: the canary (junk goes, every bystander
// stays byte for byte), a locked file, a folder of hidden files, and the
// boxes and labels after a run.
#include <windows.h>

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "cleaning/cleaner.h"
#include "core/routines.h"
#include "junk_support.h"
#include "support/pending.h"

using namespace wh;
using wh::test::JunkShared;
using wh::test::JunkWorld;
using wh::test::path_exists;
using wh::test::read_file;
using wh::test::remove_tree;
using wh::test::ScratchDir;
using wh::test::TestForm;
using wh::test::write_file;

namespace {

// "test_cleaning.exe --hold <file>": opens the file with no sharing at all,
// says so with <file>.held, and waits to be killed. Runs before gtest.
const bool holder_mode = [] {
  std::string line = GetCommandLineA();
  size_t at = line.find(" --hold ");
  if (at == std::string::npos) return false;
  std::string file = line.substr(at + 8);
  HANDLE h = CreateFileA(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (h != INVALID_HANDLE_VALUE) write_file(file + ".held", "");
  Sleep(INFINITE);
  return true;
}();

// Another process holding a file open without delete sharing.
class Holder {
public:
  explicit Holder(const std::string& file) {
    char exe[MAX_PATH];
    GetModuleFileNameA(nullptr, exe, sizeof exe);
    std::string cmd = std::string("\"") + exe + "\" --hold " + file;
    STARTUPINFOA si{};
    si.cb = sizeof si;
    if (!CreateProcessA(nullptr, cmd.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si,
                        &pi_))
      return;
    // Readiness, not time: the marker appears once the file is open.
    for (int i = 0; i < 500 && !path_exists(file + ".held"); ++i) Sleep(20);
    held_ = path_exists(file + ".held");
    DeleteFileA((file + ".held").c_str());
  }
  ~Holder() {
    if (!pi_.hProcess) return;
    TerminateProcess(pi_.hProcess, 0);
    WaitForSingleObject(pi_.hProcess, 5000);
    CloseHandle(pi_.hProcess);
    CloseHandle(pi_.hThread);
  }
  bool held() const { return held_; }

private:
  PROCESS_INFORMATION pi_{};
  bool held_ = false;
};

std::string fill(size_t n, char c = 'j') { return std::string(n, c); }

class JunkRun : public ::testing::Test {
protected:
  std::string zero_text() {
    double zero = 0;
    return form.spatiuu(zero);
  }
  JunkWorld world;
  ScratchDir& dir = world.dir;
  TestForm form;
  JunkShared shared{form};
  JunkPage page{form, shared.frame1, shared.File1, shared.Dir3, shared.Drive1, shared.k1};
};

TEST_F(JunkRun, CanaryJunkGoesAndEveryBystanderStaysByteForByte) {
  std::map<std::string, std::string> bystanders;
  auto keep = [&](const std::string& relative, size_t n, char c) {
    bystanders[dir.file(relative, fill(n, c))] = fill(n, c);
  };
  keep("docs\\letter.doc", 900, 'd');
  keep("docs\\old.tmp.txt", 12, 'e');  // *.tmp only at the end
  keep("programs\\App\\app.exe", 4000, 'p');
  keep("programs\\App\\app.log", 30, 'q');  // junk by name, but not in a scanned folder
  keep("windows\\a.tmp", 5, 'a');           // listed first: passed over
  keep("windows\\WindowsUpdate.log", 13, 'u');
  keep("windows\\keep.txt", 19, 'k');
  keep("windows\\minidump\\a.dmp", 23, 'n');  // first again
  keep("windows\\logbook.doc", 21, 'l');
  keep("windows\\system32\\h323log.txt", 37, 'h');
  keep("windows\\system32\\drivers\\x.tmp", 9, 'x');  // the scan goes no deeper
  keep("recent\\letter.lnk", 77, 'r');  // category 14 is not ticked
  keep("programs\\Opera\\Cache4\\o.dat", 110, 'o');  // counted, never cleaned
  keep("programs\\Opera\\Profile\\Mail\\Cache\\m.dat", 11, 'm');

  // Junk.
  write_file("C:\\whcanary.tmp", fill(11));
  CreateDirectoryA("C:\\found.002", nullptr);
  write_file("C:\\found.002\\file0000.chk", fill(300));
  const std::string w = world.windows();
  std::vector<std::string> junk = {
      dir.file("windows\\b.log", fill(7)), dir.file("windows\\x.bak", fill(17)),
      dir.file("windows\\hid.tmp", fill(47)), dir.file("windows\\system\\h323log.txt", fill(31)),
      dir.file("windows\\system32\\s.old", fill(41)),
      dir.file("windows\\system32\\CatRoot\\c.tmp", fill(43)),
      dir.file("windows\\minidump\\m.dmp", fill(29)),
      dir.file("windows\\TEMP\\deep\\deeper\\t.dat", fill(100)), dir.file("temp\\any.name", fill(100)),
      dir.file("windows\\Prefetch\\APP.pf", fill(150)),
      dir.file("windows\\Internet Logs\\net.txt", fill(160)),
      dir.file("windows\\Downloaded Program Files\\ctl.ocx", fill(210)),
      dir.file("windows\\Downloaded Installations\\setup\\setup.msi", fill(220)),
      dir.file("cache\\Content.IE5\\page.htm", fill(1000)),
      dir.file("cookies\\user@site.txt", fill(170)),
      dir.file("programs\\Opera\\cookies4.dat", fill(180)),
      dir.file("programs\\Opera\\Profile\\cookies4.dat", fill(190)),
      dir.file("programs\\Opera\\Profile\\Cache4\\p.dat", fill(120)),
      dir.file("appdata\\Mozilla\\Profiles\\default\\oqmc7bcc.slt\\Cache\\f.dat", fill(130)),
      dir.file("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\Cache\\g.dat", fill(140)),
      dir.file("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\cookies.txt", fill(200)),
      dir.file("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\hostperm.1", fill(210)),
      "C:\\whcanary.tmp", "C:\\found.002"};
  SetFileAttributesA((w + "\\hid.tmp").c_str(), FILE_ATTRIBUTE_HIDDEN);
  keep("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\prefs.js", 50, 'f');
  opera_folder = dir / "programs\\Opera";
  firefox_folder = dir.folder("programs\\Mozilla Firefox");
  firefox_profile = dir / "appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\";

  page.junk_scan();
  for (int i = 1; i <= 9; ++i) page.check[i]->Value(1);
  page.check[12]->Value(1);
  page.check[13]->Value(2);
  page.del_block();

  for (const auto& [path, bytes] : bystanders) EXPECT_EQ(bytes, read_file(path)) << path;
  for (const auto& path : junk) EXPECT_FALSE(path_exists(path)) << path;
  // The folders of categories 3 to 9 go with their contents.
  for (const std::string& folder :
       {temp_folder, windows_temp_folder, prefetch_folder, internet_logs_folder,
        downloaded_programs_folder, downloaded_installations_folder, cache_folder,
        cookies_folder})
    EXPECT_FALSE(path_exists(folder)) << folder;

  for (int i = 1; i <= 12; ++i) EXPECT_EQ(0, page.check[i]->Value()) << i;
  EXPECT_EQ(2, page.check[13]->Value()) << "only a tick runs a cleaner";
  // The labels show what is left. With the system cache and cookies gone,
  // the figure before them carries over: Opera's Cache4 is all that counts.
  EXPECT_EQ(zero_text(), page.ocupied[2]->Caption());
  EXPECT_EQ(zero_text(), page.ocupied[3]->Caption());
  EXPECT_EQ("0 bytes", page.ocupied[4]->Caption());
  EXPECT_EQ("0 bytes", page.ocupied[7]->Caption());
  double opera_cache = 110;
  EXPECT_EQ(form.spatiuu(opera_cache), page.ocupied[5]->Caption());
  EXPECT_EQ(form.spatiuu(opera_cache), page.ocupied[6]->Caption());
  remove_tree("C:\\whcanary.tmp");
  remove_tree("C:\\found.002");
}

TEST_F(JunkRun, ALockedFileIsCountedScheduledAndKeptAndTheRunGoesOn) {
  const std::string pending_before = test::pending_operations();
  const std::string locked = dir.file("temp\\sub\\in use.dat", fill(4096));
  const std::string free_file = dir.file("temp\\sub\\free.dat", fill(10));
  dir.file("windows\\Prefetch\\APP.pf", fill(150));
  const std::string short_locked = short_path(locked);
  {
    Holder holder(locked);
    ASSERT_TRUE(holder.held());
    JunkCleaner cleaner(shared.File1, form.hwnd());
    locked_count = 0;
    locked_bytes = 0;
    cleaner.clean_tree(temp_folder);
    EXPECT_EQ(1, locked_count);
    EXPECT_EQ(4096, locked_bytes);
    EXPECT_TRUE(path_exists(locked));
    EXPECT_FALSE(path_exists(free_file));
    EXPECT_TRUE(path_exists(dir / "temp\\sub")) << "its folder stays";
    EXPECT_NE(std::string::npos,
              test::pending_operations().find(std::string("\\??\\") + short_locked + '\0' + '\0'))
        << "scheduled for deletion under its short name";

    // Through the run: category 3 meets the same file, 4 still runs.
    page.check[3]->Value(1);
    page.check[4]->Value(1);
    page.del_block();
    EXPECT_TRUE(path_exists(locked));
    EXPECT_FALSE(path_exists(prefetch_folder));
    EXPECT_EQ(0, page.check[3]->Value());
  }
  test::restore_pending(pending_before);
}

TEST_F(JunkRun, AFolderOfHiddenFilesGoesWithTheFinalUnforcedDelete) {
  const std::string hidden = dir.file("temp\\h\\hidden.dat", "h");
  const std::string system = dir.file("temp\\h\\system.dat", "s");
  SetFileAttributesA(hidden.c_str(), FILE_ATTRIBUTE_HIDDEN);
  SetFileAttributesA(system.c_str(), FILE_ATTRIBUTE_SYSTEM);
  // A read-only hidden file stops the unforced delete of its folder.
  const std::string guarded = dir.file("temp\\r\\guarded.dat", "r");
  SetFileAttributesA(guarded.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
  JunkCleaner cleaner(shared.File1, form.hwnd());
  cleaner.clean_tree(temp_folder);
  EXPECT_FALSE(path_exists(dir / "temp\\h"));
  EXPECT_TRUE(path_exists(guarded));
  EXPECT_TRUE(path_exists(temp_folder));
  SetFileAttributesA(guarded.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(JunkRun, AnEmptyCacheListCleansNothingAndTheScanRunsAllTheSame) {
  cache_folders.clear();
  dir.file("cache\\page.htm", fill(1000));
  page.check[5]->Value(1);
  page.ocupied[8]->Caption("stale");
  page.del_block();
  EXPECT_TRUE(path_exists(dir / "cache\\page.htm"));
  EXPECT_EQ("0 bytes", page.ocupied[8]->Caption()) << "the scan ran";
  EXPECT_EQ(0, page.check[5]->Value());
}

TEST_F(JunkRun, TempFilesNamedInAnyScriptAreCountedAndCleaned) {
  // "școală 学校 😀.tmp", a folder "țară" with a long CJK name in it (255
  // bytes of UTF-8, the most the host's file system takes) and "întâi.log".
  std::string long_name;
  for (int i = 0; i < 85; ++i) long_name += "\xE5\xAD\xA6";
  const std::string a = dir.file("temp\\\xC8\x99" "coal\xC4\x83 \xE5\xAD\xA6\xE6\xA0\xA1 \xF0\x9F\x98\x80.tmp", fill(1000));
  const std::string b = dir.file("temp\\\xC8\x9B" "ar\xC4\x83\\" + long_name, fill(2000));
  const std::string c = dir.file("temp\\\xC3\xAEnt\xC3\xA2i.log", fill(100));
  ASSERT_TRUE(path_exists(b));
  page.junk_scan();
  double counted = 3100;
  EXPECT_EQ(form.spatiuu(counted), page.ocupied[3]->Caption());
  page.check[3]->Value(1);
  page.del_block();
  for (const std::string& path : {a, b, c}) EXPECT_FALSE(path_exists(path)) << path;
  EXPECT_EQ(zero_text(), page.ocupied[3]->Caption());
}

}  // namespace
