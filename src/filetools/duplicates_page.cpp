#include "filetools/duplicates_page.h"

#include "core/globals.h"

namespace wh {

DuplicatesPage::DuplicatesPage(MainForm& form)
    : finddups(form.add<Frame>("finddups", page_place())),
      Picture17(form.add<PictureBox>("Picture17", Place{8, 16, 600, 300, &finddups})),
      form_(form) {
  finddups.Visible(false);
  finddups.ZOrder(0);  // over the lists that sit on the form itself
  Picture17.Visible(false);
}

void DuplicatesPage::enter() {
  if (ActiveSection == 10) return;
  form_.hide_section_extras();
  finddups.Visible(true);
  form_.light_section_button(form_.dupy);
  ActiveSection = 10;
  form_.action_buttons(Picture17.Visible(), false, false);  // del only on the results page
  load_search_paths();
}

void DuplicatesPage::del_block() {}

void DuplicatesPage::hide_extras() { finddups.Visible(false); }

void DuplicatesPage::leave_for_options() {
  finddups.Visible(false);
  form_.plain_section_button(form_.dupy);
}

void DuplicatesPage::captions(int) {}

void DuplicatesPage::load_search_paths() {}

}  // namespace wh
