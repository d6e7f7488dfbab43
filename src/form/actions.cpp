// The three action buttons under the sections: del (the section's main
// action), delall (do it to everything) and ref (read again). Each tests
// ActiveSection by its own chain, in its own order.
#include "core/globals.h"
#include "core/tray.h"
#include "core/settings.h"
#include "form/mainu.h"
#include "platform/rt_error.h"

namespace wh {

void Mainu::del_Click() {
  // A copy first: nothing a block does to the section may send it into
  // another block.
  const uint8_t section = ActiveSection;
  if (section == 10)
    del_duplicates();
  else if (section == 9)
    del_startup_items();
  else if (section == 8)
    del_junk();
  else if (section == 1)
    del_uninstall();
  else if (section == 2)
    del_tasks();
  else if (section == 3)
    del_split();
  else if (section == 4)
    del_disk_explorer();
  else if (section == 5)
    del_floppy();
  else if (section == 6)
    del_shred();
}

void Mainu::delall_Click() {
  if (ActiveSection == 2) delall_tasks();
  if (ActiveSection == 8) delall_junk();
  if (setting("harrowall") == "true" && ActiveSection == 2) {
    tray_remove();
    end_program();
  }
}

void Mainu::ref_Click() {
  if (ActiveSection == 9)
    ref_startup();
  else if (ActiveSection == 8)
    ref_junk();
  else if (ActiveSection == 1)
    ref_uninstall();
  else if (ActiveSection == 2)
    ref_tasks();
  else if (ActiveSection == 4)
    ref_disk_explorer();
  else if (ActiveSection == 3)
    ref_split();
  else if (ActiveSection == 5)
    ref_floppy();
  else if (ActiveSection == 6)
    ref_shred();
}

void Mainu::del_duplicates() { duplicates_page.del_block(); }
void Mainu::del_startup_items() { startup_page.del_block(); }
void Mainu::del_junk() { junk_page.del_block(); }
void Mainu::del_uninstall() { uninstall_page.del_block(); }
void Mainu::del_tasks() { task_page.del_block(); }
void Mainu::del_split() { split_page.del_block(); }
void Mainu::del_disk_explorer() { disk_page.del_block(); }
void Mainu::del_floppy() { floppy_page.del_block(); }
void Mainu::del_shred() { shred_page.del_block(); }
void Mainu::delall_tasks() { task_page.delall_block(); }
void Mainu::delall_junk() { junk_page.delall_block(); }
void Mainu::ref_startup() { startup_page.ref_block(); }
void Mainu::ref_junk() { junk_page.ref_block(); }
void Mainu::ref_uninstall() { uninstall_page.ref_block(); }
void Mainu::ref_tasks() { task_page.ref_block(); }
void Mainu::ref_disk_explorer() { disk_page.ref_block(); }
void Mainu::ref_split() { split_page.ref_block(); }
void Mainu::ref_floppy() { floppy_page.ref_block(); }
void Mainu::ref_shred() { shred_page.ref_block(); }

}  // namespace wh
