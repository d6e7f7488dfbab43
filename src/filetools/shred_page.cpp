#include "filetools/shred_page.h"

#include "core/globals.h"
#include "core/mainu.h"
#include "core/paths.h"
#include "core/rnd.h"
#include "core/text.h"
#include "filetools/shredder.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/rt_error.h"

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

ShredPage::ShredPage(Mainu& form) : m_(form) {
  m_.Drive4.Change = [this] { Drive4_Change(); };
  m_.Dir3.Change = [this] { Dir3_Change(); };
  m_.Dir3.Click = [this] { Dir3_Click(); };
  m_.File3.Click = [this] { File3_Click(); };
  m_.Dir3.KeyDown = [this](int& key, int shift) { Dir3_KeyDown(key, shift); };
  m_.File3.KeyDown = [this](int& key, int shift) { File3_KeyDown(key, shift); };
  m_.shred.OLEDropMode(true);
  m_.shred.OLEDragDrop = [this](const std::vector<std::string>& files) {
    shred_OLEDragDrop(files);
  };
}

uint8_t ShredPage::passes() const {
  if (m_.Option5.Value()) return 3;
  if (m_.Option6.Value()) return 5;
  return 7;
}

// Whatever picks a target writes the path and one blank.
void ShredPage::target(const std::string& path) { m_.Label22.Caption(path + " "); }

void ShredPage::action() {
  const uint8_t n = passes();
  const std::string path = trim(m_.Label22.Caption());
  FileSystemObject& fso = file_system();
  if (fso.FileExists(path)) {
    m_.mark.Visible(true);
    m_.Label39.Caption((english() ? "Shredding " : "Rad ") + fso.GetFileName(path));
    do_events();
    m_.lcd.Clear();
    m_.lcd.WriteText(english() ? "Shredding file..." : "Se rade fisierul...");
    shred_file(path, n, false);
    m_.mark.Visible(false);
    m_.Label39.Caption("");
  } else if (fso.FolderExists(path)) {
    m_.mark.Visible(true);
    if (path.size() <= 3) {
      // A root, or a drive given as "C:".
      m_.Label39.Caption("");
      msg_box(english() ? "You can not shred the entire drive!"
                        : "Nu sunteti sanatos daca vreti sa radeti intregul disc!",
              MB_ICONEXCLAMATION);
      m_.mark.Visible(false);
    } else {
      do_events();
      m_.lcd.WriteText(english() ? "Shredding folder..." : "Se rade directorul...");
      shred_folder(path, n);
      // The emptied tree goes under a meaningless name, so that not even the
      // folder's name is left in the directory.
      const std::string renamed =
          add_backslash(fso.GetParentFolderName(path)) + folder_throwaway_name();
      check(rename_path(path, renamed));
      check(fso.DeleteFolder(renamed, true));
      m_.mark.Visible(false);
      m_.Label39.Caption("");
    }
  }
  m_.ref_Click();
  m_.Label22.Caption("");
}

void ShredPage::Drive4_Change() {
  // A drive with no disk in it.
  ignore_errors([&] { m_.Dir3.Path(m_.Drive4.Drive().substr(0, 2)); });
}

void ShredPage::Dir3_Change() {
  m_.File3.Path(m_.Dir3.Path());
  target(m_.Dir3.Path());
}

void ShredPage::Dir3_Click() {
  // The file list's selection goes first: clearing it is a click of its own
  // that names the folder shown.
  m_.File3.ListIndex(-1);
  target(m_.Dir3.List(m_.Dir3.ListIndex()));
}

void ShredPage::File3_Click() { target(join_path(m_.Dir3.Path(), m_.File3.FileName())); }

void ShredPage::Dir3_KeyDown(int& key, int) {
  if (key == VK_DELETE) {
    action();
  } else if (key == VK_RETURN) {
    m_.Dir3.Path(m_.Dir3.List(m_.Dir3.ListIndex()));
  } else if (key == VK_BACK) {
    const std::string parent = m_.Dir3.List(-2);
    if (parent.empty()) return;  // at the root
    m_.Dir3.Path(parent);
    // Back on the row of the folder now shown.
    m_.Dir3.ListIndex(-1);
  }
}

void ShredPage::File3_KeyDown(int& key, int) {
  if (key == VK_DELETE) action();
}

void Mainu::del_shred() { wellshred.action(); }

void ShredPage::shred_OLEDragDrop(const std::vector<std::string>& files) {
  m_.shred_Click();
  if (!files.empty()) target(files.front());
}

}  // namespace wh
