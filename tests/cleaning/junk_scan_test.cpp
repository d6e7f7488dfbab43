// The junk scan against a populated prefix: what counts in the drive roots
// and the Windows folder, the folders of each category, the browsers, the
// recycle bin, and each label's text.
#include <windows.h>

#include <shellapi.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "junk_support.h"
#include "platform/files.h"
#include "platform/shell.h"

using namespace wh;
using wh::test::JunkShared;
using wh::test::JunkWorld;
using wh::test::path_exists;
using wh::test::remove_tree;
using wh::test::ScratchDir;
using wh::test::TestForm;
using wh::test::write_file;

namespace {

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

std::string fill(size_t n) { return std::string(n, 'j'); }

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

class JunkScan : public ::testing::Test {
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

TEST_F(JunkScan, EveryLabelShowsTheSizesOfItsPlaces) {
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
  write_file("A:\\floppy.tmp", fill(1000));

  // The Windows folder: the first listed file is passed over, and so is
  // WindowsUpdate.log in that spelling only.
  const std::string w = world.windows();
  dir.file("windows\\a.tmp", fill(5));
  dir.file("windows\\b.log", fill(7));
  dir.file("windows\\WindowsUpdate.log", fill(13));
  dir.file("windows\\x.bak", fill(17));
  dir.file("windows\\keep.txt", fill(19));
  SetFileAttributesA(dir.file("windows\\hid.tmp", fill(47)).c_str(),
                     FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  dir.file("windows\\minidump\\a.dmp", fill(23));
  dir.file("windows\\minidump\\m.dmp", fill(29));
  dir.file("windows\\system\\h323log.txt", fill(31));
  dir.file("windows\\system32\\h323log.txt", fill(37));
  dir.file("windows\\system32\\s.old", fill(41));
  dir.file("windows\\system32\\CatRoot\\c.tmp", fill(43));
  const double junk = 11 + 300 + 7 + 17 + 47 + 29 + 31 + 41 + 43;

  // Categories measured by folder.
  dir.file("temp\\t.dat", fill(100));
  dir.file("windows\\TEMP\\wt.dat", fill(200));
  dir.file("windows\\Prefetch\\APP.pf", fill(150));
  dir.file("windows\\Downloaded Program Files\\ctl.ocx", fill(210));
  dir.file("windows\\Downloaded Installations\\setup.msi", fill(220));
  dir.file("recent\\letter.lnk", fill(5000));
  dir.file("cookies\\user@site.txt", fill(170));
  dir.file("cache\\page.htm", fill(1000));
  // The browsers.
  opera_folder = dir.folder("programs\\Opera");
  firefox_folder = dir.folder("programs\\Mozilla Firefox");
  firefox_profile = dir.folder("appdata\\Mozilla\\Firefox\\Profiles\\x1.default") + "\\";
  dir.file("programs\\Opera\\Cache4\\o.dat", fill(110));
  dir.file("programs\\Opera\\Profile\\Cache4\\p.dat", fill(120));
  dir.folder("programs\\Opera\\Profile\\Mail\\Cache");  // no MailCache beside it
  dir.file("programs\\Opera\\cookies4.dat", fill(180));
  dir.file("programs\\Opera\\Profile\\cookies4.dat", fill(190));
  dir.file("appdata\\Mozilla\\Profiles\\default\\oqmc7bcc.slt\\Cache\\f.dat", fill(130));
  dir.file("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\Cache\\g.dat", fill(140));
  dir.file("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\cookies.txt", fill(200));
  dir.file("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\hostperm.1", fill(210));

  recycle(dir.file("binned.txt", fill(250)));
  const double bin = bin_bytes();
  ASSERT_GE(bin, 250);

  page.junk_scan();
  EXPECT_EQ(size_text(bin), label(1));
  EXPECT_EQ(size_text(junk), label(2));
  EXPECT_EQ(size_text(300), label(3));
  EXPECT_EQ(size_text(150), label(4));
  // Opera's Profile\Cache4 twice: the mail cache is tested under one name
  // and opened under another, and the folder measured before goes again.
  const double cache = 1000 + 110 + 120 + 120 + 130 + 140;
  EXPECT_EQ(size_text(cache), label(5));
  const double cookies = 170 + 180 + 190 + 200 + 210;
  EXPECT_EQ(size_text(cookies), label(6));
  EXPECT_EQ("0 bytes", label(7)) << "no Internet Logs folder";
  EXPECT_EQ(size_text(210), label(8));
  EXPECT_EQ(size_text(220), label(9));
  double all = bin + junk + 300 + 150 + cache + cookies + 210 + 220;
  EXPECT_EQ(size_text(all), page.total.Caption()) << "the recent folder is not counted";

  ASSERT_EQ(2u, junk_folder_items.size());
  // The drive list's rows are lower case, and so are the roots built from them.
  EXPECT_EQ("c:\\found.000", junk_folder_items[1].path);
  EXPECT_EQ(300, junk_folder_items[1].size);
  EXPECT_TRUE(listed("c:\\a.tmp"));
  EXPECT_FALSE(listed("c:\\wh_bystander.txt"));
  EXPECT_FALSE(listed("a:\\floppy.tmp"));
  EXPECT_FALSE(listed(w + "\\a.tmp")) << "the first of the Windows folder";
  EXPECT_FALSE(listed(w + "\\WindowsUpdate.log"));
  EXPECT_TRUE(listed(w + "\\hid.tmp")) << "k1 lists hidden and system files";
  EXPECT_FALSE(listed(w + "\\minidump\\a.dmp"));
  EXPECT_TRUE(listed(w + "\\minidump\\m.dmp"));
  EXPECT_TRUE(listed(w + "\\system\\h323log.txt"));
  EXPECT_FALSE(listed(w + "\\system32\\h323log.txt"));
  EXPECT_TRUE(listed(w + "\\system32\\CatRoot\\c.tmp"));
  const std::string profile = dir / "programs\\Opera\\Profile\\Cache4";
  EXPECT_EQ((std::vector<std::string>{"", cache_folder, "", profile, profile,
                                      dir / "appdata\\Mozilla\\Profiles\\default\\oqmc7bcc.slt\\Cache",
                                      firefox_profile + "Cache"}),
            cache_folders);

  // The exclusion is case-sensitive; one temporary folder counts once; a
  // scan that finds fewer files shortens the list.
  remove_tree(w + "\\WindowsUpdate.log");
  dir.file("windows\\WINDOWSUPDATE.LOG", fill(13));
  windows_temp_folder = temp_folder;
  remove_tree("C:\\a.tmp");
  page.junk_scan();
  EXPECT_TRUE(listed(w + "\\WINDOWSUPDATE.LOG"));
  EXPECT_EQ(size_text(junk - 11 + 13), label(2));
  EXPECT_EQ(size_text(100), label(3));
  EXPECT_FALSE(listed("c:\\a.tmp"));

  remove_tree("A:\\floppy.tmp");
  empty_recycle_bin(nullptr, "", SHERB_NOCONFIRMATION | SHERB_NOPROGRESSUI | SHERB_NOSOUND);
}

TEST_F(JunkScan, NoBrowserNoCacheAndNothingInTheRootsGiveTheCarriedFigures) {
  RootThing found("C:\\FOUND.001", "", true);
  write_file("C:\\FOUND.001\\x.chk", fill(64));
  dir.file("temp\\t.dat", fill(100));
  windows_temp_folder = temp_folder;
  remove_tree(cache_folder);
  remove_tree(cookies_folder);
  page.junk_scan();
  EXPECT_EQ(size_text(64), label(2));
  EXPECT_EQ(size_text(100), label(3));
  // Without a system cache or cookies folder the temporary folders' figure
  // carries over into both labels.
  EXPECT_EQ(size_text(100), label(5));
  EXPECT_EQ(size_text(100), label(6));
  EXPECT_EQ("0 bytes", label(4));
  EXPECT_TRUE(cache_folders.empty());
}

TEST_F(JunkScan, ABinAbove2GBShowsTheSignedLowHalfOfItsSize) {
  const double before = bin_bytes();
  const std::string big = dir / "big.bin";
  {
    HANDLE h = CreateFileA(big.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, h);
    LARGE_INTEGER at;
    at.QuadPart = 3000000000LL;  // sparse on the host: no space is taken
    SetFilePointerEx(h, at, nullptr, FILE_BEGIN);
    SetEndOfFile(h);
    CloseHandle(h);
  }
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

}  // namespace
