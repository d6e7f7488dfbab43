#pragma once
// The Options page (section 7): the switches of the key store and their
// handlers. Every handler writes its key the moment its control changes;
// load_settings ticks the controls at start, which runs the same handlers.
#include "core/main_form.h"

namespace wh {

class OptionsPage {
public:
  explicit OptionsPage(MainForm& form);

  Frame& optiuni;  // the page itself
  CheckBox& Check1;
  TextBox& Text1;
  CheckBox& Check2;
  Frame& Frame12;
  OptionButton& Option8;
  TextBox& Text4;
  OptionButton& Option9;
  TextBox& Text3;
  CheckBox& Check3;
  CheckBox& Check4;
  CheckBox& Check5;
  CheckBox& Check6;
  CheckBox& Check7;
  ComboBox& Combo1;
  Frame& Frame13;
  OptionButton& Option10;
  OptionButton& Option11;
  Label& Label24;  // the page's title, with the version
  Label& Label23;  // the author line
  Label& Label25;  // the author's web site

  // The end of Image11_Click, once the section left has undone its extras:
  // the action buttons go, and Combo1 is filled anew in the language in use.
  void enter();
  void hide_extras();
  // The page's captions in a language (1 English, else Romanian).
  void captions(int language);
  // Combo1 filled anew in a language, showing the section `mod` names,
  // translated where the two languages name it differently.
  void start_sections(int language, const std::string& mod);

  void Check1_Click();
  void Check2_Click();
  void Check3_Click();
  void Check4_Click();
  void Check5_Click();
  void Check6_Click();
  void Check7_Click();
  void Text1_Change();
  void Text3_Change();
  void Text4_Change();
  void Option8_Click();
  void Option9_Click();
  void Option10_Click();
  void Option11_Click();
  void Combo1_Click();

private:
  void arm_timed_free();
  // The flag pictures en and ro; they come with the skin.
  void language_flags(int language);

  MainForm& form_;
};

// The key filter of Text1, Text3 and Text4: digits and Backspace pass,
// every other typed character becomes 0.
void digits_only(int& ascii);

}  // namespace wh
