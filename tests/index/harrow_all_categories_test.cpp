// A Harrow of section 8 with all eighteen boxes ticked (Harrow, not Harrow
// All, which leaves 18 out): here because category 18 stops Explorer.
#include <windows.h>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "cleaning/junk_support.h"
#include "filetools/shredder.h"
#include "platform/clipboard.h"
#include "support/pending.h"

using namespace wh;
using wh::test::JunkShared;
using wh::test::JunkWorld;
using wh::test::make_key;
using wh::test::path_exists;
using wh::test::read_file;
using wh::test::TestForm;

namespace {

TEST(HarrowAll18, TracesGoAndEveryBystanderStaysByteForByte) {
  JunkWorld world;
  TestForm form;
  JunkShared shared{form};
  JunkPage page{form, shared.frame1, shared.File1, shared.Dir3, shared.Drive1, shared.k1};
  page.shred_file = [](const std::string& path, uint8_t passes) { shred_file(path, passes, true); };
  auto& dir = world.dir;

  std::map<std::string, std::string> bystanders;
  auto keep = [&](const std::string& relative, const std::string& bytes) {
    bystanders[dir.file(relative, bytes)] = bytes;
  };
  keep("docs\\letter.doc", std::string(900, 'd'));
  keep("docs\\index.dat", std::string(64, 'i'));  // an index file outside every walked tree
  keep("windows\\keep.txt", std::string(19, 'k'));
  keep("programs\\Opera\\Profile\\opera6.ini", std::string(40, 'o'));
  keep("programs\\Opera\\Profile\\Sessions\\keep.win", std::string(30, 's'));
  keep("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\prefs.js", std::string(50, 'f'));
  keep("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\bookmarks.html", std::string(60, 'b'));
  const std::string history = dir.file("history\\History.IE5\\index.dat", std::string(300, 'h'));
  const std::string vlink = dir.file("programs\\Opera\\Profile\\vlink4.dat", "v");
  const std::string signons =
      dir.file("appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\signons.txt", "p");
  opera_folder = dir / "programs\\Opera";
  firefox_folder = dir.folder("programs\\Mozilla Firefox");
  firefox_profile = dir / "appdata\\Mozilla\\Firefox\\Profiles\\x1.default\\";
  // The lists that go whole, and the clipboard.
  const std::string explorer = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";
  const std::vector<std::string> lists = {explorer + "RunMRU", explorer + "RecentDocs",
                                          "Software\\Microsoft\\Internet Explorer\\TypedURLs"};
  for (const std::string& list : lists) make_key(HKEY_CURRENT_USER, list, {{"a", "x"}});
  ASSERT_EQ(0, clipboard_set_text("secret"));

  page.junk_scan();
  for (int i = 1; i <= 18; ++i) page.check[i]->Value(1);
  const std::string pending = wh::test::pending_operations();
  page.del_block();
  wh::test::restore_pending(pending);

  for (const auto& [path, bytes] : bystanders) EXPECT_EQ(bytes, read_file(path)) << path;
  for (const std::string& gone : {history, vlink, signons}) EXPECT_FALSE(path_exists(gone)) << gone;
  for (const std::string& list : lists) EXPECT_FALSE(wh::test::key_exists(HKEY_CURRENT_USER, list)) << list;
  std::string text = "?";
  clipboard_get_text(text);
  EXPECT_EQ("", text);
  EXPECT_FALSE(path_exists("c:\\temp"));
  for (int i = 1; i <= 18; ++i) EXPECT_EQ(0, page.check[i]->Value()) << i;
  for (std::string* browser : {&opera_folder, &firefox_folder, &firefox_profile}) browser->clear();
}

}  // namespace
