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

  std::wstring local = local_appdata(), roaming = roaming_appdata();
  Pack pack;
  Made made;
  Expect expect{made};
};

TEST_F(FirefoxTest, EveryProfileLosesItsThreeCachesAndKeepsItsData) {
  firefox_profile(expect, L"Mozilla\\Firefox", L"k3j2x9qa.default-release");
  firefox_profile(expect, L"Mozilla\\Firefox", L"p0q1w2e3.work");
  firefox_profile(expect, L"librewolf", L"a1b2c3d4.default-default");  // a fork in the same layout
  EXPECT_EQ((Lines{"Caches, thumbs of", "Firefox, LibreWolf", "3 profiles", "(cookies stay)"}),
            describe(L"Firefox"));

  ASSERT_TRUE(run(L"Firefox"));

  expect.check();
}

}  // namespace
