// The Options page's "context" box and the Explorer verbs it writes, on the
// real form, key store and HKEY_CLASSES_ROOT of the prefix.
#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/registry.h"
#include "support/form_test.h"

using namespace wh;

namespace {
const char* const file_command = "*\\shell\\Wellharrow\\command";
const char* const folder_command = "Folder\\shell\\Wellshred\\command";

bool key_exists(const char* key) {
  HKEY k = nullptr;
  if (RegOpenKeyA(HKEY_CLASSES_ROOT, key, &k) != ERROR_SUCCESS) return false;
  RegCloseKey(k);
  return true;
}

class ContextBox : public wh::test::StoreTest {
protected:
  void SetUp() override {
    StoreTest::SetUp();
    remove_verbs();
  }
  void TearDown() override {
    StoreTest::TearDown();
    remove_verbs();
  }
  static void remove_verbs() {
    reg_delete_tree(HKEY_CLASSES_ROOT, "*\\shell\\Wellharrow");
    reg_delete_tree(HKEY_CLASSES_ROOT, "Folder\\shell\\Wellshred");
  }
};
}  // namespace

TEST_F(ContextBox, StoredTrueWritesTheVerbsAndUntickingRemovesThem) {
  save_setting("runed", "3");
  save_setting("context", "true");
  Mainu& m = start_form();
  EXPECT_EQ(1, m.options.Check7.Value());
  const std::string command = app_path() + "\\" + app_exe_name() + ".exe %1";
  EXPECT_EQ(command, reg_get_value(HKEY_CLASSES_ROOT, file_command, ""));
  EXPECT_EQ(command, reg_get_value(HKEY_CLASSES_ROOT, folder_command, ""));

  raise_event([&] { m.options.Check7.Value(0); });
  EXPECT_EQ("false", setting("context"));
  EXPECT_FALSE(key_exists("*\\shell\\Wellharrow"));
  EXPECT_FALSE(key_exists("Folder\\shell\\Wellshred"));
}

TEST_F(ContextBox, UntickingAfterSomeoneElseRemovedTheFirstKeyLeavesTheRestQuietly) {
  save_setting("runed", "3");
  save_setting("context", "true");
  Mainu& m = start_form();
  ASSERT_EQ(ERROR_SUCCESS, reg_delete_key(HKEY_CLASSES_ROOT, file_command));
  raise_event([&] { m.options.Check7.Value(0); });
  EXPECT_EQ(0, m.options.Check7.Value());
  EXPECT_EQ("false", setting("context"));
  EXPECT_TRUE(key_exists("*\\shell\\Wellharrow"));
  EXPECT_TRUE(key_exists(folder_command));
  EXPECT_EQ(0u, boxes.count());
}
