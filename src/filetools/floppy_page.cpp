#include "filetools/floppy_page.h"

#include "core/globals.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/rt_error.h"

namespace wh {

FloppyPage::FloppyPage(MainForm& form)
    : Frame6(form.add<Frame>("Frame6", page_place())),
      Dir2(form.add<DirListBox>("Dir2", Place{8, 16, 240, 300, &Frame6})),
      File2(form.add<FileListBox>("File2", Place{256, 16, 240, 300, &Frame6})),
      form_(form) {
  Frame6.Visible(false);
  Frame6.ZOrder(0);  // over the lists that sit on the form itself
}

void FloppyPage::enter() {
  if (ActiveSection == 5) return;
  form_.hide_section_extras();
  Frame6.Visible(true);
  form_.light_section_button(form_.kila);
  ActiveSection = 5;
  form_.action_buttons(true, false, true);
}

void FloppyPage::del_block() {}

void FloppyPage::ref_block() {
  // No floppy drive is the usual case: every step here may fail.
  file_system().DeleteFile(app_path() + "\\killa.exe");  // result not looked at
  ignore_errors([&] { Dir2.Path("a:\\"); });
  ignore_errors([&] { Dir2.Refresh(); });
  ignore_errors([&] { File2.Refresh(); });
}

void FloppyPage::hide_extras() { Frame6.Visible(false); }

void FloppyPage::leave_for_options() { form_.plain_section_button(form_.kila); }

void FloppyPage::captions(int) {}

}  // namespace wh
