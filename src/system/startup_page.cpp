#include "system/startup_page.h"

#include "core/globals.h"

namespace wh {

StartupPage::StartupPage(MainForm& form, Frame& search_panel)
    : RUNframe(form.add<Frame>("RUNframe", page_place())),
      run_reg(form.add<ListBox>("run_reg", Place{8, 16, 600, 300, &RUNframe},
                                ListBox::Options{.multi_select = multi_extended})),
      umb_up(form.add<ImageButton>("umb_up", extra_place(3))),
      search(search_panel),
      form_(form) {
  RUNframe.Visible(false);
  RUNframe.ZOrder(0);  // over the lists that sit on the form itself
  umb_up.Visible(false);
}

void StartupPage::enter() {
  if (ActiveSection == 9) return;
  form_.hide_section_extras();
  RUNframe.Visible(true);
  umb_up.Visible(true);
  form_.light_section_button(form_.RUN);
  ActiveSection = 9;
  form_.action_buttons(true, false, true);
  // The focus before the scan: from the tray the lists stay unfilled until
  // the button is pressed again.
  run_reg.SetFocus();
  scan_startup();
}

void StartupPage::del_block() {}

void StartupPage::ref_block() { scan_startup(); }

void StartupPage::hide_extras() {
  umb_up.Visible(false);
  RUNframe.Visible(false);
}

void StartupPage::leave_for_options() {
  search.Visible(false);
  umb_up.Visible(false);
  form_.plain_section_button(form_.RUN);
}

void StartupPage::captions(int) {}

void StartupPage::scan_startup() {}

}  // namespace wh
