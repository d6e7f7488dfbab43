#include "platform/registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/scratch.h"

namespace wh {
namespace {

using test::ScratchKey;

// The default value through the old call: tests/core's context menu test.
TEST(Registry, EnumeratesKeysAndValues) {
  ScratchKey scratch("enum");
  HKEY made = nullptr;
  for (const char* name : {"k1", "k2", "a_rather_long_subkey_name"}) {
    ASSERT_EQ(ERROR_SUCCESS, reg_create_key(scratch.key(), name, made));
    reg_close_key(made);
  }
  reg_set_dword(scratch.key(), "v1", 1);
  reg_set_value(scratch.key(), "v2", REG_SZ, std::string("two"));

  std::vector<std::string> keys;
  std::string name;
  DWORD i = 0;
  LONG r;
  while ((r = reg_enum_key(scratch.key(), i++, name)) == ERROR_SUCCESS) keys.push_back(name);
  EXPECT_EQ(ERROR_NO_MORE_ITEMS, r);
  std::sort(keys.begin(), keys.end());
  EXPECT_EQ((std::vector<std::string>{"a_rather_long_subkey_name", "k1", "k2"}), keys);

  // A name that does not fit the buffer is an error, not a cut name.
  bool too_long = false;
  for (i = 0; (r = reg_enum_key(scratch.key(), i, name, 10)) != ERROR_NO_MORE_ITEMS; ++i)
    if (r == ERROR_MORE_DATA) too_long = true;
  EXPECT_TRUE(too_long);

  std::vector<std::string> values;
  RegValue v;
  for (i = 0; reg_enum_value(scratch.key(), i, v) == ERROR_SUCCESS; ++i)
    values.push_back(v.name + ":" + std::to_string(v.type) + ":" + v.data.substr(0, v.data.find('\0')));
  std::sort(values.begin(), values.end());
  EXPECT_EQ((std::vector<std::string>{"v1:4:\x01", "v2:1:two"}), values);
}

TEST(Registry, LargeValueAndTreeDelete) {
  ScratchKey scratch("tree");
  RegKey k;
  ASSERT_EQ(ERROR_SUCCESS, k.create(scratch.key(), "victim\\a\\b"));
  std::string big(100000, 'z');
  big[5] = '\0';
  EXPECT_EQ(ERROR_SUCCESS, k.set("big", REG_BINARY, big));
  RegValue v;
  EXPECT_EQ(ERROR_SUCCESS, k.enum_value(0, v));
  EXPECT_EQ(big, v.data);
  k.close();
  ASSERT_EQ(ERROR_SUCCESS, k.create(scratch.key(), "victim\\c"));
  k.close();

  EXPECT_EQ(ERROR_SUCCESS, reg_delete_tree(scratch.key(), "victim"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, k.open(scratch.key(), "victim"));
  EXPECT_FALSE(k.is_open());
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, reg_delete_tree(scratch.key(), "victim"));
}

TEST(Registry, FailedOpenPassesANullKeyOn) {
  ScratchKey scratch("missing");
  HKEY k = reinterpret_cast<HKEY>(1);
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, reg_open_key(scratch.key(), "not\\there", k));
  EXPECT_EQ(nullptr, k);
  DWORD type = 0;
  std::string data;
  EXPECT_NE(ERROR_SUCCESS, reg_query_value(k, "x", type, data));
  std::string name;
  EXPECT_NE(ERROR_SUCCESS, reg_enum_key(k, 0, name));
}

}  // namespace
}  // namespace wh
