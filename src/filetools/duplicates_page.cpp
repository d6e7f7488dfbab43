#include "filetools/duplicates_page.h"

#include <optional>

#include "core/globals.h"
#include "core/routines.h"
#include "core/settings.h"
#include "core/text.h"
#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"

namespace wh {

namespace {
bool english() { return language_flag == 1; }

constexpr const char* kMasksStored =
    "*.exe|*.mp3|*.wav|*.wma|*.avi|*.mpg|*.wmv|*.mov|*.bmp|*.jpg|*.gif|*.rar|*.ace|*.zip";
// What the first use shows has two entries more than it stores.
constexpr const char* kMasksShown =
    "*.exe|*.mp3|*.wav|*.wma|*.avi|*.mpg|*.wmv|*.mov|*.bmp|*.jpg|*.gif|*.rar|*.ace|*.zip|*.doc|"
    "*.xls";

std::vector<std::string> split_bars(const std::string& s) {
  std::vector<std::string> out;
  size_t from = 0;
  while (from < s.size()) {
    size_t to = s.find('|', from);
    if (to == std::string::npos) to = s.size();
    if (to > from) out.push_back(s.substr(from, to - from));
    from = to + 1;
  }
  return out;
}

// --- the section's own artwork, drawn with GDI on the picture boxes
struct Gdi {
  HDC dc;
  void box(int l, int t, int r, int b, COLORREF fill, COLORREF edge = RGB(40, 40, 40)) {
    HBRUSH br = ::CreateSolidBrush(fill);
    HPEN pen = ::CreatePen(PS_SOLID, 1, edge);
    HGDIOBJ ob = ::SelectObject(dc, br), op = ::SelectObject(dc, pen);
    ::Rectangle(dc, l, t, r, b);
    ::SelectObject(dc, ob);
    ::SelectObject(dc, op);
    ::DeleteObject(br);
    ::DeleteObject(pen);
  }
  void ellipse(int l, int t, int r, int b, COLORREF fill) {
    HBRUSH br = ::CreateSolidBrush(fill);
    HGDIOBJ ob = ::SelectObject(dc, br), op = ::SelectObject(dc, ::GetStockObject(NULL_PEN));
    ::Ellipse(dc, l, t, r, b);
    ::SelectObject(dc, ob);
    ::SelectObject(dc, op);
    ::DeleteObject(br);
  }
  void poly(std::initializer_list<POINT> pts, COLORREF fill) {
    HBRUSH br = ::CreateSolidBrush(fill);
    HGDIOBJ ob = ::SelectObject(dc, br), op = ::SelectObject(dc, ::GetStockObject(NULL_PEN));
    ::Polygon(dc, pts.begin(), static_cast<int>(pts.size()));
    ::SelectObject(dc, ob);
    ::SelectObject(dc, op);
    ::DeleteObject(br);
  }
  void text(int l, int t, int r, int b, const std::string& s, COLORREF color, int height) {
    HFONT f = ::CreateFontA(height, 0, 0, 0, FW_BOLD, 0, 0, 0, ANSI_CHARSET, 0, 0, 0, 0, "Arial");
    HGDIOBJ of = ::SelectObject(dc, f);
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, color);
    RECT rc{l, t, r, b};
    const std::wstring w = wide_text(s);  // GDI's A calls miss UTF-8
    ::DrawTextW(dc, w.c_str(), static_cast<int>(w.size()), &rc, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    ::SelectObject(dc, of);
    ::DeleteObject(f);
  }
};

void draw_group(PictureBox& p, int index) {
  p.Cls();
  Gdi g{p.hdc()};
  const COLORREF ground = RGB(226, 232, 240);
  g.box(0, 0, 44, 44, ground, RGB(110, 120, 140));
  switch (index) {
    case 0:  // audio: two beamed notes
      g.ellipse(8, 28, 18, 36, RGB(30, 50, 110));
      g.ellipse(24, 25, 34, 33, RGB(30, 50, 110));
      g.box(16, 10, 18, 32, RGB(30, 50, 110), RGB(30, 50, 110));
      g.box(32, 7, 34, 29, RGB(30, 50, 110), RGB(30, 50, 110));
      g.poly({{16, 10}, {34, 7}, {34, 12}, {16, 15}}, RGB(30, 50, 110));
      break;
    case 1:  // video: a strip of film
      g.box(6, 8, 38, 36, RGB(40, 40, 40));
      for (int y = 11; y < 34; y += 6) {
        g.box(8, y, 11, y + 3, RGB(240, 240, 240), RGB(240, 240, 240));
        g.box(33, y, 36, y + 3, RGB(240, 240, 240), RGB(240, 240, 240));
      }
      g.box(13, 12, 31, 32, RGB(90, 150, 210), RGB(90, 150, 210));
      break;
    case 2:  // documents: a page with its corner folded
      g.poly({{10, 5}, {28, 5}, {35, 12}, {35, 39}, {10, 39}}, RGB(255, 255, 255));
      g.poly({{28, 5}, {35, 12}, {28, 12}}, RGB(190, 190, 190));
      for (int y = 16; y < 36; y += 5) g.box(14, y, 31, y + 2, RGB(70, 90, 160), RGB(70, 90, 160));
      break;
    case 3:  // graphics: a framed landscape
      g.box(5, 8, 39, 36, RGB(150, 200, 240), RGB(120, 80, 30));
      g.ellipse(26, 11, 34, 19, RGB(250, 210, 40));
      g.poly({{6, 35}, {18, 18}, {28, 35}}, RGB(60, 140, 60));
      g.poly({{18, 35}, {28, 24}, {38, 35}}, RGB(40, 110, 50));
      break;
    default:  // other: any mask
      g.text(0, 0, 44, 44, "*.*", RGB(150, 40, 40), 20);
      break;
  }
  p.Refresh();
}

void draw_button(PictureBox& p, const std::string& caption) {
  p.Cls();
  Gdi g{p.hdc()};
  g.box(0, 0, p.ScaleWidth(), p.ScaleHeight(), RGB(64, 96, 150), RGB(20, 40, 80));
  g.box(2, 2, p.ScaleWidth() - 2, p.ScaleHeight() / 2, RGB(90, 124, 178), RGB(90, 124, 178));
  g.text(0, 0, p.ScaleWidth(), p.ScaleHeight(), caption, RGB(255, 255, 255), 16);
  p.Refresh();
}

void draw_tree(PictureBox& p) {
  p.Cls();
  Gdi g{p.hdc()};
  g.box(21, 36, 27, 44, RGB(110, 70, 30), RGB(110, 70, 30));
  g.poly({{24, 6}, {40, 38}, {8, 38}}, RGB(30, 120, 50));
  g.poly({{24, 1}, {26, 6}, {22, 6}}, RGB(250, 210, 40));
  g.ellipse(17, 26, 21, 30, RGB(220, 40, 40));
  g.ellipse(28, 20, 32, 24, RGB(220, 40, 40));
  g.ellipse(23, 31, 27, 35, RGB(250, 210, 40));
  p.Refresh();
}

void draw_hourglass(PictureBox& p) {
  p.Cls();
  Gdi g{p.hdc()};
  g.box(4, 2, 28, 5, RGB(110, 70, 30), RGB(110, 70, 30));
  g.box(4, 35, 28, 38, RGB(110, 70, 30), RGB(110, 70, 30));
  g.poly({{7, 5}, {25, 5}, {16, 20}}, RGB(230, 200, 120));
  g.poly({{16, 20}, {25, 35}, {7, 35}}, RGB(200, 200, 210));
  g.poly({{16, 26}, {22, 35}, {10, 35}}, RGB(230, 200, 120));
  p.Refresh();
}

void draw_marker(PictureBox& p) {
  p.Cls();
  Gdi g{p.hdc()};
  g.box(0, 0, p.ScaleWidth(), p.ScaleHeight(), RGB(40, 170, 60), RGB(20, 110, 40));
  p.Refresh();
}

bool is_season() {
  SYSTEMTIME now;
  ::GetLocalTime(&now);
  return now.wMonth == 12 && now.wDay >= 25 && now.wDay <= 27;
}
}  // namespace

DuplicatesPage::DuplicatesPage(MainForm& form, FileListBox& hidden_list)
    : finddups(form.add<Frame>("finddups", page_place())),
      List4(form.add<ListBox>("List4", Place{8, 10, 246, 128, &finddups},
                              ListBox::Options{.multi_select = multi_extended})),
      Option3(form.add<OptionButton>("Option3", Place{8, 142, 118, 18, &finddups}, "same name")),
      Option4(form.add<OptionButton>("Option4", Place{130, 142, 124, 18, &finddups},
                                     "same content")),
      Image36{},
      Shape1{},
      Image37(form.add<PictureBox>("Image37", Place{8, 236, 246, 34, &finddups})),
      Image41(form.add<PictureBox>("Image41", Place{206, 276, 48, 46, &finddups})),
      Frame18(form.add<Frame>("Frame18", Place{262, 4, 350, 320, &finddups}, "Select file mask")),
      List5(form.add<ListBox>("List5", Place{10, 20, 330, 230, &Frame18},
                              ListBox::Options{.multi_select = multi_extended})),
      Text7(form.add<TextBox>("Text7", Place{10, 256, 250, 22, &Frame18})),
      Label46(form.add<Label>("Label46", Place{268, 256, 72, 22, &Frame18}, "OK",
                              Label::Options{.alignment = center})),
      Picture17(form.add<PictureBox>("Picture17", Place{262, 8, 350, 316, &finddups})),
      duplicates(form.add<ListBox>("duplicates", Place{0, 0, 350, 270, &Picture17},
                                   ListBox::Options{.multi_select = multi_extended})),
      label19(form.add<Label>("label19", Place{0, 274, 350, 18, &Picture17})),
      l8(form.add<Label>("l8", Place{0, 296, 350, 18, &Picture17})),
      Picture18(form.add<PictureBox>("Picture18", Place{262, 8, 350, 316, &finddups},
                                     PictureBox::Options{.border = true})),
      Picture19(form.add<PictureBox>("Picture19", Place{159, 110, 32, 40, &Picture18})),
      Label47(form.add<Label>("Label47", Place{10, 160, 326, 20, &Picture18}, "Scanning",
                              Label::Options{.alignment = center})),
      dupprogress(form.add<Label>("dupprogress", Place{10, 184, 326, 20, &Picture18}, "",
                                  Label::Options{.alignment = center})),
      k1(hidden_list),
      form_(form) {
  for (int i = 0; i < 5; ++i) {
    const std::string n = std::to_string(i);
    Image36[i] = &form.add<PictureBox>("Image36(" + n + ")",
                                       Place{8 + i * 50, 166, 44, 44, &finddups});
    Shape1[i] = &form.add<PictureBox>("Shape1(" + n + ")",
                                      Place{8 + i * 50, 213, 44, 6, &finddups});
    Shape1[i]->Visible(false);
    Image36[i]->Click = [this, i] { Image36_Click(i); };
  }
  finddups.Visible(false);
  finddups.ZOrder(0);  // over the lists that sit on the form itself
  Frame18.Visible(false);
  Picture17.Visible(false);
  Picture18.Visible(false);
  Image41.Visible(false);
  Option3.Value(true);
  Label46.BackColor(RGB(64, 96, 150));
  Label46.ForeColor(RGB(255, 255, 255));
  Label46.Click = [this] { Frame18.Visible(false); };
  Image37.Click = [this] { Image37_Click(); };
  Text7.KeyDown = [this](int& key, int shift) { Text7_KeyDown(key, shift); };
  duplicates.Click = [this] { duplicates_Click(); };
  duplicates.DblClick = [this] { duplicates_DblClick(); };
  duplicates.KeyDown = [this](int& key, int shift) { duplicates_KeyDown(key, shift); };
  draw_pictures();
}

void DuplicatesPage::draw_pictures() {
  for (int i = 0; i < 5; ++i) {
    draw_group(*Image36[i], i);
    draw_marker(*Shape1[i]);
  }
  draw_button(Image37, english() ? "Search" : "Cauta");
  draw_tree(Image41);
  draw_hourglass(Picture19);
}

void DuplicatesPage::enter() {
  if (ActiveSection == 10) return;
  form_.hide_section_extras();
  finddups.Visible(true);
  form_.light_section_button(form_.dupy);
  ActiveSection = 10;
  form_.action_buttons(Picture17.Visible(), false, false);  // del only on the results page
  load_search_paths();
  draw_pictures();
  Image41.Visible(is_season());
}

void DuplicatesPage::hide_extras() { finddups.Visible(false); }

void DuplicatesPage::leave_for_options() {
  finddups.Visible(false);
  form_.plain_section_button(form_.dupy);
}

void DuplicatesPage::captions(int language) {
  const bool en = language == 1;
  Option3.Caption(en ? "same name" : "aceleasi nume");
  Option4.Caption(en ? "same content" : "acelasi continut");
  Frame18.Caption(en ? "Select file mask" : "Alegeti tipul fisierelor");
  l8.Caption(en ? " Total selected:" : " Total selectat:");
  Label47.Caption(en ? "Scanning" : "Scanez");
  draw_button(Image37, en ? "Search" : "Cauta");
}

void DuplicatesPage::load_search_paths() {
  List4.Clear();
  for (const auto& path : split_bars(setting("Paths"))) List4.AddItem(path);
  // The fixed drives' roots, once each.
  for (const Drive& d : file_system().Drives()) {
    if (d.DriveType() != 2) continue;
    std::string root = lcase(d.RootPath());
    bool known = false;
    for (int i = 0; i < List4.ListCount(); ++i) known = known || iequals(List4.List(i), root);
    if (!known) List4.AddItem(root);
  }
  save_paths();
}

void DuplicatesPage::save_paths() {
  std::string s;
  for (int i = 0; i < List4.ListCount(); ++i) s += List4.List(i) + "|";
  save_setting("Paths", s);
}

void DuplicatesPage::save_masks() {
  std::string s;
  for (int i = 0; i < List5.ListCount(); ++i) s += List5.List(i) + "|";
  save_setting("Masks", s);
}

bool DuplicatesPage::marker(int index) const { return Shape1[index]->Visible(); }

void DuplicatesPage::set_marker(int index, bool on) { Shape1[index]->Visible(on); }

void DuplicatesPage::Image36_Click(int index) {
  if (Frame18.Visible()) return;
  set_marker(index, !marker(index));
  if (index < 4) {
    set_marker(4, false);
  } else if (marker(4)) {
    for (int i = 0; i < 4; ++i) set_marker(i, false);
    Frame18.Visible(true);
    Frame18.ZOrder(0);
    if (List5.ListCount() == 0) {
      std::string masks = setting("Masks");
      if (masks.empty()) {
        save_setting("Masks", kMasksStored);
        masks = kMasksShown;
      }
      for (const auto& m : split_bars(masks)) List5.AddItem(m);
    }
  }
}

void DuplicatesPage::Text7_KeyDown(int& key, int) {
  if (key != VK_RETURN) return;
  const std::string text = Text7.Text();
  int at = -1;
  for (int i = 0; i < List5.ListCount(); ++i)
    if (List5.List(i) == text) at = i;
  if (at < 0) {
    const bool bare = utf8::length(text) == 3 && text.find('.') == std::string::npos;
    List5.AddItem(bare ? "*." + text : text);
    at = List5.NewIndex();
    List5.Selected(at, true);
  }
  if (text == "*.*")
    for (int i = 0; i < List5.ListCount(); ++i)
      if (i != at) List5.Selected(i, false);
  Text7.Text("");
  save_masks();
  key = 0;
}

void DuplicatesPage::busy(bool on) {
  Image37.Enabled(!on);
  List4.Enabled(!on);
  Option3.Enabled(!on);
  Option4.Enabled(!on);
  form_.scanningdupes = on;
}

void DuplicatesPage::Image37_Click() {
  label19.Caption("");
  duplicates.Clear();
  duplicates.Tag.clear();
  std::array<bool, 5> markers{};
  for (int i = 0; i < 5; ++i) markers[i] = marker(i);
  const bool folders = List4.SelCount() > 0;
  const bool masks = markers[0] || markers[1] || markers[2] || markers[3] ||
                     (markers[4] && List5.SelCount() > 0);
  if (!folders && !masks) {
    msg_box(english() ? "Please select what folders to scan and what type of files to look for!"
                      : "Va rog alegeti ce directoare sa fie scanate si ce tipuri de fisier sa "
                        "fie cautate!",
            MB_ICONINFORMATION);
    return;
  }
  if (!folders) {
    msg_box(english() ? "Please select what folders to scan!"
                      : "Va rog alegeti ce directoare sa fie scanate",
            MB_ICONINFORMATION);
    return;
  }
  if (!masks) {
    msg_box(english() ? "Please select what type of files to scan!"
                      : "Va rog alegeti ce tipuri de fiser sa fie cautate!",
            MB_ICONINFORMATION);
    return;
  }
  std::vector<std::string> other;
  for (int i = 0; i < List5.ListCount(); ++i)
    if (List5.Selected(i)) other.push_back(List5.List(i));
  k1.Pattern(mask_pattern(mask_text(markers, other)));

  busy(true);
  Frame18.Visible(false);
  Picture18.Visible(true);
  Picture18.ZOrder(0);
  Label47.Caption(english() ? "Scanning" : "Scanez");
  form_.lighton = "MAINU";
  form_.lcd.Clear();
  form_.lcd.WriteText(english() ? "Scanning folders.." : "Scanez directoarele");

  const bool by_content = Option4.Value();
  form_.totalwaist = 0;
  table.assign(1, FoundFile{});
  FileSystemObject& fso = file_system();
  for (int i = 0; i < List4.ListCount(); ++i) {
    if (!List4.Selected(i)) continue;
    const std::string entry = List4.List(i);
    const std::string folder = fso.GetAbsolutePathName(
        entry.find('\\') != std::string::npos ? entry : entry.substr(0, 2) + "\\");
    if (by_content)
      scan_with_sizes(folder);
    else
      scan_names(folder);
  }
  Label47.Caption(english() ? "Sorting... " : "Sortez... ");
  do_events();
  const int16_t last = index16(static_cast<double>(table.size() - 1));
  if (by_content)
    sort_by_size(1, last, table);
  else
    sort_by_name(1, last, table);
  Picture18.Visible(false);
  Picture17.Visible(true);
  duplicates.SetFocus();

  std::optional<std::string> total;
  DupSink sink{
      .line = [this](const std::string& line, long item) {
        list_add_wide(duplicates, line);
        duplicates.ItemData(duplicates.ListCount() - 1, item);
      },
      // Nothing is painted while the runs are walked: the label takes the
      // last total once, not a caption (a trip to the server) per group.
      .total = [&total](const std::string& text) { total = text; },
      .length = [](const std::string& path) {
        File f;
        return file_system().GetFile(path, f) == 0 ? f.Size : 0.0;
      },
  };
  DupRuns runs(table, by_content, form_.totalwaist, english(), sink);
  int failed = 0;
  {
    ListBox::Batch batch(duplicates);
    failed = ignore_errors([&] { runs.walk(); });
  }
  if (total) label19.Caption(*total);
  if (failed) raise(failed);
  if (duplicates.ListCount() > 0)
    form_.del.Visible(true);
  else
    label19.Caption(english() ? "No duplicates found!" : "Nu am gasit duplicate!");
  busy(false);
}

void DuplicatesPage::scan_with_sizes(const std::string& folder) { walk(folder, true); }
void DuplicatesPage::scan_names(const std::string& folder) { walk(folder, false); }

void DuplicatesPage::walk(const std::string& folder, bool sizes) {
  FileSystemObject& fso = file_system();
  dupprogress.Caption(fso.GetBaseName(folder));
  // An unreadable folder is passed over with its subfolders.
  if (ignore_errors([&] { k1.Path(folder); }) != 0) return;
  // The lengths come with k1's own listing: no call per file. So do the
  // subfolders when its masks take every name; else they need a listing.
  std::vector<std::string> subfolders;
  if (k1.SubFolders(subfolders)) {
    const char last = folder.back();  // k1 took the folder: not empty
    const std::string parent = last == '\\' || last == '/' ? folder : folder + "\\";
    for (std::string& name : subfolders) name = parent + name;
  } else {
    std::vector<Folder> found;
    Folder(folder).SubFolders(found);
    for (const Folder& sub : found) subfolders.push_back(sub.Path());
  }
  std::string prefix = folder + "\\";  // a root's files get "C:\\name"
  const int n = k1.ListCount();
  for (int i = 0; i < n; ++i) {
    const std::string name = k1.List(i);
    FoundFile f;
    f.path = prefix + name;
    f.key = ucase(name);
    if (sizes) f.size = k1.Length(i);
    table.push_back(std::move(f));
    // A turn of the event loop per file costs more than the file itself
    // under Wine: one every few ticks keeps the window as lively.
    const unsigned now = ::GetTickCount();
    if (now - pump_tick_ > 30) {
      pump_tick_ = now;
      do_events();
    }
  }
  for (const std::string& sub : subfolders) walk(sub, sizes);
}

void DuplicatesPage::duplicates_Click() {
  double sum = 0;
  for (int i = 0; i < duplicates.ListCount(); ++i)
    if (duplicates.Selected(i)) sum += duplicates.ItemData(i);
  l8.Caption((english() ? "Total selected :" : "Total selectat :") + spatiuu(sum));
}

void DuplicatesPage::duplicates_DblClick() {
  const int i = duplicates.ListIndex();
  if (i >= 0) shell_open(form_.hwnd(), line_path(duplicates.List(i)));
}

void DuplicatesPage::duplicates_KeyDown(int& key, int) {
  if (key == VK_RETURN)
    duplicates_DblClick();
  else if (key == VK_DELETE)
    del_block();
}

void DuplicatesPage::del_block() {
  FileSystemObject& fso = file_system();
  int i = 0;
  while (i < duplicates.ListCount()) {
    if (!duplicates.Selected(i)) {
      ++i;
      continue;
    }
    const std::string path = line_path(duplicates.List(i));
    fso.DeleteFile(path, false);  // a failure is passed over; the line goes anyway
    form_.totalwaist -= duplicates.ItemData(i);
    label19.Caption((english() ? " Total waisted : " : " Total pierdut :") +
                    spatiuu(form_.totalwaist));
    duplicates.RemoveItem(i);
  }
  if (duplicates.ListCount() == 0) label19.Caption("");
}

}  // namespace wh
