#include "cleaning/junk_page.h"

#include "cleaning/index_files.h"
#include "cleaning/junk_state.h"
#include "cleaning/traces.h"
#include "core/globals.h"
#include "platform/processes.h"
#include "platform/rt_error.h"

namespace wh {

namespace {
constexpr int twips = 15;
}  // namespace

JunkPage::JunkPage(MainForm& form, Frame& frame1_panel, FileListBox& file_list,
                   DirListBox& dir_list, DriveListBox& drive_list, FileListBox& hidden_list)
    : junk_form(form.add<Frame>("junk_form", page_place())),
      Label14(form.add<Label>("Label14", Place{8, 262, 150, 20, &junk_form})),
      total(form.add<Label>("total", Place{160, 262, 150, 20, &junk_form})),
      plugins(form.add<Frame>("plugins", Place{404, 150, 212, 176, &junk_form})),
      Label14_plugins(form.add<Label>("Label14(11)", Place{6, 4, 180, 18, &plugins},
                                      "JunkHarrower Plugins")),
      Picture14(form.add<PictureBox>("Picture14", Place{190, 4, 16, 16, &plugins})),
      pluginlist(form.add<ListBox>("pluginlist", Place{6, 26, 200, 144, &plugins},
                                   ListBox::Options{.multi_select = multi_simple})),
      showplugins(form.add<ImageButton>("showplugins", extra_place(2))),
      Image22(form.add<ImageButton>("Image22", Place{0, 0, 16, 16})),
      Image23(form.add<ImageButton>("Image23", Place{0, 0, 16, 16})),
      Frame15(form.add<Frame>("Frame15", page_place())),
      Picture9(form.add<PictureBox>("Picture9", Place{8, 16, 176, 40, &Frame15})),
      Picture7(form.add<PictureBox>("Picture7", Place{8, 16, 600, 40, &Frame15})),
      junk_files(form.add<ListBox>("junk_files", Place{8, 60, 600, 260, &Frame15})),
      Label14_10(form.add<Label>("Label14(10)", Place{4, 4, 600, 32, &Picture7})),
      Label30(form.add<Label>("Label30", Place{4, 4, 24, 24, &Picture9}, "X",
                              Label::Options{.alignment = center})),
      Text2(form.add<TextBox>("Text2", Place{8, 62, 600, 260, &Frame15}, "",
                              TextBox::Options{.multi_line = true, .scroll_bars = true})),
      Picture8(form.add<PictureBox>("Picture8", Place{8, 62, 600, 260, &Frame15})),
      Image14(form.add<ImageButton>("Image14", Place{0, 0, 600, 260, &Picture8})),
      frame1(frame1_panel),
      File1(file_list),
      Dir3(dir_list),
      Drive1(drive_list),
      k1(hidden_list),
      form_(form),
      cleaner_(file_list, form.hwnd()) {
  // Two columns: the nine categories that hold files, each with its size,
  // and the nine traces.
  for (int i = 1; i <= 18; ++i) {
    const int row = (i - 1) % 9;
    check[i] = &form.add<CheckBox>("check(" + std::to_string(i) + ")",
                                   i <= 9 ? Place{8, 14 + row * 26, 308, 22, &junk_form}
                                          : Place{410, 14 + row * 26, 204, 22, &junk_form});
  }
  for (int i = 1; i <= 9; ++i)
    ocupied[i] = &form.add<Label>("ocupied(" + std::to_string(i) + ")",
                                  Place{316, 17 + (i - 1) * 26, 76, 18, &junk_form}, "0 bytes",
                                  Label::Options{.alignment = right_justify});
  k1.Hidden = true;
  k1.System = true;
  for (Control* c : std::initializer_list<Control*>{&junk_form, &plugins, &showplugins, &Image22,
                                                    &Image23, &Frame15, &Text2, &Picture8})
    c->Visible(false);
  Label30.Click = [this] { Label30_Click(); };
  junk_files.MouseMove = [this](int button, int shift, int x, int y) {
    junk_files_MouseMove(button, shift, x, y);
  };
  wire_plugins();
  junk_form.ZOrder(0);  // over the lists that sit on the form itself
  Frame15.ZOrder(0);
}

void JunkPage::enter() {
  if (ActiveSection == 8) return;
  form_.hide_section_extras();
  junk_form.Visible(true);
  frame1.Visible(true);
  showplugins.Visible(true);
  form_.light_section_button(form_.junk);
  ActiveSection = 8;
  form_.action_buttons(true, true, true);
  for (int i = 1; i <= 9; ++i) ocupied[i]->Caption("0 bytes");
  collect_trace_paths();
  junk_scan();
}

void JunkPage::del_block() {
  // No confirmation and no stop between categories.
  for (int i = 1; i <= 18; ++i) {
    if (check[i]->Value() == 1) {
      run_category(i);
      check[i]->Value(0);
    }
  }
  run_plugins();
  junk_folder_items.clear();
  junk_file_items.clear();
  junk_scan();
}

void JunkPage::run_category(int index) {
  switch (index) {
    case 1: cleaner_.empty_recycle_bin(); break;
    case 2: cleaner_.clean_junk_items(); break;
    case 3: cleaner_.clean_temp(); break;
    case 4: cleaner_.clean_prefetch(); break;
    case 5: cleaner_.clean_internet_cache(); break;
    case 6: cleaner_.clean_cookies(); break;
    case 7: cleaner_.clean_internet_logs(); break;
    case 8: cleaner_.clean_downloaded_programs(); break;
    case 9: cleaner_.clean_downloaded_installations(); break;
    case 10: clean_stream_mru(); break;
    case 11: clean_run_mru(); break;
    case 12: clean_find_history(); break;
    case 13: clean_clipboard(); break;
    case 14: clean_recent_docs(); break;
    case 15: clean_browser_history(junk_files); break;
    case 16: clean_typed_urls(); break;
    case 17: clean_open_save_history(); break;
    case 18: clean_index_files(shred_file, !form_.Visible()); break;
  }
}

void JunkPage::delall_block() {
  // 17, not 18: the index files are never harrowed by Harrow All.
  for (int i = 1; i <= 17; ++i) ignore_errors([&] { check[i]->Value(1); });
  for (int row = 0; row < pluginlist.ListCount(); ++row)
    ignore_errors([&] { pluginlist.Selected(row, true); });
  ignore_errors([&] { form_.del_Click(); });
}

void JunkPage::ref_block() {
  if (!Frame15.Visible()) {
    junk_scan();
    return;
  }
  junk_files.Clear();
  // Only the narrow layout names its category by the viewer's mode.
  if (Picture7.Left() * twips != 2850) {
    if (form_.viewer_mode == 1)
      form_.current_check_key = "CHECK2";
    else if (form_.viewer_mode == 3)
      form_.current_check_key = "CHECK11";
    else if (form_.viewer_mode == 4)
      form_.current_check_key = "CHECK12";
  }
  lupa_Click();
}

void JunkPage::hide_extras() {
  showplugins.Visible(false);
  junk_form.Visible(false);
}

void JunkPage::leave_for_options() {
  showplugins.Visible(false);
  form_.plain_section_button(form_.junk);
}

void JunkPage::captions(int language) {
  find_browsers();
  const bool en = language == 1;
  const std::string tag = browser_tag();
  const std::string windir = environ_value("WinDir");
  const char* const english[19] = {
      "", "Recycle Bin", "", "Windows temporary folders", "Prefetch files",
      "Temporary internet  files ", "Cookies ", "Internet logs", "Downloaded Program Files",
      "Downloaded Installations", "StreamMRU", "Run", "Find", "Clipboard", "Recent docs",
      "History ", "Typed urls ", "Files opened with Open dialog", "All index.dat files(shred)"};
  const char* const romanian[19] = {
      "", "Cos de reciclare", "", "Directoare temporare Windows", "Fisiere Prefetch",
      "Fisiere temporare internet ", "Cookies ", "Loguri Internet", "Programe downloadate",
      "Instalari downloadate", "StreamMRU", "Run", "Find", "Clipboard", "Documente recente",
      "Istorie ", "Adrese tastate ", "Fisiere deschise cu Open dialog", "Toate index.dat-urile"};
  for (int i = 1; i <= 18; ++i) {
    std::string text = en ? english[i] : romanian[i];
    if (i == 2)
      text = en ? "Junk files in root and " + windir + " folder"
                : "Fisiere nefolositoare din radacina si " + windir;
    if (i == 5 || i == 6 || i == 15 || i == 16) text += tag;
    check[i]->Caption(text);
  }
  Label14.Caption(en ? " Total selected:" : " Total selectat:");
}

std::string JunkPage::browser_tag() const {
  std::string tag = "(IE";
  if (!opera_folder.empty()) tag += ",Opera";
  if (!firefox_folder.empty()) tag += ",Firefox";
  return tag + ")";
}

// The refresh button tells the two layouts apart by Picture7's left edge:
// 2850 twips in the wide one only.
void JunkPage::famare() {
  const skin::Rect& c = skin::content;
  const int title_left = 2850 / twips_per_pixel_x();
  form_.del.Visible(false);
  form_.delall.Visible(false);
  Picture9.Move(8, 16, title_left - 14, 40);
  Frame15.Move(c.left, c.top, c.width, c.height);
  Picture7.Move(title_left, 16, c.width - title_left - 8, 40);
  junk_files.Move(8, 62, c.width - 16, c.height - 70);
  junk_files.Clear();
  Frame15.Visible(true);
}

void JunkPage::famic() {
  const skin::Rect& c = skin::content;
  const int width = 230;
  form_.del.Visible(false);
  form_.delall.Visible(false);
  Picture9.Move(8, 16, width - 16, 24);
  Frame15.Move(c.left + c.width - width, c.top, width, c.height);
  Picture7.Move(8, 44, width - 16, 40);
  junk_files.Move(8, 90, width - 16, c.height - 98);
  junk_files.Clear();
  Frame15.Visible(true);
}


}  // namespace wh
