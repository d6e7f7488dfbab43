#include "system/uninstall_page.h"

#include "core/globals.h"

namespace wh {

UninstallPage::UninstallPage(MainForm& form, Frame& search_panel)
    : List1(form.add<ListBox>("List1", page_place(),
                              ListBox::Options{.multi_select = multi_extended})),
      PIE(form.add<ImageButton>("PIE", extra_place(0))),
      QM(form.add<ImageButton>("QM", extra_place(1))),
      lupe(form.add<ImageButton>("lupe", extra_place(2))),
      delfolder(form.add<ImageButton>("delfolder", extra_place(3))),
      talpa(form.add<ImageButton>("talpa", extra_place(4))),
      search(search_panel),
      form_(form) {
  // As designed the first section's extras show; the start puts them right.
  for (Control* c : std::initializer_list<Control*>{&QM, &lupe, &talpa}) c->Visible(false);
  talpa.LoadPicture("PICIOR_JOS");
}

void UninstallPage::enter() {
  if (ActiveSection == 1) return;
  form_.hide_section_extras();
  PIE.Visible(true);
  delfolder.Visible(true);
  form_.light_section_button(form_.uninstall);
  form_.action_buttons(true, false, true);
  // The focus comes before the section number: from the tray this fails
  // and ActiveSection stays where it was.
  List1.SetFocus();
  ActiveSection = 1;
  scan_installed_programs();
  form_.section_tip(
      1,
      language_flag == 1
          ? "YOU CAN EASILY UNINSTALL A PROGRAM STRAIGHT FROM YOUR DESKTOP BY DROPPING ITS "
            "SHORTCUT OVER WELLHARROWER OR BY SELECTING WELLHARROW IN THE RIGHT CLICK CONTEXT "
            "MENU IN EXPLORER"
          : "PUTETI DEZINSTALA CU USURINTA UN PROGRAM DIRECT DE PE DESKTOP TRAGAND SCURTATURA "
            "LUI PESTE WELLHARROWER SAU DAND CLICK DREAPTA SI ALEGAND WELLHARROW DIN MENIUL "
            "CONTEXTUAL DIN EXPLORER",
      true);
}

void UninstallPage::del_block() {}

void UninstallPage::ref_block() {
  List1.Clear();
  scan_installed_programs();
}

void UninstallPage::hide_extras() {
  for (Control* c : std::initializer_list<Control*>{&PIE, &QM, &lupe, &talpa, &delfolder})
    c->Visible(false);
}

void UninstallPage::leave_for_options() {
  for (Control* c : std::initializer_list<Control*>{&PIE, &QM, &lupe, &delfolder, &search, &talpa})
    c->Visible(false);
  form_.plain_section_button(form_.uninstall);
}

void UninstallPage::captions(int) {}

void UninstallPage::scan_installed_programs() {}
void UninstallPage::uninstall_dropped(const std::string&) {}

}  // namespace wh
