#include "system/uninstall_page.h"

#include "core/globals.h"
#include "core/routines.h"
#include "core/settings.h"
#include "core/shortcuts.h"
#include "core/text.h"
#include "core/version_info.h"
#include "platform/clipboard.h"
#include "platform/environment.h"
#include "platform/fso.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/rt_error.h"
#include "ui/end.h"

namespace wh {

namespace {
bool english() { return language_flag == 1; }
bool holds(const std::string& text, const std::string& what) {
  return text.find(what) != std::string::npos;
}
}  // namespace

std::string strip_spaces(const std::string& text) {
  std::string out;
  for (char c : text)
    if (c != ' ') out += c;
  return out;
}

void show_program_rows(ListBox& List1, const ProgramRows& rows) {
  ListBox::Batch batch(List1);
  for (const std::string& name : rows.known) ignore_errors([&] { List1.AddItem(name); });
  int top = 0;
  for (const std::string& name : rows.fresh) ignore_errors([&] { List1.AddItem(name, top++); });
}

void start_program(const std::string& command, int style) {
  if (trim(command).empty()) raise(rt_invalid_call);
  ProcessResult started;
  const int err = create_process(command, false, started, style);
  if (err != 0) raise(rt_file_not_found);
}

UninstallPage::UninstallPage(MainForm& form, Frame& search_panel, TextBox& text6)
    : List1(form.add<ListBox>("List1", page_place(),
                              ListBox::Options{.multi_select = multi_extended, .sorted = true})),
      PIE(form.add<ImageButton>("PIE", extra_place(0))),
      QM(form.add<ImageButton>("QM", extra_place(1))),
      lupe(form.add<ImageButton>("lupe", extra_place(2))),
      delfolder(form.add<ImageButton>("delfolder", extra_place(3))),
      talpa(form.add<ImageButton>("talpa", extra_place(4))),
      search(search_panel),
      Text6(text6),
      form_(form) {
  // As designed the first section's extras show; the start puts them right.
  for (Control* c : std::initializer_list<Control*>{&QM, &lupe, &talpa}) c->Visible(false);
  talpa.LoadPicture("PICIOR_JOS");
  PIE.LoadPicture("PIE");
  QM.LoadPicture("QM");
  lupe.LoadPicture("LUPE");
  delfolder.LoadPicture("XFOLDER");
  PIE.Click = [this] { PIE_Click(); };
  List1.Click = [this] { List1_Click(); };
  List1.DblClick = [this] { List1_DblClick(); };
  List1.KeyDown = [this](int& key, int shift) { List1_KeyDown(key, shift); };
  talpa.Click = [this] { talpa_Click(); };
  delfolder.Click = [this] { delfolder_Click(); };
  delfolder.MouseMove = [this](int b, int s, int x, int y) { delfolder_MouseMove(b, s, x, y); };
}

void UninstallPage::enter() {
  if (ActiveSection == 1) return;
  form_.hide_section_extras();
  PIE.Visible(true);
  delfolder.Visible(true);
  form_.light_section_button(form_.uninstall);
  form_.action_buttons(true, false, true);
  // The focus comes before the section number: from the tray this fails
  // and ActiveSection stays where it was.
  List1.SetFocus();
  ActiveSection = 1;
  scan_installed_programs();
  form_.section_tip(
      1,
      language_flag == 1
          ? "YOU CAN EASILY UNINSTALL A PROGRAM STRAIGHT FROM YOUR DESKTOP BY DROPPING ITS "
            "SHORTCUT OVER WELLHARROWER OR BY SELECTING WELLHARROW IN THE RIGHT CLICK CONTEXT "
            "MENU IN EXPLORER"
          : "PUTETI DEZINSTALA CU USURINTA UN PROGRAM DIRECT DE PE DESKTOP TRAGAND SCURTATURA "
            "LUI PESTE WELLHARROWER SAU DAND CLICK DREAPTA SI ALEGAND WELLHARROW DIN MENIUL "
            "CONTEXTUAL DIN EXPLORER",
      true);
}

void UninstallPage::ref_block() {
  List1.Clear();
  scan_installed_programs();
}

void UninstallPage::hide_extras() {
  for (Control* c : std::initializer_list<Control*>{&PIE, &QM, &lupe, &talpa, &delfolder})
    c->Visible(false);
}

void UninstallPage::leave_for_options() {
  for (Control* c : std::initializer_list<Control*>{&PIE, &QM, &lupe, &delfolder, &search, &talpa})
    c->Visible(false);
  form_.plain_section_button(form_.uninstall);
}

void UninstallPage::captions(int) {}

void UninstallPage::scan_installed_programs() {
  sizes_shown = 0;
  QM.Visible(true);
  program_files_dir = find_program_files_dir();
  ignore_errors([&] { List1.Clear(); });
  read_installed_programs();
  ignore_errors([&] { List1.Clear(); });
  show_program_rows(List1, merge_memory_file(language_flag));
  // Back to where the user was: a selection scrolls the list there.
  if (last_selected_index != 0) {
    ignore_errors([&] { List1.Selected(last_selected_index - 1, true); });
    ignore_errors([&] { List1.Selected(last_selected_index - 1, false); });
  }
}

void UninstallPage::PIE_Click() {
  sizes_shown = static_cast<int16_t>(65535);
  QM.Visible(false);
  lupe.Visible(false);
  // Only the first 300 records are ever measured.
  for (int i = 1; i <= 300 && !program_table[i].name.empty(); ++i) {
    program_record& r = program_table[i];
    if (r.folder.empty() || !file_system().FolderExists(r.folder)) continue;
    do_events();
    Folder(r.folder).Size(r.size);
    do_events();
  }
  List1.Clear();
  {
    ListBox::Batch batch(List1);
    for (int i = 1; i <= 300 && !program_table[i].name.empty(); ++i) {
      program_record& r = program_table[i];
      if (r.size != 0)
        List1.AddItem(r.name + " (" + form_.spatiuu(r.size) + ")");
      else
        List1.AddItem(r.name + "(?)");
    }
  }
  lupe.Visible(true);
}

void UninstallPage::List1_Click() {
  if (List1.SelCount() >= 2) {
    talpa.Visible(true);
    QM.Visible(false);
    PIE.Visible(false);
  } else {
    talpa.Visible(false);
    PIE.Visible(true);
    QM.Visible(sizes_shown == 0);
  }
  form_.tip_once(
      "SEARChtip",
      english() ? "You can easily search for an item by pressing CTRL+F and typing at least 3 "
                  "letters from the app's name.If you found it/them press ENTER to uninstall "
                  "it/them.\r\nPress CTRL+F to hide the search window!"
                : "Puteti cu usurinta sa cautati o aplicatie apasand CTRL+F si tastand cel putin "
                  "3 litere din numele acesteia.Daca ati gasit-o apasati ENTER pentru "
                  "dezinstalare.\r\nPentru a ascunde fereastra de cautare apasati din nou CTRL+F");
}

void UninstallPage::List1_DblClick() {
  const int row = List1.ListIndex();
  if (row >= 0) List1.Selected(row, true);
  form_.del_Click();
}

void UninstallPage::List1_KeyDown(int& key, int shift) {
  if (key == 46) {
    form_.del_Click();
  } else if (key == 70 && shift == 2) {
    if (!search.Visible()) {
      form_.search_target = 1;
      search.Visible(true);
      Text6.Text("");
      Text6.SetFocus();
    } else {
      search.Visible(false);
    }
  }
}

void UninstallPage::talpa_Click() {
  const bool on = static_cast<uint16_t>(sequential_uninstall) < 65535;
  sequential_uninstall = on ? static_cast<int16_t>(65535) : 0;
  talpa.LoadPicture(on ? "PICIOR_SUS" : "PICIOR_JOS");
  form_.tip_once(
      "talpatip",
      english()
          ? "When the foot is filled that means the uninstaller programs will be launched on at "
            "a time (after the previus has finished).Note that in this mode if the unistaller "
            "leaves any files in application's folder it was supposed to uninstall Wellharrower "
            "will ask you if you want to delete the folder!"
          : "Cand talpa este colorata atunci programele de dezinstalre vor fi lansate pe rand "
            "(dupa ce precedentul s-a incheiat).In acest mod daca programul de dezinstalare nu "
            "sterge foate fisierele din directorul aplicatiei ce trebuia dezinstalata,"
            "Wellharrower va va intreba daca doriti sa stergeti acest director!");
}

void UninstallPage::delfolder_Click() {
  std::string text;
  clipboard_get_text(text, form_.hwnd());
  if (!file_system().FolderExists(text)) {
    msg_box(english() ? "There is no folder path in clipboard!"
                      : "Nu exista calea nici unui director in memorie(clipboard).",
            MB_ICONSTOP);
    return;
  }
  if (file_system().DeleteFolder(text, true) != 0) {
    msg_box(english() ? "Error deleting folder!" : "Eroare la stergere!", MB_ICONSTOP);
    return;
  }
  msg_box(english() ? "The folder " + text + " has been deleted."
                    : "Directorul " + text + " a fost sters.",
          MB_ICONINFORMATION);
}

void UninstallPage::delfolder_MouseMove(int, int, int, int) {
  form_.tip_once(
      "Xfoldertip",
      english()
          ? "When unistalling a program the uninstaller may report that not all files were "
            "deleted and  will show you a path.You select and copy this path and press this "
            "button!\r\n(When unistalling multiple programs in sequence Wellharrower will "
            "automatically check if there are any files left and will ask for your permission "
            "to delete them!)"
          : "Cand dezinstalati un program,programul de dezinstalare poate raporta ca nu a sters "
            "toate fisierele.In aces caz selectati calea afisata,o copiati si apoi apasati pe "
            "acest buton.\r\n(Cand dezinstalati programe 'pe rand' Wellharrower va verifica "
            "automat daca au mai ramas fisiere si va cere permisiunea de a le sterge)");
}

int UninstallPage::ask_great_software() {
  const int answer =
      msg_box(english() ? "Are you sure you want to uninstall such a great software?"
                        : "Sunteti sigur ca vreti sa dezinstalati acest program grozav?",
              MB_YESNO | MB_ICONEXCLAMATION);
  if (mm) mm(std::to_string(answer));
  return answer;
}

void UninstallPage::del_block() {
  int j = 0;  // with no match the record of the row before stands
  for (int i = 0; i < List1.ListCount(); ++i) {
    if (!List1.Selected(i)) continue;
    last_selected_index = static_cast<int16_t>(i);
    // Containment, not equality: the row may carry the new-entry mark.
    const std::string row = List1.List(i);
    for (int k = 1; k <= program_count; ++k) {
      if (k > program_table_size) raise(rt_subscript);
      if (holds(row, program_table[k].name)) {
        j = k;
        break;
      }
    }
    const program_record r = program_table[j];
    try {
      {
        ClipboardLock lock(form_.hwnd());
        empty_clipboard();
      }
      check(clipboard_set_text(r.folder, form_.hwnd()));

      if (holds(r.uninstall, "Wellharrower")) {
        if (ask_great_software() == IDNO) {
          msg_box(english() ? "Good choice!" : "Buna alegere!", MB_ICONEXCLAMATION);
          return;
        }
        start_program(r.uninstall, SW_SHOWNORMAL);
        end_program();
      }

      const bool in_sequence = List1.SelCount() >= 2 && sequential_uninstall != 0;
      if (in_sequence)
        run_and_wait(r.uninstall);
      else
        start_program(r.uninstall, SW_SHOWNORMAL);

      if (in_sequence && file_system().FolderExists(r.folder) && !r.folder.empty() &&
          !holds(short_path(ucase(r.folder)), short_path(ucase(environment_variable("WinDir"))))) {
        const int answer = msg_box(
            english() ? "The folder " + r.folder + " is not empty.Would  you like to delete it?"
                      : "Directorul " + r.folder + " nu este gol!.Vreti sa-l stergeti?",
            MB_YESNO | MB_ICONEXCLAMATION);
        if (answer == IDYES) check(file_system().DeleteFolder(r.folder, true));
      }
    } catch (const RuntimeError&) {
      // The uninstaller could not be started: the entry goes, in the view it
      // came from, and the list heals.
      reg_delete_key(HKEY_LOCAL_MACHINE, std::string(uninstall_key_path) + "\\" + r.key, r.view);
      scan_installed_programs();
      return;
    }
  }
  scan_installed_programs();
  List1.SetFocus();
}

void UninstallPage::uninstall_dropped(std::string path) {
  if (ucase(path.size() >= 3 ? path.substr(path.size() - 3) : path) == "LNK")
    path = read_shortcut_target(path);
  int answer = 0;
  if (holds(path, "Wellharrower")) {
    answer = ask_great_software();
    if (answer == IDNO) return;
  }
  FileSystemObject& fso = file_system();
  const std::string file = path;
  path = fso.GetParentFolderName(file);
  scan_installed_programs();

  const std::string here = ucase(short_path(path));
  bool found = false;
  for (int i = 1; i <= program_count && i <= program_table_size; ++i) {
    if (ucase(short_path(program_table[i].folder)) != here) continue;
    ignore_errors([&] { start_program(program_table[i].uninstall, SW_SHOWNORMAL); });
    if (answer == IDYES) end_program();
    return;
  }

  // Both loops run to cmdline_path_count, which the scan has just set to 0.
  VersionStrings version;
  const bool has_version = file_version_info(file, version) == 1;
  if (has_version) {
    for (int i = 1; i <= cmdline_path_count; ++i) {
      if (ucase(program_table[i].name) != ucase(version[6])) continue;
      found = true;
      ignore_errors([&] { start_program(program_table[i].uninstall, SW_SHOWNORMAL); });
    }
  }
  if (!found || !has_version) {
    const std::string base = strip_spaces(ucase(fso.GetBaseName(file)));
    for (int i = 1; i <= cmdline_path_count; ++i) {
      if (!holds(strip_spaces(ucase(program_table[i].name)), base)) continue;
      found = true;
      ignore_errors([&] { start_program(program_table[i].uninstall, SW_SHOWNORMAL); });
    }
  }
  if (!found) ignore_errors([&] { start_program(path + "\\uninstall.exe", SW_SHOWMINIMIZED); });
}

}  // namespace wh
