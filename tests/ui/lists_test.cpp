// List rows as the program's store: text, item data, selection.
#include <string>

#include "platform/rt_error.h"
#include "ui_test.h"
#include "support/errors.h"

namespace wh::test {
namespace {

class Lists : public UiTest {
protected:
  ListBox& multi = form.add<ListBox>("List1", Place{0, 0, 150, 60},
                                     ListBox::Options{.multi_select = multi_extended});
  void fill(ListBox& l, int n) {
    for (int i = 0; i < n; ++i) {
      l.AddItem("row" + std::to_string(i));
      l.ItemData(l.NewIndex(), 100 + i);
    }
  }
};

TEST_F(Lists, RemovingOrReplacingARowKeepsDataAndSelectionWithTheirRows) {
  fill(multi, 5);
  multi.Selected(1, true);
  multi.Selected(3, true);
  multi.RemoveItem(1);
  ASSERT_EQ(4, multi.ListCount());
  EXPECT_EQ("row2", multi.List(1));
  EXPECT_EQ(102, multi.ItemData(1));
  EXPECT_EQ(103, multi.ItemData(2));
  EXPECT_TRUE(multi.Selected(2));  // row3 kept its flag
  EXPECT_EQ(1, multi.SelCount());

  multi.ItemData(2, -5);
  multi.ItemData(3, 0x7fffffff);
  multi.List(2, "renamed");
  EXPECT_EQ("renamed", multi.List(2));
  EXPECT_EQ(-5, multi.ItemData(2));
  EXPECT_EQ(0x7fffffff, multi.ItemData(3));
  EXPECT_TRUE(multi.Selected(2));
  EXPECT_EQ(4, multi.ListCount());

  // Out of range rows raise or read empty.
  EXPECT_EQ("", multi.List(4));
  EXPECT_EQ("", multi.List(-1));
  EXPECT_EQ(381, test::error_of([&] { multi.ItemData(4); }));
  EXPECT_EQ(rt_invalid_call, test::error_of([&] { multi.RemoveItem(5); }));
}

TEST_F(Lists, SortedAddPlacesByTextButInsertAtIndexDoesNot) {
  auto& sorted = form.add<ListBox>("List2", Place{0, 70, 150, 60}, ListBox::Options{.sorted = true});
  sorted.AddItem("pear");
  sorted.AddItem("Apple");
  sorted.AddItem("banana");
  EXPECT_EQ(1, sorted.NewIndex());  // "banana" went between the two
  EXPECT_EQ("Apple", sorted.List(0));
  sorted.AddItem("zebra", 0);
  EXPECT_EQ("zebra", sorted.List(0));
  EXPECT_EQ(0, sorted.NewIndex());

  multi.AddItem("b");
  multi.AddItem("a");
  EXPECT_EQ("a", multi.List(1));  // unsorted: at the end
}

TEST_F(Lists, ClickFiresOnChangesOfSelectionOnly) {
  auto& single = form.add<ListBox>("List3", Place{0, 140, 150, 60});
  fill(single, 3);
  int clicks = 0;
  single.Click = [&] { ++clicks; };
  single.ListIndex(1);
  single.ListIndex(1);
  EXPECT_EQ(1, clicks);
  EXPECT_TRUE(single.Selected(1));
  single.Selected(2, true);
  EXPECT_EQ(2, single.ListIndex());
  single.Selected(2, false);
  EXPECT_EQ(-1, single.ListIndex());
  EXPECT_EQ(3, clicks);
  EXPECT_THROW(single.ListIndex(3), RuntimeError);
}

TEST_F(Lists, MultiSelectListIndexIsTheFocusRowNotTheSelection) {
  fill(multi, 4);
  EXPECT_EQ(-1, multi.ListIndex());  // nothing chosen yet
  multi.Selected(0, true);
  multi.Selected(3, true);
  multi.ListIndex(2);
  EXPECT_EQ(2, multi.ListIndex());
  EXPECT_FALSE(multi.Selected(2));
  EXPECT_EQ(2, multi.SelCount());
  multi.Clear();
  EXPECT_EQ(-1, multi.ListIndex());
}

TEST_F(Lists, UserSelectionAndDoubleClickRaiseEventsAndKeyDownCanSwallowAKey) {
  fill(multi, 3);
  std::string log;
  multi.Click = [&] { log += "C"; };
  multi.DblClick = [&] { log += "D"; };
  multi.send(LB_SETSEL, TRUE, 1);
  notify(multi, LBN_SELCHANGE);
  notify(multi, LBN_DBLCLK);
  EXPECT_EQ("CD", log);
  EXPECT_EQ(1, multi.ListIndex());
  multi.KeyDown = [](int& key, int) {
    if (key == VK_DOWN) key = 0;
  };
  multi.send(WM_KEYDOWN, VK_DOWN, 0);
  EXPECT_EQ(1, multi.ListIndex());
}

using Combos = UiTest;

TEST_F(Combos, EditableComboTextAndClickAndADropDownListsRows) {
  auto& combo = form.add<ComboBox>("Combo1", Place{0, 0, 150, 20});
  int clicks = 0, changes = 0;
  combo.Click = [&] { ++clicks; };
  combo.Change = [&] { ++changes; };
  combo.AddItem("Uninstall programs");
  combo.AddItem("TaskManager");
  combo.Text("mod");  // any text, no row
  EXPECT_EQ("mod", combo.Text());
  EXPECT_EQ(-1, combo.ListIndex());
  EXPECT_EQ(1, changes);
  combo.ListIndex(1);
  EXPECT_EQ("TaskManager", combo.Text());
  EXPECT_EQ(1, clicks);
  combo.Clear();
  EXPECT_EQ("", combo.Text());

  // A drop-down list's text must name a row.
  auto& list = form.add<ComboBox>("Combo2", Place{0, 30, 150, 20},
                                  ComboBox::Options{.style = dropdown_list});
  list.AddItem("a");
  list.AddItem("b");
  list.Click = combo.Click;
  list.Text("b");
  EXPECT_EQ(1, list.ListIndex());
  EXPECT_EQ(2, clicks);
  EXPECT_EQ(383, test::error_of([&] { list.Text("c"); }));
  list.send(CB_SETCURSEL, 0);
  notify(list, CBN_SELCHANGE);
  EXPECT_EQ(3, clicks);
}

}  // namespace
}  // namespace wh::test
