#include "system/startup_page.h"

#include "core/commands.h"
#include "core/globals.h"
#include "core/routines.h"
#include "core/settings.h"
#include "core/shortcuts.h"
#include "core/text.h"
#include "core/version_info.h"
#include "platform/code_pages.h"
#include "platform/environment.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"

namespace wh {

namespace {
bool english() { return language_flag == 1; }

const char* const services_key = "SYSTEM\\CurrentControlSet\\Services";

struct RunKey {
  HKEY root;
  const char* key;
};
// ItemData k of a run_reg row is position k - 1 here. The machine's keys are
// read and cleared in both views (software_views).
const RunKey run_keys[4] = {
    {HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Windows\\CurrentVersion\\Run"},
    {HKEY_CURRENT_USER, "Software\\Microsoft\\Windows\\CurrentVersion\\Run"},
    {HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunServices"},
    {HKEY_CURRENT_USER, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunServices"},
};

// The text before and behind the first "->" of a row.
std::string row_name(const std::string& row) { return row.substr(0, row.find("->")); }
std::string row_data(const std::string& row) {
  const size_t p = row.find("->");
  return p == std::string::npos ? std::string() : row.substr(p + 2);
}

// A whole file as text; raises what the open or the read gives.
std::string read_text(const std::string& path) {
  BinaryFile f;
  check(f.open_read(path));
  std::int64_t length = 0;
  check(f.length(length));
  std::string text(static_cast<size_t>(length), '\0');
  DWORD got = 0;
  if (length > 0) check(f.read_at(0, text.data(), static_cast<DWORD>(length), got));
  text.resize(got);
  return text;
}

// Opens for output: made or emptied. Raises what the open gives (a name
// the file system refuses, a missing folder).
void write_text(const std::string& path, const std::string& text) {
  BinaryFile f;
  check(f.open_binary(path));
  check(f.set_length(0));
  if (!text.empty()) check(f.write_at(0, text.data(), static_cast<DWORD>(text.size())));
}

std::string ini_path(const char* name) { return environment_variable("WinDir") + name; }

// Rewrites an ini file in the Windows folder record by record through its
// ".tmp" copy: what `edit` returns for each record (1-based number) is
// written, nothing when it returns false. Errors ignored, statement by
// statement, as the removal of ini items runs.
template <class Edit>
void rewrite_ini(const char* name, Edit edit) {
  const std::string file = ini_path(name);
  const std::string tmp = file + ".tmp";
  std::string text;
  // A file that went away since the scan is not made again, empty.
  if (ignore_errors([&] { text = read_text(file); }) != 0) return;
  const Records records = read_records(text);
  std::vector<std::string> out;
  for (size_t i = 0; i < records.size(); ++i) {
    std::string r(records[i]);
    if (edit(static_cast<int>(i + 1), r)) out.push_back(r);
  }
  ignore_errors([&] { write_text(tmp, write_records(out)); });
  FileSystemObject& fso = file_system();
  ignore_errors([&] { check(fso.DeleteFile(file)); });
  ignore_errors([&] { check(fso.CopyFile(tmp, file)); });
  ignore_errors([&] { check(fso.DeleteFile(tmp)); });
}

// The four lists two by two, each under its title; the right-hand column
// keeps the restore pictures and the restore panel.
Place list_place(int column, int row, Control* page) {
  return Place{6 + column * 224, 30 + row * 150, 218, 130, page};
}
Place title_place(int column, int row, Control* page) {
  return Place{6 + column * 224, 12 + row * 150, 218, 16, page};
}
}  // namespace

std::string backup_folder() { return environment_variable("windir") + "\\repair"; }

std::string make_backup_folder() {
  const std::string folder = backup_folder();
  FileSystemObject& fso = file_system();
  if (!fso.FolderExists(folder)) check(fso.CreateFolder(folder));
  return folder;
}

std::string run_value_backup(long item_data, const std::string& name, const std::string& data,
                             RegView view) {
  static const std::string zone(14, ' ');  // the first print zone
  // regedit, a 64-bit program, reaches the 32-bit view by this path.
  const std::string software = view == RegView::reg32 ? "SOFTWARE\\Wow6432Node" : "SOFTWARE";
  std::string header;
  if (item_data == 1)
    header = "[HKEY_LOCAL_MACHINE\\" + software + "\\Microsoft\\Windows\\CUrrentVersion\\Run]";
  else if (item_data == 2)
    header = "[HKEY_CURRENT_USER\\SOFTWARE\\Microsoft\\Windows\\CUrrentVersion\\Run]";
  else if (item_data == 3 || item_data == 4)
    header = "[HKEY_LOCAL_MACHINE\\" + software +
             "\\Microsoft\\Windows\\CUrrentVersion\\Run_Services]";
  // Backslashes doubled; quotes left as they are.
  std::string doubled;
  for (char c : data) {
    doubled += c;
    if (c == '\\') doubled += '\\';
  }
  return zone + "REGEDIT4\r\n" + zone + header + "\r\n" + zone + "\"" + name + "\"=\"" + doubled +
         "\"\r\n";
}

void delete_key_tree(HKEY root, const std::string& key) {
  for (const std::string& sub : reg_enum_keys(root, key)) delete_key_tree(root, key + "\\" + sub);
  reg_delete_key(root, key);
}

StartupPage::StartupPage(MainForm& form, Frame& search_panel, TextBox& search_text,
                         FileListBox& hidden_list)
    : RUNframe(form.add<Frame>("RUNframe", page_place())),
      reg_title(form.add<Label>("reg_title", title_place(0, 0, &RUNframe))),
      folder_title(form.add<Label>("folder_title", title_place(1, 0, &RUNframe))),
      ini_title(form.add<Label>("ini_title", title_place(0, 1, &RUNframe))),
      services_title(form.add<Label>("services_title", title_place(1, 1, &RUNframe))),
      run_reg(form.add<ListBox>("run_reg", list_place(0, 0, &RUNframe),
                                ListBox::Options{.multi_select = multi_extended})),
      run_folder(form.add<ListBox>("run_folder", list_place(1, 0, &RUNframe),
                                   ListBox::Options{.multi_select = multi_extended})),
      run_ini(form.add<ListBox>("run_ini", list_place(0, 1, &RUNframe),
                                ListBox::Options{.multi_select = multi_extended})),
      run_services(form.add<ListBox>("run_services", list_place(1, 1, &RUNframe),
                                     ListBox::Options{.multi_select = multi_extended})),
      Image6_2(form.add<ImageButton>("Image6_2", Place{456, 12, 76, 56, &RUNframe})),
      Image6_4(form.add<ImageButton>("Image6_4", Place{538, 12, 76, 56, &RUNframe})),
      backupitems(form.add<Frame>("backupitems", Place{452, 72, 164, 250, &RUNframe})),
      Label27(form.add<Label>("Label27", Place{6, 14, 152, 18, &backupitems})),
      List6(form.add<ListBox>("List6", Place{6, 34, 152, 156, &backupitems})),
      Image8_0(form.add<ImageButton>("Image8_0", Place{84, 194, 72, 50, &backupitems})),
      Image8_1(form.add<ImageButton>("Image8_1", Place{6, 194, 72, 50, &backupitems})),
      k1(hidden_list),
      k2(form.add<FileListBox>("k2", Place{0, 0, 10, 10})),
      umb_up(form.add<ImageButton>("umb_up", extra_place(3))),
      search(search_panel),
      Text6(search_text),
      form_(form) {
  RUNframe.Visible(false);
  RUNframe.ZOrder(0);  // over the lists that sit on the form itself
  backupitems.Visible(false);
  backupitems.ZOrder(0);
  k2.Visible(false);
  umb_up.Visible(false);
  umb_up.LoadPicture("UMBRELLA_CLOSED");
  Image6_2.LoadPicture("RESTORE_REGISTRY");
  Image6_4.LoadPicture("RESTORE_SERVICES");
  Image8_0.LoadPicture("BACKUP_FORGET");
  Image8_1.LoadPicture("BACKUP_RESTORE");
  captions(1);

  ListBox* lists[4] = {&run_reg, &run_folder, &run_ini, &run_services};
  for (uint8_t tab = 1; tab <= 4; ++tab) {
    ListBox& list = *lists[tab - 1];
    list.GotFocus = [this, tab] { form_.startup_tab = tab; };
    list.DblClick = [this] { form_.del_Click(); };
    list.KeyDown = [this](int& key, int shift) { run_services_KeyDown(key, shift); };
    list.Click = [this] { search_tip(); };
  }
  run_services.MouseMove = [this](int, int, int, int y) { run_services_MouseMove(y); };
  umb_up.Click = [this] { umb_up_Click(); };
  umb_up.MouseMove = [this](int, int, int, int) { umb_up_MouseMove(); };
  Image6_2.Click = [this] { Image6_Click(2); };
  Image6_4.Click = [this] { Image6_Click(4); };
  Image8_0.Click = [this] { Image8_Click(0); };
  Image8_1.Click = [this] { Image8_Click(1); };
  using Lines = std::vector<std::string>;
  Image6_2.MouseMove = [this](int, int, int, int) {
    form_.show_help("LLA1", english() ? Lines{" Restore deleted", "  registry items "}
                                      : Lines{" Restaureaza", "  registru sters"});
  };
  Image6_4.MouseMove = [this](int, int, int, int) {
    form_.show_help("LLB1", english() ? Lines{" Restore deleted", "   services"}
                                      : Lines{" Restaureaza", "  servicii sterse"});
  };
  Image8_0.MouseMove = [this](int, int, int, int) {
    form_.show_help("LLB", english() ? Lines{" Permanently delete"} : Lines{" Sterge definitiv"});
  };
  Image8_1.MouseMove = [this](int, int, int, int) {
    form_.show_help("LLA", english() ? Lines{"   Restore item"} : Lines{"   Restaureaza"});
  };
}

void StartupPage::enter() {
  if (ActiveSection == 9) return;
  form_.hide_section_extras();
  RUNframe.Visible(true);
  umb_up.Visible(true);
  form_.light_section_button(form_.RUN);
  ActiveSection = 9;
  form_.action_buttons(true, false, true);
  // The focus before the scan: from the tray the lists stay unfilled until
  // the button is pressed again.
  run_reg.SetFocus();
  scan_startup();
}

void StartupPage::ref_block() { scan_startup(); }

void StartupPage::hide_extras() {
  umb_up.Visible(false);
  RUNframe.Visible(false);
}

void StartupPage::leave_for_options() {
  search.Visible(false);
  umb_up.Visible(false);
  form_.plain_section_button(form_.RUN);
}

void StartupPage::captions(int language) {
  const bool en = language == 1;
  reg_title.Caption(en ? "Registry" : "Registru");
  folder_title.Caption(en ? "Startup folders" : "Directoare StartUp");
  ini_title.Caption(en ? "Ini files" : "Fisiere ini");
  services_title.Caption(en ? "Services" : "Servicii");
  Label27.Caption(form_.restore_type == 2 ? (en ? "Restore services" : "Restaureaza servicii")
                                          : (en ? "Restore registry" : "Restaureaza registru"));
}

// --- the scan

void StartupPage::scan_startup() {
  if (is_nt()) {
    std::vector<StartupService> found;
    for (const std::string& sub : reg_enum_keys(HKEY_LOCAL_MACHINE, services_key)) {
      const std::string key = std::string(services_key) + "\\" + sub;
      ignore_errors([&] {
        const std::string path =
            command_to_path(reg_get_value(HKEY_LOCAL_MACHINE, key, "Imagepath"));
        // The second pass is part of the test; a driver such as
        // system32\x.sys has no drive letter and drops out here.
        if (!file_system().FileExists(command_to_path(path))) return;
        VersionStrings version;
        file_version_info(path, version);
        if (version[0].find("Microsoft") != std::string::npos) return;
        found.push_back({key,
                         reg_get_value(HKEY_LOCAL_MACHINE, key, "DisplayName") + "->" + path,
                         reg_get_value(HKEY_LOCAL_MACHINE, key, "Description"), version[0]});
      });
    }
    // A plain exchange sort: equal texts may swap.
    for (size_t a = 0; a + 1 < found.size(); ++a)
      for (size_t b = a + 1; b < found.size(); ++b)
        if (found[a].text > found[b].text) std::swap(found[a], found[b]);
    startup_services = std::move(found);
    // Each list is filled unseen and drawn once: under Wine a shown list
    // pays a trip to the X server for every row added.
    ListBox::Batch batch(run_services);
    run_services.Clear();
    for (const StartupService& s : startup_services) list_add_wide(run_services, s.text);
  }

  {
    ListBox::Batch batch(run_reg);
    run_reg.Clear();
    run_reg_views.clear();
    run_folder.Clear();
    run_ini.Clear();

    for (long k = 1; k <= 4; ++k) {
      for (const RegView view : software_views(run_keys[k - 1].root)) {
        HKEY key = nullptr;
        if (reg_open_key(run_keys[k - 1].root, run_keys[k - 1].key, key, view) != ERROR_SUCCESS)
          continue;
        for (DWORD index = 0;; ++index) {
          // Buffers of 255 characters, whatever their size in UTF-8.
          std::string name(255, '\0'), data(255, '\0');
          DWORD name_length = 255, data_length = 255;
          const LONG r = reg_enum_value_chars(key, index, name, name_length, data, data_length);
          if (r == ERROR_NO_MORE_ITEMS) break;
          // Any other failure counts as a value: a long one shows what fitted.
          if (name_length > 255) name_length = 0;
          if (data_length > 255) data_length = 255;
          if (data_length > 0 && name_length > 0) {
            const std::string text(utf8::left(data, data_length - 1));
            list_add_wide(run_reg, std::string(utf8::left(name, name_length)) + "->" + text);
            run_reg.ItemData(run_reg.ListCount() - 1, k);
            run_reg_views.push_back(view);
          }
        }
        reg_close_key(key);
      }
    }
  }

  ignore_errors([&] {
    startup_folders[0] = special_folder(7);
    startup_folders[1] =
        is_nt() ? special_folder(24)
                : reg_get_value(HKEY_LOCAL_MACHINE,
                                "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                                "Common Startup");
  });
  {
    ListBox::Batch batch(run_folder);
    for (const std::string& folder : startup_folders) {
      // A folder that cannot be shown adds nothing.
      if (ignore_errors([&] { k2.Path(folder); }) != 0) continue;
      k2.Refresh();
      for (int i = 0; i < k2.ListCount(); ++i) {
        const std::string file = k2.List(i);
        list_add_wide(run_folder, file + "->" + read_shortcut_target(folder + "\\" + file));
      }
    }
  }

  scan_ini_startup();
}

void StartupPage::scan_ini_startup() {
  ini.shell_tail.clear();
  FileSystemObject& fso = file_system();
  auto records = [&](const char* name, auto read) {
    const std::string path = ini_path(name);
    if (!fso.FileExists(path)) return;
    ignore_errors([&] {
      const std::string text = read_text(path);
      read(read_records(text), ini);
    });
  };
  records("\\win.ini", read_win_ini);
  records("\\system.ini", read_system_ini);
  records("\\wininit.ini", read_wininit_ini);
  ListBox::Batch batch(run_ini);
  for (const std::string& row : ini_rows(ini)) list_add_wide(run_ini, row);
}

// --- removal

void StartupPage::del_block() {
  remove_run_values();
  remove_folder_files();
  remove_ini_items();
  remove_services();
  focus_by_tab();
  scan_startup();
}

// No error handling here: a backup that cannot be written (a value name
// that is no file name) ends the program, and the value stays.
void StartupPage::remove_run_values() {
  for (int i = 0; i < run_reg.ListCount(); ++i) {
    if (!run_reg.Selected(i)) continue;
    const std::string row = run_reg.List(i);
    const std::string name = row_name(row);
    if (backup_enabled) {
      const std::string folder = make_backup_folder();
      const RegView view =
          static_cast<size_t>(i) < run_reg_views.size() ? run_reg_views[i] : RegView::native;
      // regedit reads REGEDIT4 in the system's ANSI code page, not in ours.
      write_text(folder + "\\(" + name + ").reg",
                 text_for_code_page(run_value_backup(run_reg.ItemData(i), name, row_data(row), view),
                                    system_ansi_code_page()));
      if (backupitems.Visible()) {
        form_.restore_type = form_.restore_type == 1 ? 2 : 1;
        Image6_Click(2);
      }
    }
    // From all four keys, in both views, whichever it came from.
    for (const RunKey& rk : run_keys) {
      for (const RegView view : software_views(rk.root)) {
        HKEY key = nullptr;
        reg_open_key(rk.root, rk.key, key, view);
        reg_delete_value(key, name);
        reg_close_key(key);
      }
    }
  }
}

void StartupPage::remove_folder_files() {
  FileSystemObject& fso = file_system();
  for (int i = 0; i < run_folder.ListCount(); ++i) {
    if (!run_folder.Selected(i)) continue;
    const std::string name = row_name(run_folder.List(i));
    for (const std::string& folder : startup_folders)
      ignore_errors([&] { check(fso.DeleteFile(folder + "\\" + name)); });
  }
}

void StartupPage::remove_ini_items() {
  for (int i = 0; i < run_ini.ListCount(); ++i) {
    if (!run_ini.Selected(i)) continue;
    const std::string row = run_ini.List(i);
    for (size_t j = 0; j < ini.load_items.size(); ++j) {
      if (ini.load_items[j] != row) continue;
      const std::string line = load_line_without(ini.load_items, j);
      rewrite_ini("\\win.ini", [&](int n, std::string& r) {
        if (n == ini.load_line) r = line;
        return true;
      });
    }
    for (size_t j = 0; j < ini.run_items.size(); ++j) {
      if (ini.run_items[j] != row) continue;
      const std::string line = run_line_without(ini.run_items, j);
      rewrite_ini("\\win.ini", [&](int n, std::string& r) {
        if (n == ini.run_line) r = line;
        return true;
      });
    }
    if (row == ini.shell_tail) {
      rewrite_ini("\\system.ini", [](int, std::string& r) {
        if (r.compare(0, 18, "shell=Explorer.exe") == 0) r = "shell=Explorer.exe";
        return true;
      });
    }
    for (size_t j = 0; j < ini.nul_items.size(); ++j) {
      if (ini.nul_items[j] != row) continue;
      rewrite_ini("\\wininit.ini", [&](int, std::string& r) { return r != "NUL=" + row; });
    }
  }
}

void StartupPage::remove_services() {
  for (int i = 0; i < run_services.ListCount(); ++i) {
    if (!run_services.Selected(i) || static_cast<size_t>(i) >= startup_services.size()) continue;
    const StartupService& service = startup_services[i];
    ignore_errors([&] {
      if (backup_enabled) {
        // regedit writes into no folder that is not there, and Vista and
        // later have no repair folder.
        make_backup_folder();
        // The closing quote of the key is missing; regedit takes it so. Not
        // waited for: it races the deletion below, as it always did.
        ProcessResult started;
        create_process("regedit /e \"" + environment_variable("windir") + "\\repair\\" +
                           row_name(service.text) + ".reg\" \"HKEY_LOCAL_MACHINE\\" + service.key,
                       false, started, SW_HIDE);
      }
    });
    delete_key_tree(HKEY_LOCAL_MACHINE, service.key);
    if (backupitems.Visible()) {
      form_.restore_type = form_.restore_type == 1 ? 2 : 1;
      Image6_Click(4);
    }
  }
}

void StartupPage::focus_by_tab() {
  ListBox* lists[4] = {&run_reg, &run_folder, &run_ini, &run_services};
  if (form_.startup_tab >= 1 && form_.startup_tab <= 4)
    ignore_errors([&] { lists[form_.startup_tab - 1]->SetFocus(); });
}

// --- backup and restore

void StartupPage::umb_up_Click() {
  backup_enabled = backup_enabled ? 0 : -1;
  umb_up.LoadPicture(backup_enabled ? "UMBRELLA_OPEN" : "UMBRELLA_CLOSED");
}

void StartupPage::umb_up_MouseMove() {
  if (english())
    form_.show_help("UMBRELLA", {backup_enabled ? "Disable backup for" : "Enable backup for",
                                 "  registry and", "   services"});
  else
    form_.show_help("UMBRELLA", {backup_enabled ? "Dezactiveaza backup" : "Activeaza backup",
                                 " pentru registru si", "  servicii"});
  form_.tip_once(
      "Back-upTIP",
      english() ? "When the umbrella is open, deleted registry and services items will be backed "
                  "up first , for future restoration.\r\nTo restore an item click the "
                  "coresponding picture on the right!"
                : "Cand umbrela este deschisa,elementele sterse din registru si servicii vor fi "
                  "mai intai salvate pentru o restaurare ulterioara.\r\nPentru a restaura un "
                  "element,apasati pe imaginile corespunzatoare categoriei din dreapta ecranului !");
}

void StartupPage::Image6_Click(int Index) {
  if (backupitems.Visible() && form_.restore_type * 2 == Index) {
    backupitems.Visible(false);
    focus_by_tab();
    return;
  }
  const std::string folder = backup_folder();
  // Nothing backed up yet: an empty list rather than a missing folder.
  ignore_errors([&] { make_backup_folder(); });
  if (Index == 2) {
    Label27.Caption(english() ? "Restore registry" : "Restaureaza registru");
    form_.restore_type = 1;
  } else if (Index == 4) {
    Label27.Caption(english() ? "Restore services" : "Restaureaza servicii");
    form_.restore_type = 2;
  } else {
    return;
  }
  backupitems.Visible(true);
  List6.Clear();
  if (ignore_errors([&] { k1.Path(folder); }) != 0) return;
  k1.Pattern(Index == 2 ? "(*).reg" : "*.reg");
  k1.Refresh();
  ListBox::Batch batch(List6);
  for (int i = 0; i < k1.ListCount(); ++i) {
    const std::string file = k1.List(i);
    std::string row;
    if (Index == 2) {
      const size_t close = file.find(')');
      row = file.substr(1, close == std::string::npos ? std::string::npos : close - 1);
    } else {
      if (!file.empty() && file[0] == '(') continue;
      row = file.substr(0, file.find(".reg"));
    }
    List6.AddItem(row);
    List6.ItemData(List6.NewIndex(), i);
  }
}

void StartupPage::Image8_Click(int Index) {
  const int row = List6.ListIndex();
  if (row < 0) return;
  const std::string file = k1.List(List6.ItemData(row));
  const std::string path = environment_variable("windir") + "\\repair\\" + file;
  if (Index == 1) {
    ProcessResult started;
    create_process("regedit /s \"" + path + "\"", false, started, SW_SHOWMINIMIZED);
    form_.ref_Click();
  } else {
    // The stray quote stays in the name: the file is not found and shows up
    // again the next time the list is built.
    ignore_errors([&] { check(file_system().DeleteFile(path + "\"", true)); });
    List6.RemoveItem(row);
  }
}

// --- keys, mouse and the search

void StartupPage::run_services_KeyDown(int& key, int shift) {
  if (key == 46) {
    form_.del_Click();
  } else if (key == 70 && shift == 2) {
    if (!search.Visible()) {
      form_.search_target = 2;
      search.Visible(true);
      Text6.Text("");
      Text6.SetFocus();
    } else {
      search.Visible(false);
    }
  }
}

void StartupPage::run_services_MouseMove(int y) {
  // The row under the pointer from the height of a sample text in the
  // list's font.
  const int height = run_services.TextHeight("Xyz");
  if (height <= 0) return;
  const int row = run_services.TopIndex() + y / height;
  const std::string tip =
      row >= 0 && static_cast<size_t>(row) < startup_services.size()
          ? startup_services[row].description + " (" + startup_services[row].company + ")"
          : std::string();
  run_services.ToolTipText(tip);
}

void StartupPage::search_tip() {
  form_.tip_once(
      "SEARChtip2",
      english() ? "You can easily search/select items in all start-up categories  by pressing "
                  "CTRL+F and typing at least 3 letters from the app's name.If you found it/them "
                  "press ENTER to remove it/them.\r\nPress CTRL+F to hide the search window!"
                : "Puteti cu usurinta sa cautati/selectati o aplicatie in toate sectiunile "
                  "START-UP apasand CTRL+F si tastand cel putin 3 litere din numele acesteia.Daca "
                  "ati gasit-o apasati ENTER pentru dezinstalare.\r\nPentru a ascunde fereastra "
                  "de cautare apasati din nou CTRL+F");
}

void StartupPage::search_select(const std::string& text) {
  const std::string wanted = ucase(text);
  const bool enough = utf8::length(text) >= 3;  // three characters, not bytes
  for (ListBox* list : {&run_services, &run_reg, &run_folder})
    for (int i = 0; i < list->ListCount(); ++i)
      list->Selected(i, enough && ucase(list->List(i)).find(wanted) != std::string::npos);
}

int StartupPage::search_hits() const {
  return run_services.SelCount() + run_reg.SelCount() + run_folder.SelCount();
}

}  // namespace wh
