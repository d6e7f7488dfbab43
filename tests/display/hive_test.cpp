#include "display/hive.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace wh {
namespace {

std::string key_text(const CHive& h, std::int32_t node) {
  return std::get<std::string>(h.Node(node).key);
}

// The keys in position order.
std::vector<std::string> keys_of(CHive& h) {
  std::vector<std::string> keys;
  for (std::int32_t i = 1; i <= h.Count(); ++i) keys.push_back(std::get<std::string>(h.Key(i)));
  return keys;
}

std::string lowered(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::tolower(c); });
  return s;
}

// Walks the tree: parent links, key order, no red node with a red child, and
// the same number of black nodes on every path. Returns the black height.
int check_subtree(const CHive& h, std::int32_t n, std::int32_t parent, int& nodes) {
  if (n == 0) return 1;
  ++nodes;
  const HiveNode& node = h.Node(n);
  EXPECT_EQ(parent, node.parent) << "node " << n;
  if (node.colour == 1) {
    EXPECT_EQ(0, h.Node(node.left).colour) << "red node " << n << " has a red left child";
    EXPECT_EQ(0, h.Node(node.right).colour) << "red node " << n << " has a red right child";
  }
  std::string k = lowered(key_text(h, n));
  if (node.left) {
    EXPECT_LT(lowered(key_text(h, node.left)), k);
  }
  if (node.right) {
    EXPECT_GT(lowered(key_text(h, node.right)), k);
  }
  int lh = check_subtree(h, node.left, n, nodes);
  int rh = check_subtree(h, node.right, n, nodes);
  EXPECT_EQ(lh, rh) << "black heights differ under node " << n;
  return lh + (node.colour == 0 ? 1 : 0);
}

void check_tree(const CHive& h) {
  if (h.Root()) {
    EXPECT_EQ(0, h.Node(h.Root()).colour) << "root is red";
  }
  int nodes = 0;
  check_subtree(h, h.Root(), 0, nodes);
  EXPECT_EQ(h.Count(), nodes);
}

TEST(Hive, RandomAddsAndRemovesKeepTheTreeAndTheOrder) {
  CHive h;
  h.raise_errors = true;
  std::vector<std::string> ref;  // keys in position order
  std::mt19937 rng(20240607);
  int next_key = 0;
  for (int step = 0; step < 1000; ++step) {
    int pick = static_cast<int>(rng() % 10);
    if (ref.empty() || pick < 6) {
      // Mixed case on purpose: lookups ignore it, the stored key keeps it.
      std::string key = (next_key % 2 ? "Key" : "kEY") + std::to_string(next_key);
      ++next_key;
      if (pick == 0 && !ref.empty()) {
        auto at = static_cast<std::int32_t>(rng() % ref.size());
        h.Add(std::int32_t{step}, key, ref[at]);  // before, by key
        ref.insert(ref.begin() + at, key);
      } else if (pick == 1 && !ref.empty()) {
        auto at = static_cast<std::int32_t>(rng() % ref.size());
        h.Add(std::int32_t{step}, key, {}, at + 1);  // after, by position
        ref.insert(ref.begin() + at + 1, key);
      } else {
        h.Add(std::int32_t{step}, key);
        ref.push_back(key);
      }
    } else {
      auto at = static_cast<std::int32_t>(rng() % ref.size());
      if (pick < 8)
        h.Remove(at + 1);
      else
        h.Remove(lowered(ref[at]));
      ref.erase(ref.begin() + at);
    }
    ASSERT_EQ(static_cast<std::int32_t>(ref.size()), h.Count()) << "step " << step;
    if (step % 25 == 0 || step > 950) {
      check_tree(h);
      ASSERT_EQ(ref, keys_of(h)) << "at step " << step;
    }
  }
  EXPECT_EQ(nullptr, h.Errors());
}

TEST(Hive, GrowsByHalfWhenTheArrayIsFull) {
  CHive h;
  for (int i = 1; i <= 100; ++i) h.Add(std::int32_t{i}, "k" + std::to_string(i));
  EXPECT_EQ(100, h.NodeCapacity());
  h.Add(std::int32_t{101}, "k101");
  EXPECT_EQ(150, h.NodeCapacity());
  for (int i = 102; i <= 151; ++i) h.Add(std::int32_t{i}, "k" + std::to_string(i));
  EXPECT_EQ(225, h.NodeCapacity());
  for (int i = 1; i <= 151; ++i)
    ASSERT_EQ(HiveVariant{std::int32_t{i}}, h.Value("K" + std::to_string(i)));
  check_tree(h);

  // Freed slots are used again before the array grows.
  for (int i = 1; i <= 151; ++i) h.Remove("k" + std::to_string(i));
  EXPECT_EQ(0, h.Root());
  for (int i = 1; i <= 225; ++i) h.Add(std::int32_t{i}, "n" + std::to_string(i));
  EXPECT_EQ(225, h.NodeCapacity());

  h.Clear();
  EXPECT_EQ(0, h.Count());
  EXPECT_EQ(100, h.NodeCapacity());
}

