// The Explorer verbs on the prefix's real HKEY_CLASSES_ROOT.
#include <windows.h>

#include <gtest/gtest.h>

#include "core/context_menu.h"
#include "core/routines.h"
#include "platform/files.h"
#include "platform/registry.h"

using namespace wh;

namespace {
const char* const keys[4] = {"*\\shell\\Wellharrow", "*\\shell\\Wellharrow\\command",
                             "Folder\\shell\\Wellshred", "Folder\\shell\\Wellshred\\command"};

bool key_exists(const char* key) {
  HKEY k = nullptr;
  if (RegOpenKeyA(HKEY_CLASSES_ROOT, key, &k) != ERROR_SUCCESS) return false;
  RegCloseKey(k);
  return true;
}

std::string default_value(const char* key) {
  return reg_get_value(HKEY_CLASSES_ROOT, key, "", "<none>");
}

class ContextMenu : public ::testing::Test {
protected:
  void SetUp() override { remove_verbs(); }
  void TearDown() override { remove_verbs(); }
  static void remove_verbs() {
    reg_delete_tree(HKEY_CLASSES_ROOT, "*\\shell\\Wellharrow");
    reg_delete_tree(HKEY_CLASSES_ROOT, "Folder\\shell\\Wellshred");
  }
};
}  // namespace

TEST_F(ContextMenu, RegisterWritesBothVerbsAndUnregisterRemovesAllFour) {
  EXPECT_TRUE(register_context_menu());
  const std::string command = app_path() + "\\" + app_exe_name() + ".exe %1";
  const std::string values[4] = {"Wellharrow", command, "Wellshred", command};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(values[i], default_value(keys[i])) << keys[i];
  // Written again over themselves, as each start with the box ticked does.
  EXPECT_TRUE(register_context_menu());
  EXPECT_EQ(command, default_value(keys[3]));

  EXPECT_TRUE(unregister_context_menu());
  for (const char* key : keys) EXPECT_FALSE(key_exists(key)) << key;
  // From the root of a drive: still one backslash, and the placeholder unquoted.
  EXPECT_EQ("C:\\Wellharrower.exe %1", context_menu_command("C:\\", "Wellharrower"));
}

TEST_F(ContextMenu, AFirstKeyRemovedBySomeoneElseStopsTheChainAtOnce) {
  ASSERT_TRUE(register_context_menu());
  ASSERT_EQ(ERROR_SUCCESS, reg_delete_key(HKEY_CLASSES_ROOT, keys[1]));
  EXPECT_FALSE(unregister_context_menu());
  for (int i : {0, 2, 3}) EXPECT_TRUE(key_exists(keys[i])) << keys[i];
}
