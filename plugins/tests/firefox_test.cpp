// Firefox.Plugin on the real profile folders of the prefix: the local
// folder of every profile loses cache2, startupCache and thumbnails; the
// profile's data, roaming and local, stays byte for byte. (A held file is
// the walk's, tested with the Chromium plug-in.)
#include <windows.h>

#include <gtest/gtest.h>

#include "pack_support.h"

using namespace pack_test;
using Lines = std::vector<std::string>;

namespace {

class FirefoxTest : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_FALSE(exists(local + L"\\Mozilla")) << "the prefix has a Firefox of its own";
    ASSERT_FALSE(exists(roaming + L"\\Mozilla"));
    ASSERT_FALSE(exists(local + L"\\librewolf"));
  }

  // A profile: its data under the roaming folder, its caches under the
  // local one, beside files of the same names as the data (which stay too).
  void profile(const std::wstring& family, const std::wstring& name) {
    const std::wstring data = roaming + L"\\" + family + L"\\Profiles\\" + name;
    const std::wstring caches = local + L"\\" + family + L"\\Profiles\\" + name;
    for (const wchar_t* kept : {L"places.sqlite", L"key4.db", L"cookies.sqlite", L"prefs.js",
                                L"logins.json", L"sessionstore.jsonlz4", L"extensions.json",
                                L"storage\\default\\https+++example.org\\ls\\data.sqlite"}) {
      expect.keep(data + L"\\" + kept);
    }
    for (const wchar_t* kept : {L"places.sqlite", L"cookies.sqlite", L"safebrowsing\\google4\\goog-phish.vlpset",
                                L"jumpListCache\\icon.ico"})
      expect.keep(caches + L"\\" + kept);
    for (const wchar_t* cached :
         {L"cache2\\entries\\0A1B2C3D4E5F60718293A4B5C6D7E8F901234567", L"cache2\\index",
          L"cache2\\doomed\\123", L"startupCache\\startupCache.8.little", L"startupCache\\scriptCache-child.bin",
          L"thumbnails\\3f2a\\\u65e5\u672c.png", L"thumbnails\\9c1e.png"})
      expect.gone(caches + L"\\" + cached);
    homes.push_back(caches);
  }

  std::wstring local = local_appdata(), roaming = roaming_appdata();
  std::vector<std::wstring> homes;
  Pack pack;
  Made made;
  Expect expect{made};
};

TEST_F(FirefoxTest, EveryProfileLosesItsThreeCachesAndKeepsItsData) {
  profile(L"Mozilla\\Firefox", L"k3j2x9qa.default-release");
  profile(L"Mozilla\\Firefox", L"p0q1w2e3.work");
  profile(L"librewolf", L"a1b2c3d4.default-default");  // a fork in the same layout
  EXPECT_EQ((Lines{"Caches, thumbs of", "Firefox, LibreWolf", "3 profiles", "(cookies stay)"}),
            describe(L"Firefox"));

  ASSERT_TRUE(run(L"Firefox"));

  expect.check();
  for (const std::wstring& home : homes)
    for (const wchar_t* cache : {L"cache2", L"startupCache", L"thumbnails"})
      EXPECT_FALSE(exists(home + L"\\" + cache)) << utf8(home) << " " << utf8(cache);
}

}  // namespace