TEST(Hive, PositionsFollowInsertionRemovalAndNeighbours) {
  CHive h;
  for (const char* k : {"a", "b", "c", "d"}) h.Add(std::string("val_") + k, k);
  h.Remove(std::int32_t{1});
  ASSERT_EQ(3, h.Count());
  EXPECT_EQ(HiveVariant{"val_b"}, h.Value(std::int32_t{1}));
  EXPECT_EQ(HiveVariant{"val_d"}, h.Value(std::int32_t{3}));

  h.Add("val_x", "x", "c");                  // before c
  h.Add("val_y", "y", {}, std::int32_t{1});  // after position 1
  EXPECT_EQ((std::vector<std::string>{"b", "y", "x", "c", "d"}), keys_of(h));

  // Removing a node with two children moves its successor's entry; every
  // position must still name the same key.
  h.Remove("b");
  EXPECT_EQ((std::vector<std::string>{"y", "x", "c", "d"}), keys_of(h));
  EXPECT_EQ(HiveVariant{"val_c"}, h.Value("c"));
  check_tree(h);
}

TEST(Hive, KeysAreTextNumbersArePositions) {
  CHive h;
  h.Add("one", "Abc");
  h.Add("two", "aBC");
  EXPECT_EQ(1, h.Count());
  ASSERT_NE(nullptr, h.Errors());
  EXPECT_EQ(CHive::ErrorNumber(8), h.Errors()->Item(1).number);
  EXPECT_EQ(HiveVariant{"Abc"}, h.Key("ABC"));  // stored as first given

  CHive exact;
  exact.ignore_case = false;
  exact.Add("one", "Abc");
  exact.Add("two", "aBC");
  EXPECT_EQ(2, exact.Count());
  EXPECT_EQ(HiveVariant{"two"}, exact.Value("aBC"));
  EXPECT_EQ(nullptr, exact.Errors());

  CHive dup;
  dup.allow_duplicates = true;
  dup.Add("one", "k");
  dup.Add("two", "K");
  EXPECT_EQ(2, dup.Count());

  // A whole number can't be a key; a floating one can, and stays a key.
  CHive n;
  n.raise_errors = true;
  EXPECT_THROW(n.Add("x", std::int32_t{2}), HiveError);
  EXPECT_EQ(0, n.Count());
  n.Add("first", "a");
  n.Add("second", 1.0);
  n.Add("third", "c");
  EXPECT_EQ(HiveVariant{"second"}, n.Value(1.0));
  EXPECT_EQ(HiveVariant{"first"}, n.Value(std::int32_t{1}));
  EXPECT_THROW(n.Remove(3.0), HiveError);  // a key that isn't there, not position 3
  EXPECT_EQ(3, n.Count());
  n.Item(1.0, std::string("changed"));
  EXPECT_EQ(HiveVariant{"changed"}, n.Value(std::int32_t{2}));

  // Objects are kept by reference.
  auto obj = std::make_shared<int>(7);
  n.Item(std::int32_t{3}, std::shared_ptr<void>(obj));
  *obj = 8;
  EXPECT_EQ(8, *std::static_pointer_cast<int>(std::get<std::shared_ptr<void>>(n.Value("c"))));
}

TEST(Hive, FailuresAreCollectedOrRaised) {
  CHive h;
  EXPECT_EQ(nullptr, h.Errors());
  h.Add("v", "k");
  h.Add("w", std::int32_t{5});          // 4
  h.Add("w", std::string());            // 4096
  h.Remove(std::int32_t{2});            // 1
  h.Remove("missing");                  // 2
  h.Add("w", "new", "missing");         // 2, and nothing added
  ASSERT_NE(nullptr, h.Errors());
  const CErrorCollection& e = *h.Errors();
  ASSERT_EQ(5, e.Count());
  EXPECT_EQ(static_cast<int>(0x8004138Cu), e.Item(1).number);
  EXPECT_EQ(CHive::ErrorNumber(4096), e.Item(2).number);
  EXPECT_EQ(CHive::ErrorNumber(1), e.Item(3).number);
  EXPECT_EQ("GetIndex.CHive", e.Item(3).source);
  EXPECT_EQ(CHive::ErrorNumber(2), e.Item(4).number);
  EXPECT_EQ(CHive::ErrorNumber(2), e.Item(5).number);
  EXPECT_EQ("Add.CHive", e.Item(5).source);
  EXPECT_EQ(1, h.Count());
  EXPECT_EQ(100, h.NodeCapacity());

  h.raise_errors = true;
  try {
    h.Add("again", "K");
    FAIL() << "a duplicate key must raise";
  } catch (const HiveError& err) {
    EXPECT_EQ(CHive::ErrorNumber(8), err.number());
    EXPECT_EQ("Add.CHive", err.source());
    EXPECT_STREQ("Duplicate Key.", err.what());
  }
  EXPECT_EQ(6, h.Errors()->Count());  // raised ones are collected too
}

TEST(Hive, WithoutAKeyEachEntryGetsAGuid) {
  CHive h;
  h.Add("a");
  h.Add("b");
  ASSERT_EQ(2, h.Count());
  const std::string g = std::get<std::string>(h.Key(std::int32_t{1}));
  ASSERT_EQ(38u, g.size());
  EXPECT_EQ('{', g.front());
  EXPECT_EQ('}', g.back());
}

}  // namespace
}  // namespace wh
