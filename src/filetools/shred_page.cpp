#include "filetools/shred_page.h"

#include "core/globals.h"
#include "core/settings.h"
#include "core/paths.h"
#include "core/rnd.h"
#include "core/text.h"
#include "filetools/shredder.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"

namespace wh {

namespace {
bool english() { return language_flag == 1; }

// The folder's own throw-away name: six letters and digits, no "a" before
// them and no number behind.
std::string folder_throwaway_name() {
  SYSTEMTIME now;
  ::GetLocalTime(&now);
  return throwaway_stem(rnd, now.wSecond);
}
}  // namespace

ShredPage::ShredPage(MainForm& form)
    : Frame8(form.add<Frame>("Frame8", page_place())),
      Frame9(form.add<Frame>("Frame9", Place{448, 12, 164, 104, &Frame8}, "Overwrite times")),
      Option5(form.add<OptionButton>("Option5", Place{10, 22, 106, 20, &Frame9}, "3 Normal")),
      Option6(form.add<OptionButton>("Option6", Place{10, 48, 106, 20, &Frame9}, "5 Advanced")),
      Option7(form.add<OptionButton>("Option7", Place{10, 74, 106, 20, &Frame9}, "7 Paranoia")),
      Drive4(form.add<DriveListBox>("Drive4", Place{10, 16, 226, 22, &Frame8})),
      Dir3(form.add<DirListBox>("Dir3", Place{10, 44, 226, 240, &Frame8})),
      File3(form.add<FileListBox>("File3", Place{244, 16, 196, 268, &Frame8})),
      Label22(form.add<Label>("Label22", Place{10, 292, 600, 30, &Frame8})),
      form_(form) {
  Frame8.Visible(false);
  Frame8.ZOrder(0);  // over the lists that sit on the form itself
  Drive4.Change = [this] { Drive4_Change(); };
  Dir3.Change = [this] { Dir3_Change(); };
  Dir3.Click = [this] { Dir3_Click(); };
  File3.Click = [this] { File3_Click(); };
  Dir3.KeyDown = [this](int& key, int shift) { Dir3_KeyDown(key, shift); };
  File3.KeyDown = [this](int& key, int shift) { File3_KeyDown(key, shift); };
  form_.shred.OLEDropMode(true);
  form_.shred.OLEDragDrop = [this](const std::vector<std::string>& files) {
    shred_OLEDragDrop(files);
  };
}

void ShredPage::enter() {
  if (ActiveSection == 6) return;
  form_.hide_section_extras();
  Frame8.Visible(true);
  form_.light_section_button(form_.shred);
  ActiveSection = 6;
  form_.action_buttons(true, false, true);
  Option5.Value(true);  // back to three passes at each entry
  // The drive's first two characters: the list shows "c: [label]".
  Dir3.Path(Drive4.Drive().substr(0, 2));
  // Without its close button.
  form_.tip_once("shredtip",
                 english()
                     ? " When you normally delete a file, the file isn't actually deleted. It is "
                       "only marked so that Windows know that the space occupied by it can be "
                       "used for storing other files.\r\nShredding is the process of overwriting "
                       "data from a file ,making the file unrecoverable for Date Recovery "
                       "software."
                     : "Cand stergeti un fisier in Windows el nu este cu adevarat sters.Este doar "
                       "marcat astfel incat Windows-ul sa stie ca zona ocupata de acel fisier "
                       "este libera pentru scriere.\r\nRaderea este un proces prin care "
                       "continutul unui fisier este suprascris cu date aleatoare,facand-ul astfel "
                       "imposibil de recuperat de programele specializate.",
                 false, false);
  form_.section_tip(
      6,
      english() ? "YOU CAN EASILY SHRED A FILE OR FOLDER STRAIGHT FROM YOUR DESKTOP BY DROPPING "
                  "IT OVER WELLHARROWER OR BY SELECTING WELLHARROW IN THE RIGHT CLICK CONTEXT "
                  "MENU IN EXPLORER"
                : "PUTETI RADE CU USURINTA UN FISIER SAU FOLDER DIRECT DE PE DESKTOP TRAGAND-UL "
                  "PESTE INCONITA WELLHARROWER SAU DAND CLICK DREAPTA SI ALEGAND WELLHARROW DIN "
                  "MENIUL CONTEXTUAL DIN EXPLORER",
      true);
}

void ShredPage::ref_block() {
  Dir3.Refresh();
  File3.Refresh();
}

void ShredPage::hide_extras() { Frame8.Visible(false); }

void ShredPage::leave_for_options() { form_.plain_section_button(form_.shred); }

void ShredPage::captions(int language) {
  Frame9.Caption(language == 1 ? "Overwrite times" : "Numarul de suprascrieri");
  // "3 Normal" and "7 Paranoia" read the same in both.
  Option6.Caption(language == 1 ? "5 Advanced" : "5 Avansat");
}

ShredProgress ShredPage::progress() {
  return ShredProgress{
      .pass = [this](int16_t percent) { form_.spProg2(percent); },
      .deleted =
          [this] {
            form_.Clear(form_.lighton);
            form_.Picture13.Cls();
          },
      .file =
          [this](const std::string& name) {
            form_.Label39.Caption((english() ? "Shredding " : "Rad ") + name);
          },
  };
}

uint8_t ShredPage::passes() const {
  if (Option5.Value()) return 3;
  if (Option6.Value()) return 5;
  return 7;
}

// Whatever picks a target writes the path and one blank.
void ShredPage::target(const std::string& path) { Label22.Caption(path + " "); }

void ShredPage::del_block() {
  const uint8_t n = passes();
  const std::string path = trim(Label22.Caption());
  FileSystemObject& fso = file_system();
  if (fso.FileExists(path)) {
    form_.mark.Visible(true);
    form_.Label39.Caption((english() ? "Shredding " : "Rad ") + fso.GetFileName(path));
    do_events();
    form_.lcd.Clear();
    form_.lcd.WriteText(english() ? "Shredding file..." : "Se rade fisierul...");
    shred_file(path, n, false, progress());
    form_.mark.Visible(false);
    form_.Label39.Caption("");
  } else if (fso.FolderExists(path)) {
    form_.mark.Visible(true);
    if (utf8::length(path) <= 3) {
      // A root, or a drive given as "C:".
      form_.Label39.Caption("");
      msg_box(english() ? "You can not shred the entire drive!"
                        : "Nu sunteti sanatos daca vreti sa radeti intregul disc!",
              MB_ICONEXCLAMATION);
      form_.mark.Visible(false);
    } else {
      do_events();
      form_.lcd.WriteText(english() ? "Shredding folder..." : "Se rade directorul...");
      shred_folder(path, n, progress());
      // The emptied tree goes under a meaningless name, so that not even the
      // folder's name is left in the directory.
      const std::string renamed =
          add_backslash(fso.GetParentFolderName(path)) + folder_throwaway_name();
      check(rename_path(path, renamed));
      check(fso.DeleteFolder(renamed, true));
      form_.mark.Visible(false);
      form_.Label39.Caption("");
    }
  }
  form_.ref_Click();
  Label22.Caption("");
}

void ShredPage::Drive4_Change() {
  // A drive with no disk in it.
  ignore_errors([&] { Dir3.Path(Drive4.Drive().substr(0, 2)); });
}

void ShredPage::Dir3_Change() {
  File3.Path(Dir3.Path());
  target(Dir3.Path());
}

void ShredPage::Dir3_Click() {
  // The file list's selection goes first: clearing it is a click of its own
  // that names the folder shown.
  File3.ListIndex(-1);
  target(Dir3.List(Dir3.ListIndex()));
}

void ShredPage::File3_Click() { target(join_path(Dir3.Path(), File3.FileName())); }

void ShredPage::Dir3_KeyDown(int& key, int) {
  if (key == VK_DELETE) {
    del_block();
  } else if (key == VK_RETURN) {
    Dir3.Path(Dir3.List(Dir3.ListIndex()));
  } else if (key == VK_BACK) {
    const std::string parent = Dir3.List(-2);
    if (parent.empty()) return;  // at the root
    Dir3.Path(parent);
    // Back on the row of the folder now shown.
    Dir3.ListIndex(-1);
  }
}

void ShredPage::File3_KeyDown(int& key, int) {
  if (key == VK_DELETE) del_block();
}

void ShredPage::shred_OLEDragDrop(const std::vector<std::string>& files) {
  form_.shred_Click();
  if (!files.empty()) target(files.front());
}

}  // namespace wh
