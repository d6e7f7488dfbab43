#include "filetools/floppy_page.h"

#include "core/globals.h"
#include "core/paths.h"
#include "filetools/floppy_tool.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/rt_error.h"

namespace wh {

namespace {
bool english() { return language_flag == 1; }
}  // namespace

FloppyPage::FloppyPage(MainForm& form)
    : Frame6(form.add<Frame>("Frame6", page_place())),
      Label6(form.add<Label>("Label6", Place{12, 12, 420, 60, &Frame6})),
      Image9(form.add<ImageButton>("Image9", Place{456, 16, 48, 48, &Frame6})),
      Label7(form.add<Label>("Label7", Place{512, 22, 100, 40, &Frame6})),
      Frame7(form.add<Frame>("Frame7", Place{8, 80, 604, 244, &Frame6}, "a:\\")),
      Dir2(form.add<DirListBox>("Dir2", Place{10, 20, 280, 214, &Frame7})),
      File2(form.add<FileListBox>("File2", Place{298, 20, 296, 214, &Frame7})),
      form_(form) {
  Frame6.Visible(false);
  Frame6.ZOrder(0);  // over the lists that sit on the form itself
  Frame7.Visible(false);
  Image9.LoadPicture("KILLA_JOS");
  Image9.Click = [this] { Image9_Click(); };
  Label7.Click = [this] { Image9_Click(); };  // the picture's caption
  Dir2.Change = [this] { Dir2_Change(); };
  File2.KeyDown = [this](int& key, int shift) { File2_KeyDown(key, shift); };
  form_.closing.Tick = [this] { closing_Timer(); };
  captions(1);
}

void FloppyPage::enter() {
  if (ActiveSection == 5) return;
  form_.hide_section_extras();
  Frame6.Visible(true);
  form_.light_section_button(form_.kila);
  ActiveSection = 5;
  form_.action_buttons(true, false, true);
}

void FloppyPage::del_block() {
  if (!file_system().FolderExists("a:\\")) {
    msg_box(english() ? "Please inserd disk in floppy drive!" : "Introduceti discheta in unitate!",
            MB_ICONSTOP);
    return;
  }
  form_.mark.Visible(true);
  form_.lcd.Clear();
  form_.lcd.WriteText(english() ? "Formatting..." : "Se formateaza..");
  run_killa();
  form_.closing.Enabled(true);
}

void FloppyPage::closing_Timer() {
  if (!killa_watch()) return;
  format_done = true;
  form_.closing.Enabled(false);
  form_.mark.Visible(false);
  ignore_errors([&] { check(file_system().DeleteFile(killa_path())); });
  form_.ref_Click();
}

void FloppyPage::ref_block() {
  // No floppy drive is the usual case: every step here may fail.
  file_system().DeleteFile(app_path() + "\\killa.exe");  // result not looked at
  ignore_errors([&] { Dir2.Path("a:\\"); });
  ignore_errors([&] { Dir2.Refresh(); });
  ignore_errors([&] { File2.Refresh(); });
}

void FloppyPage::hide_extras() { Frame6.Visible(false); }

void FloppyPage::leave_for_options() { form_.plain_section_button(form_.kila); }

void FloppyPage::captions(int language) {
  const bool en = language == 1;
  Label6.Caption(en ? "Wellformat empties the diskette in drive A: in a few seconds. Insert the "
                      "disk and press Harrow."
                    : "Wellformat goleste discheta din unitatea A: in cateva secunde. Introduceti "
                      "discheta si apasati Harrow.");
  Label7.Caption(en ? "Show content of floppy disk" : "Arata continutul dischetei");
}

void FloppyPage::Image9_Click() {
  // No disk in the drive: nothing to show, and nothing said.
  ignore_errors([&] {
    Dir2.Path("a:\\");
    Frame7.Visible(true);
  });
}

void FloppyPage::Dir2_Change() { File2.Path(Dir2.Path()); }

void FloppyPage::File2_KeyDown(int& key, int shift) {
  if (key != VK_DELETE || shift != 0 || File2.ListIndex() < 0) return;
  check(file_system().DeleteFile(join_path(Dir2.Path(), File2.FileName())));
  File2.Refresh();
}

}  // namespace wh
