// Which folders under program files count as Opera and Firefox.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "junk_support.h"
#include "platform/fso.h"
#include "platform/shell.h"

using namespace wh;
using wh::test::JunkShared;
using wh::test::path_exists;
using wh::test::remove_tree;
using wh::test::TestForm;

namespace {

// A folder under program files that the test made, removed at its end.
class ProgramFolder {
public:
  explicit ProgramFolder(const std::string& name) : path_(special_folder_path(38) + "\\" + name) {
    made_ = CreateDirectoryA(path_.c_str(), nullptr) != FALSE;
  }
  ~ProgramFolder() {
    if (made_) remove_tree(path_);
  }
  ProgramFolder(const ProgramFolder&) = delete;
  ProgramFolder& operator=(const ProgramFolder&) = delete;
  bool made() const { return made_; }

private:
  std::string path_;
  bool made_ = false;
};

// The one of two names that comes later in the platform's listing.
std::string later_of(const std::string& a, const std::string& b) {
  std::string last;
  for (const Folder& f : Folder(special_folder_path(38)).SubFolders())
    if (f.Name() == a || f.Name() == b) last = f.Path();
  return last;
}

void forget_browsers() {
  for (std::string* browser : {&opera_folder, &firefox_folder, &firefox_profile}) browser->clear();
}

// Only folders right under program files count; the captions tell what
// was found.
TEST(Browsers, TheLaterMatchWinsAnyNameWithFirefoxCountsAndTheCaptionsTellThem) {
  const std::string mozilla = special_folder_path(26) + "\\Mozilla";
  ASSERT_FALSE(path_exists(mozilla)) << "the prefix has a Mozilla folder of its own";
  TestForm form;
  JunkShared shared(form);
  JunkPage page(form, shared.frame1, shared.File1, shared.Dir3, shared.Drive1, shared.k1);
  forget_browsers();
  page.captions(1);
  ASSERT_TRUE(opera_folder.empty() && firefox_folder.empty()) << "the prefix has a browser";
  EXPECT_EQ("Temporary internet  files (IE)", page.check[5]->Caption());
  EXPECT_EQ("Junk files in root and " + environ_value("WinDir") + " folder",
            page.check[2]->Caption());

  ProgramFolder opera7("Opera7"), opera_mail("opera mail");
  ProgramFolder firefox("Mozilla Firefox"), tools("MyFirefoxTools");
  ASSERT_TRUE(opera7.made() && opera_mail.made() && firefox.made() && tools.made());
  page.captions(1);
  EXPECT_EQ(later_of("Opera7", "opera mail"), opera_folder);
  EXPECT_EQ(later_of("Mozilla Firefox", "MyFirefoxTools"), firefox_folder);
  EXPECT_EQ("History (IE,Opera,Firefox)", page.check[15]->Caption());
  // Never run: no profiles, so the profile is whatever the borrowed folder
  // list showed, never a folder of Firefox's.
  EXPECT_EQ(std::string::npos, firefox_profile.find("Mozilla"));

  // The first profile folder is the only one taken.
  const std::string profiles = mozilla + "\\Firefox\\Profiles";
  test::write_file(profiles + "\\b.second\\x", "");
  test::write_file(profiles + "\\a.first\\x", "");
  page.captions(2);
  EXPECT_EQ(profiles + "\\a.first\\", firefox_profile);

  remove_tree(mozilla);
  forget_browsers();
}

}  // namespace
