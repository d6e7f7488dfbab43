// The registry traces against the real keys of the prefix: each test makes
// the keys it cleans and removes what stays. The lists that go whole (run,
// recent, typed) and the clipboard: the Harrow of all eighteen (index tests).
#include <windows.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

#include "cleaning/junk_state.h"
#include "cleaning/junk_support.h"
#include "cleaning/traces.h"
#include "platform/registry.h"
#include "support/scratch.h"

using namespace wh;
using wh::test::key_exists;
using wh::test::make_key;
using wh::test::MadeKey;
using wh::test::path_exists;
using wh::test::value_exists;
using wh::test::ScratchDir;

namespace {

const std::string kExplorer = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";
const std::string kSid = "S-1-5-21-1644491937-152049171-842925246-1003";
const std::string kAcMru = "\\Software\\Microsoft\\Search Assistant\\ACMru";

TEST(RegistryTraces, StreamsKeepDesktopAndTheKeyThatHoldsIt) {
  MadeKey mru(HKEY_CURRENT_USER, kExplorer + "StreamMRU");
  MadeKey streams(HKEY_CURRENT_USER, kExplorer + "Streams");
  make_key(HKEY_CURRENT_USER, kExplorer + "StreamMRU", {{"MRUListEx", "x"}});
  make_key(HKEY_CURRENT_USER, kExplorer + "Streams\\Desktop", {{"Settings", "s"}});
  make_key(HKEY_CURRENT_USER, kExplorer + "Streams\\0", {{"ViewView", "v"}});
  make_key(HKEY_CURRENT_USER, kExplorer + "Streams\\desktop");  // case counts

  clean_stream_mru();
  EXPECT_FALSE(key_exists(HKEY_CURRENT_USER, kExplorer + "StreamMRU"));
  EXPECT_FALSE(key_exists(HKEY_CURRENT_USER, kExplorer + "Streams\\0"));
  // On NT the last delete fails while Desktop stands. Wine's registry names
  // are case-insensitive, so "desktop" and "Desktop" were one key all along.
  EXPECT_TRUE(value_exists(HKEY_CURRENT_USER, kExplorer + "Streams\\Desktop", "Settings"));

  // Only Desktop: nothing below goes, and the key stands.
  clean_stream_mru();
  EXPECT_TRUE(key_exists(HKEY_CURRENT_USER, kExplorer + "Streams\\Desktop"));
}

TEST(RegistryTraces, TypedUrlsTakeOperasListOnlyWhenOperaWasFound) {
  ScratchDir dir("typed");
  const std::string vlink = dir.file("Opera\\Profile\\vlink4.dat", "links");

  opera_folder.clear();  // none found: the file is not looked for
  clean_typed_urls();
  EXPECT_TRUE(path_exists(vlink));

  opera_folder = dir / "Opera";
  SetFileAttributesA(vlink.c_str(), FILE_ATTRIBUTE_READONLY);
  clean_typed_urls();  // without force
  EXPECT_TRUE(path_exists(vlink));
  SetFileAttributesA(vlink.c_str(), FILE_ATTRIBUTE_NORMAL);
  clean_typed_urls();
  EXPECT_FALSE(path_exists(vlink));
  opera_folder.clear();
}

TEST(RegistryTraces, FindHistoryTakesOnlyTheOneLiteralUser) {
  ASSERT_FALSE(key_exists(HKEY_USERS, kSid));  // the prefix's users are others
  MadeKey literal(HKEY_USERS, kSid);
  const std::string other = "S-1-5-21-1-2-3-1004";
  MadeKey other_user(HKEY_USERS, other);
  MadeKey doc_find(HKEY_CURRENT_USER, kExplorer + "Doc Find Spec MRU");
  make_key(HKEY_USERS, kSid + kAcMru + "\\5603", {{"000", "letter"}});
  make_key(HKEY_USERS, kSid + kAcMru + "\\5604", {{"000", "*.doc"}});
  make_key(HKEY_USERS, other + kAcMru + "\\5603", {{"000", "mine"}});
  make_key(HKEY_CURRENT_USER, kExplorer + "Doc Find Spec MRU", {{"a", "x"}});

  clean_find_history();
  for (const char* key : {"\\5603", "\\5604"})
    EXPECT_FALSE(key_exists(HKEY_USERS, kSid + kAcMru + key)) << key;
  EXPECT_TRUE(key_exists(HKEY_USERS, kSid + kAcMru));
  EXPECT_TRUE(value_exists(HKEY_USERS, other + kAcMru + "\\5603", "000"));
  EXPECT_TRUE(value_exists(HKEY_CURRENT_USER, kExplorer + "Doc Find Spec MRU", "a"));
}

TEST(RegistryTraces, OpenSaveListsGoByTheirMruLetters) {
  const std::string open_save = kExplorer + "ComDlg32\\OpenSaveMRU";
  MadeKey made(HKEY_CURRENT_USER, open_save);
  MadeKey visited(HKEY_CURRENT_USER, kExplorer + "ComDlg32\\LastVisitedMRU");
  make_key(HKEY_CURRENT_USER, open_save + "\\txt",
           {{"a", "1.txt"}, {"b", "2.txt"}, {"c", "3.txt"}, {"MRUList", "ba"}});
  // A child keeps the subkey standing, so what was deleted inside shows.
  make_key(HKEY_CURRENT_USER, open_save + "\\txt\\child");
  make_key(HKEY_CURRENT_USER, open_save + "\\doc", {{"a", "x.doc"}});  // no MRUList
  make_key(HKEY_CURRENT_USER, kExplorer + "ComDlg32\\LastVisitedMRU", {{"a", "notepad.exe"}});

  clean_open_save_history();
  for (const char* name : {"a", "b", "MRUList", "c"})
    EXPECT_EQ(*name == 'c', value_exists(HKEY_CURRENT_USER, open_save + "\\txt", name)) << name;
  EXPECT_FALSE(key_exists(HKEY_CURRENT_USER, open_save + "\\doc"));
  EXPECT_FALSE(key_exists(HKEY_CURRENT_USER, kExplorer + "ComDlg32\\LastVisitedMRU"));
}

TEST(RegistryTraces, AppletListsTestFile1OnceAndThePlayerReadsEachEntry) {
  const std::string wordpad =
      "Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Wordpad\\Recent File List";
  const std::string paint =
      "Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Paint\\Recent File List";
  const std::string player = "Software\\Microsoft\\MediaPlayer\\Player\\RecentURLList";
  MadeKey w(HKEY_CURRENT_USER, wordpad), p(HKEY_CURRENT_USER, paint),
      m(HKEY_CURRENT_USER, player);
  // Wordpad's list has no File1: one delete, then the end.
  make_key(HKEY_CURRENT_USER, wordpad, {{"File2", "b.doc"}});
  // Paint's has File1: every name to File100 is tried, gaps or not.
  make_key(HKEY_CURRENT_USER, paint,
           {{"File1", "a.bmp"}, {"File57", "b.bmp"}, {"File100", "c.bmp"}, {"File101", "d"}});
  make_key(HKEY_CURRENT_USER, player, {{"URL0", "a.mp3"}, {"URL1", "b.mp3"}, {"URL3", "d.mp3"}});

  clean_open_save_history();
  EXPECT_TRUE(value_exists(HKEY_CURRENT_USER, wordpad, "File2"));
  for (const char* name : {"File1", "File57", "File100"})
    EXPECT_FALSE(value_exists(HKEY_CURRENT_USER, paint, name)) << name;
  EXPECT_TRUE(value_exists(HKEY_CURRENT_USER, paint, "File101"));
  // URL2 reads empty: the player's list ends there.
  for (const char* name : {"URL0", "URL1", "URL3"})
    EXPECT_EQ(name[3] == '3', value_exists(HKEY_CURRENT_USER, player, name)) << name;
}

}  // namespace
