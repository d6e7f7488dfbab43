#include "filetools/disk_page.h"

#include "core/globals.h"
#include "platform/rt_error.h"

namespace wh {

DiskPage::DiskPage(MainForm& form)
    : Frame5(form.add<Frame>("Frame5", page_place())),
      Drive3(form.add<DriveListBox>("Drive3", Place{8, 16, 200, 20, &Frame5})),
      back(form.add<Label>("back", Place{216, 16, 390, 20, &Frame5})),
      list(form.add<ListBox>("list", Place{8, 44, 600, 270, &Frame5},
                             ListBox::Options{.multi_select = multi_extended})),
      explorer(form.add<ImageButton>("explorer", extra_place(1))),
      form_(form) {
  Frame5.Visible(false);
  Frame5.ZOrder(0);  // over the lists that sit on the form itself
  explorer.Visible(false);
}

void DiskPage::enter() {
  // No test of the present section: the drive list is read again each time.
  form_.hide_section_extras();
  Frame5.Visible(true);
  explorer.Visible(true);
  form_.light_section_button(form_.dirinfo);
  ActiveSection = 4;
  form_.action_buttons(true, false, true);
  // A drive that is not ready must not stop the entry.
  ignore_errors([&] {
    Drive3.Refresh();
    if (list.ListCount() == 0) Drive3_Change();
  });
  Drive3.SetFocus();
}

void DiskPage::del_block() {}

void DiskPage::ref_block() { afisdirs(back.Caption(), false); }

void DiskPage::hide_extras() {
  explorer.Visible(false);
  Frame5.Visible(false);
}

void DiskPage::leave_for_options() {
  explorer.Visible(false);
  form_.plain_section_button(form_.dirinfo);
}

void DiskPage::captions(int) {}

void DiskPage::Drive3_Change() {}
void DiskPage::afisdirs(const std::string&, bool) {}

}  // namespace wh
