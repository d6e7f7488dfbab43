#include "filetools/split_page.h"

#include "core/globals.h"

namespace wh {

SplitPage::SplitPage(MainForm& form)
    : splitbox(form.add<Frame>("splitbox", page_place())),
      Option1(form.add<OptionButton>("Option1", Place{8, 16, 120, 20, &splitbox})),
      Label1(form.add<Label>("Label1", Place{136, 16, 120, 20, &splitbox})),
      dir1(form.add<DirListBox>("dir1", Place{8, 44, 240, 270, &splitbox})),
      File1(form.add<FileListBox>("File1", Place{256, 44, 240, 270, &splitbox})),
      form_(form) {
  splitbox.Visible(false);
  splitbox.ZOrder(0);  // over the lists that sit on the form itself
}

void SplitPage::enter() {
  if (ActiveSection == 3) return;
  ActiveSection = 3;
  form_.hide_section_extras();
  splitbox.Visible(true);
  form_.light_section_button(form_.splity);
  form_.action_buttons(true, false, true);
  Option1.Value(true);
  Label1_Click();
  form_.section_tip(
      3,
      language_flag == 1
          ? "YOU CAN EASILY SPLIT A FILE STRAIGHT FROM YOUR DESKTOP BY DROPPING IT OVER "
            "WELLHARROWER OR BY SELECTING WELLHARROW IN THE RIGHT CLICK CONTEXT MENU IN EXPLORER"
          : "PUTETI DESPICA CU USURINTA UN FISIER DIRECT DE PE DESKTOP TRAGAND-UL PESTE "
            "WELLHARROWER SAU DAND CLICK DREAPTA SI ALEGAND WELLHARROW DIN MENIUL CONTEXTUAL DIN "
            "EXPLORER",
      false);
}

void SplitPage::del_block() {}

void SplitPage::ref_block() {
  dir1.Refresh();
  File1.Refresh();
}

void SplitPage::hide_extras() { splitbox.Visible(false); }

void SplitPage::leave_for_options() { form_.plain_section_button(form_.splity); }

void SplitPage::captions(int) {}

void SplitPage::Label1_Click() {}

}  // namespace wh
