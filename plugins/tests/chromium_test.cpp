// Chromium.Plugin on the real user data folders of the prefix: every
// profile's cache trees and the shared shader caches go, everything else of
// the profiles stays byte for byte.
#include <windows.h>

#include <gtest/gtest.h>

#include "pack_support.h"

using namespace pack_test;
using Lines = std::vector<std::string>;

namespace {

const std::wstring caches[] = {L"Cache", L"Code Cache", L"GPUCache",
                               L"Service Worker\\CacheStorage", L"Service Worker\\ScriptCache"};

class ChromiumTest : public ::testing::Test {
protected:
  void SetUp() override {
    for (const wchar_t* browser :
         {L"Google", L"Microsoft\\Edge", L"BraveSoftware", L"Vivaldi", L"Chromium"})
      ASSERT_FALSE(exists(local + L"\\" + browser)) << "the prefix has a browser of its own";
    ASSERT_FALSE(exists(roaming + L"\\Opera Software"));
  }

  // What a profile holds that must stay, and its caches, which go: under
  // the profile itself, or under `cache_home` for Opera's local folder.
  void profile(const std::wstring& folder, const std::wstring& cache_home = {}) {
    for (const wchar_t* kept :
         {L"Preferences", L"Secure Preferences", L"Cookies", L"History", L"Login Data",
          L"Bookmarks", L"Web Data", L"Network\\Cookies", L"Local Storage\\leveldb\\000003.log",
          L"Extensions\\aapocclcgogkmnckokdopfmhonfmgoek\\0.10_0\\manifest.json",
          L"Sessions\\Session_13350000000000001", L"Service Worker\\Database\\MANIFEST-000001"})
      expect.keep(folder + L"\\" + kept);
    const std::wstring home = cache_home.empty() ? folder : cache_home;
    for (const wchar_t* cached :
         {L"Cache\\Cache_Data\\index", L"Cache\\Cache_Data\\data_0", L"Cache\\Cache_Data\\f_00001a",
          L"Cache\\Cache_Data\\\u0219coal\u0103-\u65e5\u672c.bin", L"Code Cache\\js\\index",
          L"Code Cache\\js\\index-dir\\the-real-index", L"Code Cache\\wasm\\index",
          L"GPUCache\\data_1", L"Service Worker\\CacheStorage\\0a1b2c\\5e6f-77\\index",
          L"Service Worker\\ScriptCache\\2cc80dab_0", L"Service Worker\\ScriptCache\\index"})
      expect.gone(home + L"\\" + cached);
    // A read-only file is no reason to stay.
    SetFileAttributesW(expect.gone(home + L"\\GPUCache\\data_2").c_str(), FILE_ATTRIBUTE_READONLY);
  }

  void expect_no_caches(const std::wstring& home) {
    for (const std::wstring& cache : caches)
      EXPECT_FALSE(exists(home + L"\\" + cache)) << utf8(home + L"\\" + cache);
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
  profile(chrome + L"\\Default");
  profile(chrome + L"\\Profile 1");
  profile(edge + L"\\Default");
  profile(edge + L"\\Profile 2");
  // Opera's profile is its folder; its cache lies in the local one.
  profile(opera, opera_cache);
  for (const std::wstring& data : {chrome, edge, opera_cache}) {
    expect.gone(data + L"\\ShaderCache\\data_0");
    expect.gone(data + L"\\GrShaderCache\\data_1");
  }
  expect.keep(chrome + L"\\Local State");
  expect.keep(edge + L"\\First Run");
  // A folder without "Preferences" is no profile: its "Cache" is no browser's.
  expect.keep(chrome + L"\\Crashpad\\Cache\\settings.dat");
  expect.keep(opera + L"\\Default\\Cache\\keep.bin");

  ASSERT_TRUE(run(L"Chromium"));

  expect.check();
  for (const std::wstring& home :
       {chrome + L"\\Default", chrome + L"\\Profile 1", edge + L"\\Default",
        edge + L"\\Profile 2", opera_cache})
    expect_no_caches(home);
  for (const std::wstring& data : {chrome, edge, opera_cache}) {
    EXPECT_FALSE(exists(data + L"\\ShaderCache"));
    EXPECT_FALSE(exists(data + L"\\GrShaderCache"));
  }
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
  Language romanian("romana");
  EXPECT_EQ((Lines{"Cache-ul pentru", "Chrome, Edge, Brave", "Vivaldi, Opera", "Opera GX, Chromium",
                   "(cookie-uri raman)"}),
            describe(L"Chromium"));
}

}  // namespace
