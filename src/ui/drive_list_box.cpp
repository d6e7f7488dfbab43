#include "ui/drive_list_box.h"

#include <cctype>

#include "platform/rt_error.h"
#include "ui/events.h"

namespace wh {

namespace {
std::string drive_entry(char letter) {
  std::string root = std::string(1, letter) + ":\\";
  std::string entry = std::string(1, static_cast<char>(std::tolower(letter))) + ":";
  UINT type = ::GetDriveTypeA(root.c_str());
  if (type != DRIVE_FIXED && type != DRIVE_RAMDISK) return entry;
  char label[MAX_PATH + 1] = "";
  // No "insert a disk" box from the system while the list is read.
  UINT old = ::SetErrorMode(SEM_FAILCRITICALERRORS);
  BOOL ok = ::GetVolumeInformationA(root.c_str(), label, sizeof label, nullptr, nullptr, nullptr,
                                    nullptr, 0);
  ::SetErrorMode(old);
  if (ok && label[0]) entry += std::string(" [") + label + "]";
  return entry;
}

// Wine started from a host folder it can't map (no Z:) reports a current
// directory such as "unix\work\..." with no drive: then the Windows
// folder's drive is taken, where Wine says it starts.
char current_drive_letter() {
  char dir[MAX_PATH] = "";
  ::GetCurrentDirectoryA(sizeof dir, dir);
  if (dir[0] == 0 || dir[1] != ':') ::GetWindowsDirectoryA(dir, sizeof dir);
  return static_cast<char>(std::tolower(static_cast<unsigned char>(dir[1] == ':' ? dir[0] : 'c')));
}
}  // namespace

DriveListBox::DriveListBox(Form& form, std::string name, const Place& place)
    : ComboBox(form, std::move(name), place, ComboBox::Options{.style = dropdown_list}) {
  Refresh();
}

void DriveListBox::Refresh() {
  std::string now = Drive();
  char keep = now.empty() ? current_drive_letter() : now[0];
  send(CB_RESETCONTENT);
  DWORD mask = ::GetLogicalDrives();
  int row = -1;
  for (int i = 0; i < 26; ++i) {
    if (!(mask & (1u << i))) continue;
    char letter = static_cast<char>('a' + i);
    int at = static_cast<int>(
        send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(drive_entry(static_cast<char>('A' + i)).c_str())));
    if (letter == keep) row = at;
  }
  if (row < 0 && ListCount() > 0) row = 0;
  send(CB_SETCURSEL, row);
  last_index_ = row;
}

std::string DriveListBox::Drive() const { return Text(); }

void DriveListBox::Drive(const std::string& drive) {
  if (drive.empty()) raise(rt_device_unavailable);
  char letter = static_cast<char>(std::tolower(static_cast<unsigned char>(drive[0])));
  int row = -1;
  for (int i = 0, n = ListCount(); i < n; ++i)
    if (List(i)[0] == letter) row = i;
  if (row < 0) raise(rt_device_unavailable);
  if (row == ListIndex()) return;
  send(CB_SETCURSEL, row);
  last_index_ = row;
  fire(Change);
}

void DriveListBox::on_command(int code) {
  if (code != CBN_SELCHANGE) return;
  int row = ListIndex();
  if (row == last_index_) return;
  last_index_ = row;
  fire(Change);
}

}  // namespace wh
