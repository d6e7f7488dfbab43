// Chromium.Plugin on the real user data folders of the prefix: every
// profile's cache trees and the shared shader caches go, everything else of
// the profiles stays byte for byte.
#include <windows.h>

#include <gtest/gtest.h>

#include "pack_support.h"

using namespace pack_test;
using Lines = std::vector<std::string>;

namespace {

class ChromiumTest : public ::testing::Test {
protected:
  void SetUp() override {
    for (const wchar_t* browser :
         {L"Google", L"Microsoft\\Edge", L"BraveSoftware", L"Vivaldi", L"Chromium"})
      ASSERT_FALSE(exists(local + L"\\" + browser)) << "the prefix has a browser of its own";
    ASSERT_FALSE(exists(roaming + L"\\Opera Software"));
  }

  std::wstring local = local_appdata(), roaming = roaming_appdata();
  Pack pack;
  Made made;
  Expect expect{made};
};

TEST_F(ChromiumTest, EveryProfileOfEveryBrowserLosesItsCachesAndNothingElse) {
  const std::wstring chrome = local + L"\\Google\\Chrome\\User Data";
  const std::wstring edge = local + L"\\Microsoft\\Edge\\User Data";
  const std::wstring opera = roaming + L"\\Opera Software\\Opera Stable";
  const std::wstring opera_cache = local + L"\\Opera Software\\Opera Stable";
  chromium_profile(expect, chrome + L"\\Default");
  chromium_profile(expect, chrome + L"\\Profile 1");
  chromium_profile(expect, edge + L"\\Default");
  chromium_profile(expect, edge + L"\\Profile 2");
  // Opera's profile is its folder; its cache lies in the local one.
  chromium_profile(expect, opera, opera_cache);
  for (const std::wstring& data : {chrome, edge, opera_cache}) chromium_user_data(expect, data);
  expect.keep(edge + L"\\First Run");
  // A folder without "Preferences" is no profile: its "Cache" is no browser's.
  expect.keep(chrome + L"\\Crashpad\\Cache\\settings.dat");
  expect.keep(opera + L"\\Default\\Cache\\keep.bin");

  ASSERT_TRUE(run(L"Chromium"));

  expect.check();
}

TEST_F(ChromiumTest, AFileTheBrowserHoldsStaysAndTheRestGoes) {
  const std::wstring profile_folder = local + L"\\BraveSoftware\\Brave-Browser\\User Data\\Default";
  made.file(profile_folder + L"\\Preferences", "{}");
  const std::wstring held = made.file(profile_folder + L"\\Cache\\Cache_Data\\data_1", "open");
  expect.gone(profile_folder + L"\\Cache\\Cache_Data\\data_0");
  expect.gone(profile_folder + L"\\Cache\\Cache_Data\\f_000002");
  expect.gone(profile_folder + L"\\Code Cache\\js\\index");
  {
    Holder browser_holds(held);
    ASSERT_TRUE(browser_holds.holding());
    EXPECT_TRUE(run(L"Chromium"));  // no error for the held file
  }

  expect.check();
  EXPECT_EQ("open", read(held));
  EXPECT_FALSE(exists(profile_folder + L"\\Code Cache"));
  EXPECT_EQ(std::vector<std::wstring>{L"data_1"}, names_in(profile_folder + L"\\Cache\\Cache_Data"));
}

TEST_F(ChromiumTest, TheDescriptionNamesTheBrowsersFoundWithinThePanel) {
  made.folder(local + L"\\Microsoft\\Edge\\User Data");
  made.folder(local + L"\\Opera Software\\Opera GX Stable");  // the cache alone is Opera GX found
  EXPECT_EQ((Lines{"Browser caches of", "Edge, Opera GX", "(cookies stay)"}), describe(L"Chromium"));

  // All of them: the longest description there is.
  made.folder(local + L"\\Google\\Chrome\\User Data");
  made.folder(local + L"\\BraveSoftware\\Brave-Browser\\User Data");
  made.folder(local + L"\\Vivaldi\\User Data");
  made.folder(roaming + L"\\Opera Software\\Opera Stable");
  made.folder(local + L"\\Chromium\\User Data");
  EXPECT_EQ((Lines{"Browser caches of", "Chrome, Edge, Brave", "Vivaldi, Opera", "Opera GX, Chromium",
                   "(cookies stay)"}),
            describe(L"Chromium"));
}

}  // namespace
