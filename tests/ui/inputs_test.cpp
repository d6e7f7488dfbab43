// Text boxes, check boxes and option buttons: which changes fire events.
#include <string>
#include <vector>

#include "platform/clipboard.h"
#include "platform/rt_error.h"
#include "ui_test.h"

namespace wh::test {
namespace {

class TextBoxes : public UiTest {
protected:
  TextBox& text = form.add<TextBox>("Text1", Place{0, 0, 100, 20});
  void type(const std::string& s) {
    for (char c : s) text.send(WM_CHAR, static_cast<unsigned char>(c), 1);
  }
};

TEST_F(TextBoxes, KeyPressFilterSwallowsAndReplacesKeysButNotAPaste) {
  // The digits filter of the options page, plus a replacement.
  text.KeyPress = [](int& ascii) {
    if (ascii == 'x') ascii = '9';
    else if (ascii != 8 && (ascii < '0' || ascii > '9')) ascii = 0;
  };
  type("1a2x-3\b");
  EXPECT_EQ("129", text.Text());
  ASSERT_EQ(rt_ok, clipboard_set_text("abc"));
  text.send(WM_PASTE);
  EXPECT_EQ("129abc", text.Text());
}

TEST_F(TextBoxes, ALetterTypedInAnyScriptArrivesWholeAndSelectsByCharacter) {
  // As the keyboard delivers them: UTF-16 characters through the queue,
  // the emoji as its two surrogates. An A window would get "?" for each.
  std::vector<int> seen;
  text.KeyPress = [&](int& ascii) { seen.push_back(ascii); };
  for (wchar_t c : std::wstring(L"\x0219" L"coal\x0103 \x5B66 \xD83D\xDE00"))
    PostMessageW(text.hwnd(), WM_CHAR, c, 1);
  do_events();
  EXPECT_EQ("\xC8\x99" "coal\xC4\x83 \xE5\xAD\xA6 \xF0\x9F\x98\x80", text.Text());
  ASSERT_FALSE(seen.empty());
  EXPECT_EQ(0x219, seen.front()) << "the handler sees the letter, not a byte of it";
  text.SelStart(5);
  text.SelLength(3);
  EXPECT_EQ("\xC4\x83 \xE5\xAD\xA6", text.SelText());
}

TEST_F(TextBoxes, ChangeFiresForTypedAndSetTextButNotTheSameText) {
  int changes = 0;
  text.Change = [&] { ++changes; };
  text.Text("12");
  EXPECT_EQ(1, changes);
  text.Text("12");
  EXPECT_EQ(1, changes);
  text.SelStart(2);  // setting the text leaves the caret in front
  type("3");
  EXPECT_EQ(2, changes);
  text.SelStart(0);
  text.SelLength(1);
  EXPECT_EQ("1", text.SelText());
  text.SelText("9");
  EXPECT_EQ("923", text.Text());
  EXPECT_EQ(3, changes);
}

TEST_F(TextBoxes, ChangeHandlerThatCorrectsTheTextRunsAgain) {
  // As the limit of the RAM minutes: the handler sets the field once more.
  std::string stored;
  text.Change = [&] {
    stored = text.Text();
    if (std::stoi("0" + stored) > 1440) text.Text("1440");
  };
  text.Text("1441");
  EXPECT_EQ("1440", stored);
  EXPECT_EQ("1440", text.Text());
}

using Choices = UiTest;

TEST_F(Choices, CheckBoxClickOnlyOnAChangeOfValueAndTheUsersClickToggles) {
  auto& check = form.add<CheckBox>("Check1", Place{0, 0, 100, 20}, "Always on top");
  std::string log;
  check.Click = [&] { log += std::to_string(check.Value()); };
  check.Value(0);  // cleared already: nothing
  check.Value(1);
  check.Value(1);
  check.Value(2);
  check.send(BM_CLICK);  // grey goes to ticked
  check.send(BM_CLICK);
  EXPECT_EQ("1210", log);
  EXPECT_THROW(check.Value(3), RuntimeError);
}

TEST_F(Choices, OptionButtonsClearEachOtherWithinTheirContainer) {
  auto& a = form.add<OptionButton>("Option10", Place{0, 0, 80, 20}, "english");
  auto& b = form.add<OptionButton>("Option11", Place{0, 20, 80, 20}, "romanian");
  auto& frame = form.add<Frame>("Frame12", Place{100, 0, 150, 80});
  auto& c = form.add<OptionButton>("Option8", Place{5, 15, 80, 20, &frame});
  std::string log;
  a.Click = [&] { log += "a"; };
  b.Click = [&] { log += "b"; };
  c.Click = [&] { log += "c"; };

  c.Value(true);
  a.Value(true);
  a.Value(true);  // selected already
  EXPECT_TRUE(c.Value());  // another group
  b.send(BM_CLICK);
  EXPECT_FALSE(a.Value());
  EXPECT_TRUE(b.Value());
  b.Value(false);
  EXPECT_EQ("cab", log);
  EXPECT_FALSE(b.Value());
}

}  // namespace
}  // namespace wh::test
