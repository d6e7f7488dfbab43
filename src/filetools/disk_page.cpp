#include "filetools/disk_page.h"

#include <algorithm>

#include "core/globals.h"
#include "core/paths.h"
#include "core/routines.h"
#include "core/skin.h"
#include "core/text.h"
#include "platform/fso.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"

namespace wh {

namespace {
bool english() { return language_flag == 1; }

constexpr int kListHeight = 232;
constexpr int kShortHeight = 120;  // listfile with the preview under it
}  // namespace

DiskPage::DiskPage(MainForm& form)
    : Frame5(form.add<Frame>("Frame5", page_place())),
      Drive3(form.add<DriveListBox>("Drive3", Place{8, 8, 200, 22, &Frame5})),
      back(form.add<Label>("back", Place{216, 11, 396, 18, &Frame5})),
      list(form.add<ListBox>("list", Place{8, 36, 300, kListHeight, &Frame5},
                             ListBox::Options{.multi_select = multi_extended})),
      listfile(form.add<ListBox>("listfile", Place{314, 36, 298, kListHeight, &Frame5},
                                 ListBox::Options{.multi_select = multi_extended})),
      usedlabel(form.add<Label>("usedlabel", Place{8, 274, 300, 18, &Frame5})),
      freelabel(form.add<Label>("freelabel", Place{8, 294, 300, 18, &Frame5})),
      totallabel(form.add<Label>("totallabel", Place{314, 274, 298, 18, &Frame5})),
      label8(form.add<Label>("label8", Place{314, 294, 298, 18, &Frame5})),
      dirprogress(form.add<Label>("dirprogress", Place{8, 312, 604, 16, &Frame5})),
      waita(form.add<Frame>("waita", Place{160, 110, 300, 80, &Frame5})),
      Label40(form.add<Label>("Label40", Place{10, 28, 280, 20, &waita}, "Please wait...",
                              Label::Options{.alignment = center})),
      Image5(form.add<PictureBox>("Image5", Place{314, 36 + kShortHeight + 4, 298,
                                                  kListHeight - kShortHeight - 4, &Frame5},
                                  PictureBox::Options{.border = true})),
      explorer(form.add<ImageButton>("explorer", extra_place(1))),
      form_(form) {
  Frame5.Visible(false);
  Frame5.ZOrder(0);  // over the lists that sit on the form itself
  explorer.Visible(false);
  waita.Visible(false);
  Image5.Visible(false);
  Drive3.Change = [this] { Drive3_Change(); };
  list.Click = [this] { list_Click(); };
  listfile.Click = [this] { listfile_Click(); };
  list.DblClick = [this] { list_DblClick(); };
  list.KeyDown = [this](int& key, int shift) { list_KeyDown(key, shift); };
  listfile.KeyDown = [this](int& key, int shift) { listfile_KeyDown(key, shift); };
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

void DiskPage::ref_block() {
  rescan = true;
  afisdirs(back.Caption(), false);
  rescan = false;
}

void DiskPage::hide_extras() {
  explorer.Visible(false);
  Frame5.Visible(false);
}

void DiskPage::leave_for_options() {
  explorer.Visible(false);
  form_.plain_section_button(form_.dirinfo);
}

void DiskPage::captions(int language) {
  Label40.Caption(language == 1 ? "Please wait..." : "Asteptati...");
}

bool DiskPage::driveexists(const std::string& path, int count) const {
  return cache.driveexists(path, count);
}

bool DiskPage::has_up() const { return list.ListCount() > 0 && list.List(0) == "[..]"; }

std::string DiskPage::child_path(const std::string& name) const {
  const std::string here = back.Caption();
  return utf8::length(here) == 3 ? here + name : here + "\\" + name;
}

void DiskPage::show_space() {
  usedlabel.Caption((english() ? "Used: " : "Ocupat: ") + spatiuu(used_));
  freelabel.Caption(spatiuu(free_) + (english() ? " free  " : " liber  "));
  totallabel.Caption((english() ? "Total: " : "Total: ") + spatiuu(total_));
}

void DiskPage::drive_labels(const std::string& root) {
  Drive d;
  if (file_system().GetDrive(root, d) != 0) return;
  double size = 0, free = 0;
  if (d.TotalSize(size) != 0 || d.FreeSpace(free) != 0) return;
  used_ = size - free;
  free_ = free;
  usedlabel.Caption((english() ? "Used: " : "Ocupat: ") + spatiuu(used_));
  freelabel.Caption(spatiuu(free_) + (english() ? " free  " : " liber  "));
}

void DiskPage::free_space_tick() {
  if (ActiveSection != 4) return;
  const std::string folder = back.Caption();
  if (folder.size() >= 2 && folder[1] == ':') drive_labels(folder.substr(0, 2) + "\\");
}

void DiskPage::afisdirs(const std::string& given, bool select_saved) {
  do_events();
  form_.lcd.Clear();
  form_.lcd.WriteText(english() ? "Creating report..." : "Se creeaza lista...");
  std::string path = given;
  if (utf8::length(path) == 2) path += "\\";
  folders.clear();
  files.clear();
  FileSystemObject& fso = file_system();
  Folder folder;
  // From here on a failure leaves what it failed on empty, and the listing goes on.
  fso.GetFolder(path, folder);
  const bool root = utf8::length(path) == 3;
  total_ = 0;
  if (!root) {
    ignore_errors([&] {
      if (list.ItemData(list.ListIndex()) == 0) waita.Visible(true);
    });
    dirprogress.Caption("");
  } else {
    if (rescan) waita.Visible(true);
    drive_labels(path);
  }
  if (waita.Visible()) {
    waita.ZOrder(0);
    waita.Refresh();
  }
  list.Clear();
  listfile.Clear();
  std::vector<File> found_files;
  std::vector<Folder> subfolders;
  folder.Entries(found_files, subfolders);
  if (root && !rescan && driveexists(path, cache.count())) {
    folders = *cache.find(path[0]);
    for (const auto& e : folders) total_ += e.size;
  } else {
    for (const Folder& sub : subfolders) {
      double size = 0;
      // A folder that refuses its size counts 0.
      if (sub.Size(size) != 0) size = 0;
      folders.push_back(SizedEntry{sub.Name(), size});
      total_ += size;
      dirprogress.Caption(sub.Name());
      do_events();
    }
    if (root) cache.store(path[0], folders);
  }
  for (const File& f : found_files) {
    files.push_back(SizedEntry{f.Name, f.Size});
    total_ += f.Size;
  }
  sort_by_size(files);
  {
    ListBox::Batch batch(listfile);
    for (auto& e : files) listfile.AddItem(entry_line(e.name, spatiuu(e.size)));
  }
  {
    ListBox::Batch batch(list);
    if (!root) list.AddItem("[..]");
    sort_by_size(folders);
    for (auto& e : folders) {
      list.AddItem(entry_line(e.name, spatiuu(e.size)));
      list.ItemData(list.ListCount() - 1, e.size < kBigFolder ? 1 : 0);
    }
  }
  if (select_saved && depth < stack.size()) {
    // Selected and let go: the line keeps the focus rectangle.
    ignore_errors([&] {
      list.Selected(stack[depth], true);
      list.Selected(stack[depth], false);
    });
  }
  waita.Visible(false);
  totallabel.Caption((english() ? "Total: " : "Total: ") + spatiuu(total_));
}

void DiskPage::Drive3_Change() {
  hide_preview();
  list.Clear();
  listfile.Clear();
  const std::string root = Drive3.Drive().substr(0, 1) + ":\\";
  back.Caption(root);
  depth = 0;
  stack.clear();
  drive_labels(root);
  Drive d;
  if (file_system().GetDrive(root, d) == 0 && d.IsReady()) afisdirs(root, false);
}

void DiskPage::list_DblClick() {
  const int sel = list.ListIndex();
  if (sel < 0) return;
  const std::string line = list.List(sel);
  if (line == "[..]") {
    --depth;
    stack.resize(depth + 1u);
    std::string up = back.Caption();
    const size_t slash = up.rfind('\\');
    up = trim(slash == std::string::npos ? up : up.substr(0, slash));
    if (utf8::length(up) == 2) {
      up += "\\";
      dirprogress.Caption("");
    }
    back.Caption(up);
    afisdirs(up, true);
    return;
  }
  // At the first step down the stack gets two places.
  stack.resize(depth + 1u);
  stack[depth] = index16(sel);
  ++depth;
  stack.resize(depth + 1u);
  const std::string target = child_path(line_name(line));
  if (!file_system().FolderExists(target)) {
    msg_box(english() ? "Folder does not exist!" : "Directorul nu exista!", MB_ICONSTOP);
    --depth;
    stack.resize(depth + 1u);
    return;
  }
  back.Caption(target);
  afisdirs(target, false);
}

void DiskPage::list_KeyDown(int& key, int) {
  if (key == VK_RETURN)
    list_DblClick();
  else if (key == VK_DELETE)
    del_block();
}

void DiskPage::listfile_KeyDown(int& key, int) {
  if (key == VK_RETURN) {
    const int i = listfile.ListIndex();
    if (i >= 0) shell_open(form_.hwnd(), child_path(line_name(listfile.List(i))));
  } else if (key == VK_DELETE) {
    del_block();
  }
}

void DiskPage::list_Click() {
  if (clicking_) return;
  clicking_ = true;  // clearing the other list's selection clicks it
  form_.lighton = "LIST";
  for (int i = 0; i < listfile.ListCount(); ++i)
    if (listfile.Selected(i)) listfile.Selected(i, false);
  const int offset = has_up() ? 1 : 0;
  double sum = 0;
  for (int i = offset; i < list.ListCount(); ++i)
    if (list.Selected(i) && i - offset < static_cast<int>(folders.size()))
      sum += folders[static_cast<size_t>(i - offset)].size;
  label8.Caption(spatiuu(sum));
  clicking_ = false;
}

void DiskPage::listfile_Click() {
  if (clicking_) return;
  clicking_ = true;
  form_.lighton = "LISTFILE";
  for (int i = 0; i < list.ListCount(); ++i)
    if (list.Selected(i)) list.Selected(i, false);
  double sum = 0;
  int one = -1;
  for (int i = 0; i < listfile.ListCount(); ++i)
    if (listfile.Selected(i) && i < static_cast<int>(files.size())) {
      sum += files[static_cast<size_t>(i)].size;
      one = i;
    }
  label8.Caption(spatiuu(sum));
  const int count = listfile.SelCount();
  if (count >= 2) listfile.Height(kShortHeight);
  hide_preview();
  if (count == 1) {
    const std::string path = child_path(line_name(listfile.List(one)));
    const std::string ext = file_extension(path);
    if (ext == "BMP" || ext == "JPG" || ext == "ICO" || ext == "GIF") {
      Image5.Cls();
      if (ext == "ICO") {
        HICON icon = static_cast<HICON>(
            ::LoadImageA(nullptr, path.c_str(), IMAGE_ICON, 0, 0, LR_LOADFROMFILE));
        if (icon) {
          ::DrawIconEx(Image5.hdc(), 4, 4, icon, 0, 0, 0, nullptr, DI_NORMAL);
          ::DestroyIcon(icon);
        }
      } else if (HBITMAP bmp = load_picture_file(path)) {
        Picture pic = make_picture(bmp);
        const SIZE s = picture_size(pic);
        // Fitted to the box, its shape kept.
        const double scale = std::min({1.0, (Image5.ScaleWidth() - 4.0) / std::max<LONG>(s.cx, 1),
                                       (Image5.ScaleHeight() - 4.0) / std::max<LONG>(s.cy, 1)});
        Image5.PaintPicture(pic, 2, 2, static_cast<int>(s.cx * scale),
                            static_cast<int>(s.cy * scale));
      }
      listfile.Height(kShortHeight);
      Image5.Visible(true);
      Image5.Refresh();
    }
  }
  clicking_ = false;
}

void DiskPage::hide_preview() {
  Image5.Visible(false);
  listfile.Height(kListHeight);
}

void DiskPage::del_block() {
  hide_preview();
  Drive3.Width(200);
  FileSystemObject& fso = file_system();
  const bool root = utf8::length(back.Caption()) == 3;
  int i = 0;
  while (i < list.ListCount()) {
    const std::string line = list.List(i);
    if (!list.Selected(i) || line == "[..]") {
      ++i;
      continue;
    }
    fso.DeleteFolder(child_path(line_name_for_delete(line)), true);
    const size_t entry = static_cast<size_t>(i - (has_up() ? 1 : 0));
    const double size = entry < folders.size() ? folders[entry].size : 0;
    // As the section always did: both drive figures go down by it.
    total_ -= size;
    used_ -= size;
    free_ -= size;
    show_space();
    list.RemoveItem(i);
    if (entry < folders.size()) folders.erase(folders.begin() + static_cast<long>(entry));
  }
  i = 0;
  while (i < listfile.ListCount()) {
    if (!listfile.Selected(i)) {
      ++i;
      continue;
    }
    fso.DeleteFile(child_path(line_name_for_delete(listfile.List(i))), true);
    const size_t entry = static_cast<size_t>(i);
    const double size = entry < files.size() ? files[entry].size : 0;
    total_ -= size;
    used_ -= size;
    free_ -= size;
    show_space();
    listfile.RemoveItem(i);
    if (entry < files.size()) files.erase(files.begin() + static_cast<long>(entry));
  }
  sort_by_size(folders);
  if (root) cache.store(back.Caption()[0], folders);
}

}  // namespace wh
