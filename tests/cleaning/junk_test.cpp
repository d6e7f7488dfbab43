// Section 8's scan and its cleaning run against a populated prefix: what
// counts in the drive roots, the Windows folder, the folders of each
// category, the browsers and the recycle bin; the canary (junk goes, every
// bystander stays byte for byte), a locked file, hidden files, and the
// labels after a run.
#include <windows.h>

#include <shellapi.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "cleaning/cleaner.h"
#include "core/routines.h"
#include "junk_support.h"
#include "platform/shell.h"
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

// A file held open with no sharing at all, as a running program holds it;
// sharing is checked per open, so this process's own handle locks it too.
class Holder {
public:
  explicit Holder(const std::string& file)
      : h_(CreateFileA(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {}
  ~Holder() {
    if (held()) CloseHandle(h_);
  }
  bool held() const { return h_ != INVALID_HANDLE_VALUE; }

private:
  HANDLE h_;
};

// A file or folder of a drive root that the test makes and removes; never
// one that was there before.
class RootThing {
public:
  RootThing(const std::string& path, const std::string& bytes, bool folder = false)
      : path_(path) {
    made_ = !path_exists(path);
    if (!made_) return;
    if (folder)
      CreateDirectoryA(path.c_str(), nullptr);
    else
      write_file(path, bytes);
  }
  ~RootThing() {
    if (made_) remove_tree(path_);
  }
  bool made() const { return made_; }

private:
  std::string path_;
  bool made_ = false;
};

std::string fill(size_t n, char c = 'j') { return std::string(n, c); }

// Into the prefix's bin, as Explorer's Delete does.
void recycle(const std::string& path) {
  std::string from = path + '\0';
  SHFILEOPSTRUCTA op{};
  op.wFunc = FO_DELETE;
  op.pFrom = from.c_str();
  op.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
  ASSERT_EQ(0, SHFileOperationA(&op));
  ASSERT_FALSE(path_exists(path));
}

double bin_bytes() {
  double bytes = 0, items = 0;
  query_recycle_bin("", bytes, items);
  return bytes;
}

class Junk : public ::testing::Test {
protected:
  std::string label(int i) { return page.ocupied[i]->Caption(); }
  std::string size_text(double n) { return form.spatiuu(n); }
  bool listed(const std::string& path) {
    for (size_t i = 1; i < junk_file_items.size(); ++i)
      if (junk_file_items[i].path == path) return true;
    return false;
  }

  JunkWorld world;
  ScratchDir& dir = world.dir;
  TestForm form;
  JunkShared shared{form};
  JunkPage page{form, shared.frame1, shared.File1, shared.Dir3, shared.Drive1, shared.k1};
};

TEST_F(Junk, TheScanCountsEachPlaceAndHarrowTakesTheJunkAndNothingElse) {
  std::map<std::string, std::string> bystanders;
  std::vector<std::string> gone;
  auto keep = [&](const std::string& relative, size_t n) {
    const std::string bytes = fill(n, static_cast<char>('a' + bystanders.size()));
    bystanders[dir.file(relative, bytes)] = bytes;
  };
  auto junk = [&](const std::string& relative, size_t n) {
    gone.push_back(dir.file(relative, fill(n)));
    return gone.back();
  };
  // Drive roots: loose junk and a lower-case FOUND folder on the fixed C:,
  // the same folder on the removable A: (test.sh links a scratch folder).
  RootThing root_tmp("C:\\a.tmp", fill(11));
  RootThing root_keep("C:\\wh_bystander.txt", fill(3));
  RootThing found("C:\\found.000", "", true);
  ASSERT_TRUE(root_tmp.made() && found.made()) << "C:\\ already holds them";
  write_file("C:\\found.000\\file0000.chk", fill(300));
  ASSERT_EQ(DRIVE_REMOVABLE, GetDriveTypeA("A:\\")) << "test.sh links A: to a folder";
  RootThing floppy_found("A:\\found.000", "", true);
  write_file("A:\\found.000\\file0000.chk", fill(1000));
  RootThing floppy_tmp("A:\\floppy.tmp", fill(1000));

  // The Windows folder: the first listed file is passed over, and so is
  // WindowsUpdate.log in that spelling only.
  const std::string w = world.windows();
  keep("windows\\a.tmp", 5);
  junk("windows\\b.log", 7);
  keep("windows\\WindowsUpdate.log", 13);
  junk("windows\\x.bak", 17);
  keep("windows\\keep.txt", 19);
  keep("windows\\logbook.doc", 21);
  SetFileAttributesA(junk("windows\\hid.tmp", 47).c_str(),
                     FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  keep("windows\\minidump\\a.dmp", 23);  // first again
  junk("windows\\minidump\\m.dmp", 29);
  junk("windows\\system\\h323log.txt", 31);
  keep("windows\\system32\\h323log.txt", 37);
  junk("windows\\system32\\s.old", 41);
  junk("windows\\system32\\CatRoot\\c.tmp", 43);
  keep("windows\\system32\\drivers\\x.tmp", 9);  // the scan goes no deeper
  const double junk_bytes = 11 + 300 + 7 + 17 + 47 + 29 + 31 + 41 + 43;

  // Categories measured by folder, and files that only look like junk.
  junk("temp\\any.name", 100);
  junk("windows\\TEMP\\deep\\deeper\\t.dat", 200);
  junk("windows\\Prefetch\\APP.pf", 150);
  junk("windows\\Internet Logs\\net.txt", 160);
  junk("windows\\Downloaded Program Files\\ctl.ocx", 210);
  junk("windows\\Downloaded Installations\\setup\\setup.msi", 220);
  junk("cache\\Content.IE5\\page.htm", 1000);
  junk("cookies\\user@site.txt", 170);
  keep("recent\\letter.lnk", 5000);  // not counted, and category 14 is not ticked
  keep("docs\\letter.doc", 900);
  keep("docs\\old.tmp.txt", 12);  // *.tmp only at the end
  keep("programs\\App\\app.log", 30);  // junk by name, but not in a scanned folder
  // The browsers.
  opera_folder = dir.folder("programs\\Opera");
  firefox_folder = dir.folder("programs\\Mozilla Firefox");
  firefox_profile = dir.folder("appdata\\Mozilla\\Firefox\\Profiles\\x1.default") + "\\";
  keep("programs\\Opera\\Cache4\\o.dat", 110);  // counted, never cleaned
  junk("programs\\Opera\\Profile\\Cache4\\p.dat", 120);
  keep("programs\\Opera\\Profile\\Mail\\Cache\\m.dat", 11);  // no MailCache beside it
  junk("programs\\Opera\\cookies4.dat", 180);
  junk("programs\\Opera\\Profile\\cookies4.dat", 190);
  junk("appdata\\Mozilla\\Profiles\\default\\oqmc7bcc.slt\\Cache\\f.dat", 130);
  junk("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\Cache\\g.dat", 140);
  junk("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\cookies.txt", 200);
  junk("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\hostperm.1", 210);
  keep("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\prefs.js", 50);

  recycle(dir.file("binned.txt", fill(250)));
  const double bin = bin_bytes();
  ASSERT_GE(bin, 250);

  page.junk_scan();
  // Opera's Profile\Cache4 twice: the mail cache is tested under one name
  // and opened under another, and the folder measured before goes again.
  const double cache = 1000 + 110 + 120 + 120 + 130 + 140;
  const double figures[] = {0, bin, junk_bytes, 300, 150, cache, 170 + 180 + 190 + 200 + 210,
                            160, 210, 220};
  for (int i = 1; i <= 9; ++i) EXPECT_EQ(size_text(figures[i]), label(i)) << i;
  double all = 0;
  for (double f : figures) all += f;
  EXPECT_EQ(size_text(all), page.total.Caption()) << "the recent folder is not counted";

  ASSERT_EQ(2u, junk_folder_items.size());
  // The drive list's rows are lower case, and so are the roots built from them.
  EXPECT_EQ("c:\\found.000", junk_folder_items[1].path);
  EXPECT_EQ(300, junk_folder_items[1].size);
  // The first of the Windows folder is passed over; k1 lists hidden and system files.
  for (auto [path, in] : {std::pair{std::string("c:\\a.tmp"), true}, {"c:\\wh_bystander.txt", false},
                          {"a:\\floppy.tmp", false}, {w + "\\a.tmp", false}, {w + "\\hid.tmp", true},
                          {w + "\\minidump\\a.dmp", false}, {w + "\\system\\h323log.txt", true},
                          {w + "\\system32\\h323log.txt", false},
                          {w + "\\system32\\CatRoot\\c.tmp", true}})
    EXPECT_EQ(in, listed(path)) << path;
  const std::string profile = dir / "programs\\Opera\\Profile\\Cache4";
  EXPECT_EQ((std::vector<std::string>{"", cache_folder, "", profile, profile,
                                      dir / "appdata\\Mozilla\\Profiles\\default\\oqmc7bcc.slt\\Cache",
                                      firefox_profile + "Cache"}),
            cache_folders);

  for (int i = 1; i <= 9; ++i) page.check[i]->Value(1);
  page.check[12]->Value(1);
  page.check[13]->Value(2);
  page.del_block();

  for (const auto& [path, bytes] : bystanders) EXPECT_EQ(bytes, read_file(path)) << path;
  for (const auto& path : gone) EXPECT_FALSE(path_exists(path)) << path;
  EXPECT_FALSE(path_exists("C:\\a.tmp"));
  EXPECT_FALSE(path_exists("C:\\found.000"));
  for (const char* kept : {"C:\\wh_bystander.txt", "A:\\floppy.tmp", "A:\\found.000\\file0000.chk"})
    EXPECT_TRUE(path_exists(kept)) << kept;
  EXPECT_EQ(0, bin_bytes());
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
  for (auto [i, text] : {std::pair{2, size_text(0)}, {3, size_text(0)}, {4, std::string("0 bytes")},
                         {7, std::string("0 bytes")}, {5, size_text(110)}, {6, size_text(110)}})
    EXPECT_EQ(text, label(i)) << i;

  // The exclusion is case-sensitive; the shorter list of the scan after the
  // run no longer holds what went.
  EXPECT_FALSE(listed("c:\\a.tmp"));
  remove_tree(w + "\\WindowsUpdate.log");
  dir.file("windows\\WINDOWSUPDATE.LOG", fill(13));
  page.junk_scan();
  EXPECT_TRUE(listed(w + "\\WINDOWSUPDATE.LOG"));
  EXPECT_EQ(size_text(13), label(2));
}

TEST_F(Junk, NoBrowserNoCacheAndNothingInTheRootsGiveTheCarriedFigures) {
  RootThing found("C:\\FOUND.001", "", true);
  write_file("C:\\FOUND.001\\x.chk", fill(64));
  dir.file("temp\\t.dat", fill(100));
  windows_temp_folder = temp_folder;  // one temporary folder counts once
  remove_tree(cache_folder);
  remove_tree(cookies_folder);
  page.junk_scan();
  // Without a system cache or cookies folder the temporary folders' figure
  // carries over into both labels.
  for (auto [i, n] : {std::pair{2, 64.0}, {3, 100.0}, {5, 100.0}, {6, 100.0}})
    EXPECT_EQ(size_text(n), label(i)) << i;
  EXPECT_EQ("0 bytes", label(4));
  EXPECT_TRUE(cache_folders.empty());
}

TEST_F(Junk, ABinAbove2GBShowsTheSignedLowHalfOfItsSize) {
  const double before = bin_bytes();
  const std::string big = dir / "big.bin";
  ASSERT_TRUE(wh::test::sparse_file(big, 3000000000LL));
  recycle(big);
  const auto all = static_cast<uint64_t>(before) + 3000000000ULL;
  page.junk_scan();
  EXPECT_EQ(size_text(static_cast<double>(static_cast<int32_t>(static_cast<uint32_t>(all)))),
            label(1));
  if (before == 0) {
    EXPECT_EQ(size_text(-1294967296.0), label(1));
  }
  empty_recycle_bin(nullptr, "", SHERB_NOCONFIRMATION | SHERB_NOPROGRESSUI | SHERB_NOSOUND);
}

TEST_F(Junk, ALockedFileIsCountedScheduledAndKeptAndTheRunGoesOn) {
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

TEST_F(Junk, AFolderOfHiddenFilesGoesWithTheFinalUnforcedDelete) {
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

TEST_F(Junk, AnEmptyCacheListCleansNothingAndTheScanRunsAllTheSame) {
  cache_folders.clear();
  dir.file("cache\\page.htm", fill(1000));
  page.check[5]->Value(1);
  page.ocupied[8]->Caption("stale");
  page.del_block();
  EXPECT_TRUE(path_exists(dir / "cache\\page.htm"));
  EXPECT_EQ("0 bytes", label(8)) << "the scan ran";
  EXPECT_EQ(0, page.check[5]->Value());
}

TEST_F(Junk, TempFilesNamedInAnyScriptAreCountedAndCleaned) {
  // "școală 学校 😀.tmp", a folder "țară" with a long CJK name in it (255
  // bytes of UTF-8, the most the host's file system takes) and "întâi.log".
  std::string long_name;
  for (int i = 0; i < 85; ++i) long_name += "\xE5\xAD\xA6";
  const std::string a = dir.file("temp\\\xC8\x99" "coal\xC4\x83 \xE5\xAD\xA6\xE6\xA0\xA1 \xF0\x9F\x98\x80.tmp", fill(1000));
  const std::string b = dir.file("temp\\\xC8\x9B" "ar\xC4\x83\\" + long_name, fill(2000));
  const std::string c = dir.file("temp\\\xC3\xAEnt\xC3\xA2i.log", fill(100));
  ASSERT_TRUE(path_exists(b));
  page.junk_scan();
  EXPECT_EQ(size_text(3100), label(3));
  page.check[3]->Value(1);
  page.del_block();
  for (const std::string& path : {a, b, c}) EXPECT_FALSE(path_exists(path)) << path;
  EXPECT_EQ(size_text(0), label(3));
}

}  // namespace
