// The trace viewer of section 8: what a category would remove, in the
// panel Frame15 or in the system's file browser.
#include <windows.h>

#include <string>

#include "cleaning/junk_page.h"
#include "cleaning/junk_state.h"
#include "cleaning/url_cache.h"
#include "cleaning/viewer.h"
#include "core/globals.h"
#include "core/routines.h"
#include "platform/clipboard.h"
#include "platform/rt_error.h"
#include "platform/shell.h"
#include "platform/utf8.h"

namespace wh {

namespace {

void explore(HWND owner, const std::string& folder) {
  shell_execute(owner, "explore", folder, "", "C:\\", 1);
}

void add_lines(ListBox& list, const std::vector<std::string>& lines) {
  ListBox::Batch batch(list);
  for (const std::string& line : lines) list_add_wide(list, line);
}

}  // namespace

void JunkPage::lupa_Click() {
  const std::string key = form_.current_check_key;
  const bool en = language_flag == 1;
  auto open_list = [&](bool wide, uint8_t mode, const char* english, const char* romanian) {
    ignore_errors([&] { wide ? famare() : famic(); });
    form_.viewer_mode = mode;
    ignore_errors([&] { Label14_10.Caption(en ? english : romanian); });
  };
  const HWND owner = form_.hwnd();
  // Literally this folder, on every system.
  if (key == "CHECK1") explore(owner, "c:\\recycled");
  if (key == "CHECK2") {
    open_list(false, 1, "Junk folders and files", "Directoare si fisiere nefolositoare");
    show_junk_items();
  }
  if (key == "CHECK3") {
    explore(owner, temp_folder);
    if (temp_folder != windows_temp_folder) explore(owner, windows_temp_folder);
  }
  if (key == "CHECK4") explore(owner, prefetch_folder);
  if (key == "CHECK5") explore(owner, cache_folder);
  if (key == "CHECK6") explore(owner, cookies_folder);
  if (key == "CHECK7") explore(owner, internet_logs_folder);
  if (key == "CHECK8") explore(owner, downloaded_programs_folder);
  if (key == "CHECK9") explore(owner, downloaded_installations_folder);
  if (key == "CHECK11") {
    open_list(false, 3, "RUN history", "Istoria RUN");
    ignore_errors([&] { add_lines(junk_files, run_history_lines()); });
  }
  if (key == "CHECK12") {
    open_list(false, 4, "Search history", "Istoria cautarilor");
    ignore_errors([&] { add_lines(junk_files, search_history_lines()); });
  }
  if (key == "CHECK13") {
    open_list(true, 5, "Clipboard content", "Continutul Clipboard");
    show_clipboard();
  }
  if (key == "CHECK14") explore(owner, recent_folder);
  if (key == "CHECK15") {
    open_list(true, 6, "History", "ISTORIE");
    show_history();
  }
  if (key == "CHECK16") {
    open_list(true, 7, "Typed URLs", "Adrese tastate");
    show_typed_urls();
  }
  if (key == "CHECK18") {
    open_list(true, 2, "Content of INDEX.DAT files", "Continutul fisierelor INDEX.DAT");
    show_index_files();
  }
}

void JunkPage::show_junk_items() {
  for (auto* items : {&junk_folder_items, &junk_file_items}) {
    for (size_t i = 1; i < items->size(); ++i) {
      JunkItem& item = (*items)[i];
      ignore_errors([&] {
        list_add_wide(junk_files, item.path + " (" + form_.spatiuu(item.size) + ")");
      });
    }
    if (items == &junk_folder_items) junk_files.AddItem("");
  }
}

void JunkPage::show_index_files() {
  const bool en = language_flag == 1;
  junk_files.AddItem(en ? "Content of INDEX.DAT in TEMPORARY INTERNET FILES folder:"
                        : "Continutul INDEX.DAT din directorul TEMPORARY INTERNET FILES:");
  ignore_errors([&] { scan_index_file(junk_files, cache_folder + "\\Content.IE5\\index.dat"); });
  junk_files.AddItem("");
  junk_files.AddItem(en ? "Content of INDEX.DAT in HISTORY folder:"
                        : "Continutul INDEX.DAT din directorul HISTORY:");
  ignore_errors([&] { scan_index_tree(junk_files, history_folder, 1); });
  junk_files.AddItem("");
  junk_files.AddItem(en ? "Content of INDEX.DAT in COOKIES folder:"
                        : "Continutul INDEX.DAT din directorul COOKIES:");
  ignore_errors([&] { scan_index_file(junk_files, cookies_folder + "\\index.dat"); });
}

void JunkPage::show_clipboard() {
  // Over the list's place in the layout just set.
  Text2.Move(junk_files.Left(), junk_files.Top(), junk_files.Width(), junk_files.Height());
  Picture8.Move(junk_files.Left(), junk_files.Top(), junk_files.Width(), junk_files.Height());
  Image14.Move(0, 0, junk_files.Width(), junk_files.Height());
  // A picture wins over text: the text format isn't asked for then.
  if (clipboard_has_format(CF_BITMAP)) {
    Picture8.Visible(true);
    HBITMAP copy = nullptr;
    clipboard_get_bitmap(copy, form_.hwnd());
    if (copy) Image14.picture(make_picture(copy));
  } else if (clipboard_has_format(CF_TEXT)) {
    Text2.Visible(true);
    std::string text;
    clipboard_get_text(text, form_.hwnd());
    Text2.Text(text);
  }
}

void JunkPage::show_history() {
  const bool en = language_flag == 1;
  junk_files.AddItem(en ? "INTERNET EXPLORER HISTORY:" : "Istoria INTERNET EXPLORER:");
  history_first_line = static_cast<int16_t>(junk_files.ListCount());
  ignore_errors([&] { load_url_cache_list(junk_files); });
  history_last_line = static_cast<int16_t>(junk_files.ListCount() - 1);
  junk_files.AddItem("");
  if (!opera_folder.empty()) {
    junk_files.AddItem(en ? "OPERA HISTORY:" : "Istoria OPERA:");
    ignore_errors([&] { scan_opera_file(junk_files, opera_folder + "\\Profile\\global.dat"); });
    ignore_errors([&] { scan_opera_file(junk_files, opera_folder + "\\Profile\\download.dat"); });
    junk_files.AddItem("");
  }
  if (!firefox_folder.empty()) {
    junk_files.AddItem(en ? "FIREFOX HISTORY:" : "Istoria FIREFOX:");
    ignore_errors([&] { scan_firefox_history(junk_files, firefox_profile + "history.dat"); });
  }
}

void JunkPage::show_typed_urls() {
  const bool en = language_flag == 1;
  junk_files.AddItem(en ? "IE TYPED URLS:" : "Adrese tastate in INTERNET EXPLORER:");
  ignore_errors([&] { add_lines(junk_files, typed_url_lines()); });
  if (!opera_folder.empty()) {
    junk_files.AddItem(en ? "OPERA TYPED URLS:" : "Adrese tastate in OPERA:");
    ignore_errors([&] { scan_opera_file(junk_files, opera_folder + "\\Profile\\vlink4.dat"); });
  }
}

void JunkPage::Label30_Click() {
  form_.del.Visible(true);
  form_.ref.Visible(true);
  Text2.Visible(false);
  Picture8.Visible(false);
  Frame15.Visible(false);
  junk_files.Clear();
}

void JunkPage::junk_files_MouseMove(int /*button*/, int /*shift*/, int /*x*/, int y) {
  const int height = junk_files.TextHeight("Xyz");
  const int line = junk_files.TopIndex() + (height > 0 ? y / height : 0);
  const std::string text = line < junk_files.ListCount() ? junk_files.List(line) : std::string();
  junk_files.ToolTipText(utf8::length(text) > 67 ? text : std::string());
  Label30.ForeColor(0);
}

}  // namespace wh
