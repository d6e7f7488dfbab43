// The section buttons. Each entry is its page's: it returns when its section
// already shows (dirinfo's excepted), hides the other sections' extras,
// lights its button, sets ActiveSection and fills its lists. No error
// handling: a failed SetFocus (the window hidden in the tray) ends the entry
// there, and the caller decides.
#include "core/globals.h"
#include "form/mainu.h"

namespace wh {

void Mainu::uninstall_Click() { uninstall_page.enter(); }
void Mainu::task_Click() { task_page.enter(); }
void Mainu::splity_Click() { split_page.enter(); }
void Mainu::dirinfo_Click() { disk_page.enter(); }
void Mainu::kila_Click() { floppy_page.enter(); }
void Mainu::shred_Click() { shred_page.enter(); }
void Mainu::junk_Click() { junk_page.enter(); }
void Mainu::RUN_Click() { startup_page.enter(); }
void Mainu::dupy_Click() { duplicates_page.enter(); }

void Mainu::hide_section_extras() {
  uninstall_page.hide_extras();
  task_page.hide_extras();
  split_page.hide_extras();
  disk_page.hide_extras();
  floppy_page.hide_extras();
  shred_page.hide_extras();
  options.hide_extras();
  junk_page.hide_extras();
  startup_page.hide_extras();
  duplicates_page.hide_extras();
  search.Visible(false);
  frame1.Visible(false);
}

void Mainu::Image11_Click() {
  // Unlike the others it undoes only what the section it leaves put up.
  if (ActiveSection == 9)
    startup_page.leave_for_options();
  else if (ActiveSection == 1)
    uninstall_page.leave_for_options();
  else if (ActiveSection == 2)
    task_page.leave_for_options();
  else if (ActiveSection == 3)
    split_page.leave_for_options();
  else if (ActiveSection == 4)
    disk_page.leave_for_options();
  else if (ActiveSection == 5)
    floppy_page.leave_for_options();
  else if (ActiveSection == 6)
    shred_page.leave_for_options();
  else if (ActiveSection == 10)
    duplicates_page.leave_for_options();
  else if (ActiveSection == 8)
    junk_page.leave_for_options();
  junk_page.junk_form.Visible(false);
  options.optiuni.Visible(true);
  startup_page.RUNframe.Visible(false);
  options.enter();
}

void Mainu::changelanguage(int language) {
  uninstall_page.captions(language);
  task_page.captions(language);
  split_page.captions(language);
  disk_page.captions(language);
  floppy_page.captions(language);
  shred_page.captions(language);
  junk_page.captions(language);
  startup_page.captions(language);
  duplicates_page.captions(language);
  power.captions(language);
}

}  // namespace wh
