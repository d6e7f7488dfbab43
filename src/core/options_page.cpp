#include "core/options_page.h"

#include <algorithm>

#include "core/globals.h"
#include "core/context_menu.h"
#include "core/routines.h"
#include "core/settings.h"
#include "core/skin_layout.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/memory.h"

namespace wh {

namespace {
const char* const run_key = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
// SetWindowPos flags: no size, no move, no activation, and show.
constexpr UINT keep_place_and_show = 83;

const char* switch_text(const CheckBox& box) { return box.Value() == 1 ? "true" : "false"; }

// A timer's interval from a number of seconds; a pasted negative stops it.
unsigned interval_of(const std::string& seconds) {
  return static_cast<unsigned>(std::max(0.0, val(seconds) * 1000));
}
}  // namespace

void digits_only(int& ascii) {
  if (ascii != '0' && val(std::string(1, static_cast<char>(ascii))) == 0 && ascii != 8) ascii = 0;
}

OptionsPage::OptionsPage(MainForm& form)
    : optiuni(form.add<Frame>("optiuni", Place{skin::content.left, skin::content.top,
                                               skin::content.width, skin::content.height})),
      Check1(form.add<CheckBox>("Check1", Place{8, 16, 150, 20, &optiuni}, "Auto refresh")),
      Text1(form.add<TextBox>("Text1", Place{160, 16, 40, 20, &optiuni})),
      Check2(form.add<CheckBox>("Check2", Place{8, 44, 250, 20, &optiuni},
                                "Automatically free up RAM")),
      Frame12(form.add<Frame>("Frame12", Place{24, 66, 300, 60, &optiuni})),
      Option8(form.add<OptionButton>("Option8", Place{8, 14, 70, 18, &Frame12}, "every")),
      Text4(form.add<TextBox>("Text4", Place{80, 12, 50, 20, &Frame12})),
      Option9(form.add<OptionButton>("Option9", Place{8, 36, 70, 18, &Frame12}, "free RAM<")),
      Text3(form.add<TextBox>("Text3", Place{80, 34, 50, 20, &Frame12})),
      Check3(form.add<CheckBox>("Check3", Place{8, 134, 320, 20, &optiuni},
                                "HarrowALL closes Wellharrower too")),
      Check4(form.add<CheckBox>("Check4", Place{8, 158, 320, 20, &optiuni}, "Always on top")),
      Check5(form.add<CheckBox>("Check5", Place{8, 182, 320, 20, &optiuni},
                                "Launch Welharrower at the system start up")),
      Check6(form.add<CheckBox>("Check6", Place{8, 206, 320, 20, &optiuni}, "Start in tray")),
      Check7(form.add<CheckBox>("Check7", Place{8, 230, 320, 20, &optiuni},
                                "Add Wellharrower to Explorer context menu")),
      Combo1(form.add<ComboBox>("Combo1", Place{8, 264, 220, 22, &optiuni})),
      Frame13(form.add<Frame>("Frame13", Place{360, 16, 200, 76, &optiuni}, "Language")),
      Option10(form.add<OptionButton>("Option10", Place{8, 20, 120, 20, &Frame13}, "english")),
      Option11(form.add<OptionButton>("Option11", Place{8, 46, 120, 20, &Frame13}, "romanian")),
      form_(form) {
  optiuni.Visible(false);
  // Off as designed: each comes on with its box.
  Text1.Enabled(false);
  Frame12.Enabled(false);

  Text1.KeyPress = digits_only;
  Text3.KeyPress = digits_only;
  Text4.KeyPress = digits_only;
  Text1.Change = [this] { Text1_Change(); };
  Text3.Change = [this] { Text3_Change(); };
  Text4.Change = [this] { Text4_Change(); };
  Check1.Click = [this] { Check1_Click(); };
  Check2.Click = [this] { Check2_Click(); };
  Check3.Click = [this] { Check3_Click(); };
  Check4.Click = [this] { Check4_Click(); };
  Check5.Click = [this] { Check5_Click(); };
  Check6.Click = [this] { Check6_Click(); };
  Check7.Click = [this] { Check7_Click(); };
  Option8.Click = [this] { Option8_Click(); };
  Option9.Click = [this] { Option9_Click(); };
  Option10.Click = [this] { Option10_Click(); };
  Option11.Click = [this] { Option11_Click(); };
  Combo1.Click = [this] { Combo1_Click(); };
}

void OptionsPage::enter() {
  form_.del.Visible(false);
  form_.ref.Visible(false);
  ActiveSection = 7;
  Combo1.Clear();
  Combo1.Text(setting("mod"));
  // "Disk Space Explorer" here, "DirInfo" in the list of changelanguage;
  // it matches no start section.
  const char* const english[] = {"Uninstall programs", "JunkHarrower",        "TaskManager",
                                 "Split Files",        "Disk Space Explorer", "Wellformat",
                                 "Shred Files",        "StartUp Manager",     "Duplicate Harrower"};
  const char* const romanian[] = {"Dezinstalare programe", "Curatare hard disk", "TaskManager",
                                  "Despicare fisiere",     "DirInfo",            "Wellformat",
                                  "Radere fisiere",        "StartUp",
                                  "Gasire fisiere duplicat"};
  for (const char* name : language_flag == 1 ? english : romanian) Combo1.AddItem(name);
}

void OptionsPage::hide_extras() { optiuni.Visible(false); }

void OptionsPage::Check1_Click() {
  if (Check1.Value() == 1) {
    save_setting("autorefresh", "true");
    Text1.Enabled(true);
    Text1.SelStart(0);
    Text1.SelLength(static_cast<int>(Text1.Text().size()));
    // Fails while the page can't be seen (at start): the timer is then
    // started by load_settings itself.
    Text1.SetFocus();
    form_.Timer1.Interval(interval_of(Text1.Text()));
    form_.Timer1.Enabled(true);
  } else {
    save_setting("autorefresh", "false");
    form_.Timer1.Enabled(false);
    Text1.Enabled(false);
  }
}

void OptionsPage::Check2_Click() {
  if (Check2.Value() == 1) {
    Frame12.Enabled(true);
    save_setting("autofree", "true");
  } else {
    save_setting("autofree", "false");
    Frame12.Enabled(false);
  }
}

void OptionsPage::Check3_Click() { save_setting("harrowall", switch_text(Check3)); }

void OptionsPage::Check4_Click() {
  // The key is "keyboard" for what is "always on top"; the name stays.
  save_setting("keyboard", switch_text(Check4));
  // The flags show the window: ticked at start, it appears here already.
  ::SetWindowPos(form_.hwnd(), Check4.Value() == 1 ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 keep_place_and_show);
}

void OptionsPage::Check5_Click() {
  save_setting("autostart", switch_text(Check5));
  if (Check5.Value() == 1)
    reg_set_value(HKEY_LOCAL_MACHINE, run_key, "Wellharrower", app_path() + "\\Wellharrower.exe");
  else
    reg_delete_value(HKEY_LOCAL_MACHINE, run_key, "Wellharrower");
}

void OptionsPage::Check6_Click() { save_setting("tray", switch_text(Check6)); }

void OptionsPage::Check7_Click() {
  save_setting("context", switch_text(Check7));
  if (Check7.Value() == 1)
    register_context_menu();
  else
    unregister_context_menu();
}

void OptionsPage::Text1_Change() {
  // Setting the text runs this handler again, nested; the outer call then
  // stores the same value once more.
  if (Text1.Text().empty()) Text1.Text("0");
  if (val(Text1.Text()) > 59) Text1.Text("59");
  save_setting("autorefreshtime", Text1.Text());
  // An interval of 0 stops the ticks; the timer stays enabled.
  form_.Timer1.Interval(interval_of(Text1.Text()));
}

void OptionsPage::Text3_Change() { save_setting("ramamount", Text3.Text()); }

void OptionsPage::Text4_Change() {
  // Stored before the limit: "1441" stands in the store for the length of
  // the nested call that stores "1440".
  save_setting("ramtime", Text4.Text());
  if (val(Text4.Text()) > 1440) Text4.Text("1440");
  if (val(Text4.Text()) != 0) arm_timed_free();
}

void OptionsPage::arm_timed_free() {
  form_.next_free_tick = static_cast<uint32_t>(val(Text4.Text()) * 60000) + tick_count();
}

void OptionsPage::Option8_Click() {
  if (Option8.Value()) {
    save_setting("autofreetype", "timp");
    if (val(Text4.Text()) != 0) arm_timed_free();
  } else {
    save_setting("autofreetype", "RAM");
  }
}

void OptionsPage::Option9_Click() {
  save_setting("autofreetype", Option9.Value() ? "RAM" : "timp");
}

void OptionsPage::Option10_Click() {
  save_setting("Limba", "engleza");
  language_flag = 1;
  language_flags(1);
  form_.changelanguage(1);
}

void OptionsPage::Option11_Click() {
  save_setting("Limba", "romana");
  language_flag = 2;
  language_flags(2);
  form_.changelanguage(2);
}

void OptionsPage::Combo1_Click() {
  // The row, not Text(): while a pick from the list is being notified the
  // edit part still holds the old text.
  const int row = Combo1.ListIndex();
  save_setting("mod", row >= 0 ? Combo1.List(row) : Combo1.Text());
}

// The flag pictures come with the language work.
void OptionsPage::language_flags(int) {}

}  // namespace wh
