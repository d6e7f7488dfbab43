// The section buttons. Each entry handler works alone: it returns when its
// section already shows (dirinfo_Click excepted), hides the other sections'
// extras, lights its button, sets ActiveSection and fills its lists. No
// error handling: a failed SetFocus (the window hidden in the tray) ends the
// handler there, and the caller decides.
#include "core/globals.h"
#include "core/later.h"
#include "core/mainu.h"
#include "core/settings.h"
#include "core/text.h"
#include "platform/rt_error.h"

namespace wh {

namespace {
clsApplicazioni& tasks() {
  if (!task_list) raise(rt_object_not_set);  // a start with paths makes none
  return *task_list;
}
}  // namespace

void Mainu::hide_section_extras() {
  for (Control* c : std::initializer_list<Control*>{
           &umb_up, &PIE, &QM, &lupe, &search, &showplugins, &explorer, &talpa, &delfolder,
           &frogsus, &frame1, &splitbox, &Frame5, &Frame6, &Frame8, &RUNframe, &junk_form,
           &finddups, &options.optiuni})
    c->Visible(false);
}

void Mainu::light_section_button(const ImageButton& lit) {
  struct Button {
    ImageButton& button;
    const char* lit;
    const char* plain;
  };
  for (const Button& b : {Button{uninstall, "DEZ_SUS", "DEZ_JOS"},
                          Button{task, "TASK_SUS", "TASK_JOS"},
                          Button{splity, "SPLITSUS", "SPLITJOS"},
                          Button{dirinfo, "DIRINFO_SUS", "DIRINFO_JOS"},
                          Button{kila, "KILLA_SUS", "KILLA_JOS"},
                          Button{shred, "SHRED_SUS", "SHRED_JOS"},
                          Button{junk, "JUNK_SUS", "JUNK_JOS"},
                          Button{RUN, "RUN_SUS", "RUN_JOS"},
                          Button{dupy, "DUP_SUS", "DUP_JOS"}})
    b.button.LoadPicture(&b.button == &lit ? b.lit : b.plain);
}

void Mainu::quick_tip(const std::string& text, bool demonstration, bool close_button) {
  quicktip.Visible(true);
  Command1.Visible(demonstration);
  OKU.Visible(close_button);
  quicktiptext.Caption(text);
}

// Once a run, while the tips are on (a first start): sections 1, 3 and 6.
void Mainu::section_tip(int section) {
  if (!displaytips || tip_shown_[section]) return;
  tip_shown_[section] = true;
  const bool en = language_flag == 1;
  switch (section) {
    case 1:
      quick_tip(en ? "YOU CAN EASILY UNINSTALL A PROGRAM STRAIGHT FROM YOUR DESKTOP BY DROPPING "
                     "ITS SHORTCUT OVER WELLHARROWER OR BY SELECTING WELLHARROW IN THE RIGHT "
                     "CLICK CONTEXT MENU IN EXPLORER"
                   : "PUTETI DEZINSTALA CU USURINTA UN PROGRAM DIRECT DE PE DESKTOP TRAGAND "
                     "SCURTATURA LUI PESTE WELLHARROWER SAU DAND CLICK DREAPTA SI ALEGAND "
                     "WELLHARROW DIN MENIUL CONTEXTUAL DIN EXPLORER",
                true, true);
      break;
    case 3:
      quick_tip(en ? "YOU CAN EASILY SPLIT A FILE STRAIGHT FROM YOUR DESKTOP BY DROPPING IT OVER "
                     "WELLHARROWER OR BY SELECTING WELLHARROW IN THE RIGHT CLICK CONTEXT MENU IN "
                     "EXPLORER"
                   : "PUTETI DESPICA CU USURINTA UN FISIER DIRECT DE PE DESKTOP TRAGAND-UL PESTE "
                     "WELLHARROWER SAU DAND CLICK DREAPTA SI ALEGAND WELLHARROW DIN MENIUL "
                     "CONTEXTUAL DIN EXPLORER",
                false, true);
      break;
    case 6:
      quick_tip(en ? "YOU CAN EASILY SHRED A FILE OR FOLDER STRAIGHT FROM YOUR DESKTOP BY "
                     "DROPPING IT OVER WELLHARROWER OR BY SELECTING WELLHARROW IN THE RIGHT CLICK "
                     "CONTEXT MENU IN EXPLORER"
                   : "PUTETI RADE CU USURINTA UN FISIER SAU FOLDER DIRECT DE PE DESKTOP "
                     "TRAGAND-UL PESTE INCONITA WELLHARROWER SAU DAND CLICK DREAPTA SI ALEGAND "
                     "WELLHARROW DIN MENIUL CONTEXTUAL DIN EXPLORER",
                true, true);
      break;
    default: break;
  }
}

void Mainu::uninstall_Click() {
  if (ActiveSection == 1) return;
  hide_section_extras();
  PIE.Visible(true);
  delfolder.Visible(true);
  light_section_button(uninstall);
  del.Visible(true);
  delall.Visible(false);
  ref.Visible(true);
  // The focus comes before the section number: from the tray this fails
  // and ActiveSection stays where it was.
  List1.SetFocus();
  ActiveSection = 1;
  scan_installed_programs();
  section_tip(1);
}

void Mainu::task_Click() {
  if (ActiveSection == 2) return;
  hide_section_extras();
  frame1.Visible(true);
  frogsus.Visible(true);
  light_section_button(task);
  ActiveSection = 2;
  del.Visible(true);
  delall.Visible(true);
  ref.Visible(true);
  afis_tasks();
  tasks().RefreshTaskList(hwnd(), true);
}

void Mainu::splity_Click() {
  if (ActiveSection == 3) return;
  ActiveSection = 3;
  hide_section_extras();
  splitbox.Visible(true);
  light_section_button(splity);
  del.Visible(true);
  delall.Visible(false);
  ref.Visible(true);
  Option1.Value(true);
  Label1_Click();
  section_tip(3);
}

void Mainu::dirinfo_Click() {
  // No test of the present section: the drive list is read again each time.
  hide_section_extras();
  Frame5.Visible(true);
  explorer.Visible(true);
  light_section_button(dirinfo);
  ActiveSection = 4;
  del.Visible(true);
  delall.Visible(false);
  ref.Visible(true);
  // A drive that is not ready must not stop the entry.
  ignore_errors([&] {
    Drive3.Refresh();
    if (list.ListCount() == 0) Drive3_Change();
  });
  Drive3.SetFocus();
}

void Mainu::kila_Click() {
  if (ActiveSection == 5) return;
  hide_section_extras();
  Frame6.Visible(true);
  light_section_button(kila);
  ActiveSection = 5;
  del.Visible(true);
  delall.Visible(false);
  ref.Visible(true);
}

void Mainu::shred_Click() {
  if (ActiveSection == 6) return;
  hide_section_extras();
  Frame8.Visible(true);
  light_section_button(shred);
  ActiveSection = 6;
  del.Visible(true);
  delall.Visible(false);
  ref.Visible(true);
  Option5.Value(true);  // back to three passes at each entry
  // The drive's first two characters: the list shows "c: [label]".
  Dir3.Path(Drive4.Drive().substr(0, 2));
  if (val(setting("shredtip")) == 0) {
    save_setting("shredtip", "1");
    quick_tip(language_flag == 1
                  ? " When you normally delete a file, the file isn't actually deleted. It is "
                    "only marked so that Windows know that the space occupied by it can be used "
                    "for storing other files.\r\nShredding is the process of overwriting data "
                    "from a file ,making the file unrecoverable for Date Recovery software."
                  : "Cand stergeti un fisier in Windows el nu este cu adevarat sters.Este doar "
                    "marcat astfel incat Windows-ul sa stie ca zona ocupata de acel fisier este "
                    "libera pentru scriere.\r\nRaderea este un proces prin care continutul unui "
                    "fisier este suprascris cu date aleatoare,facand-ul astfel imposibil de "
                    "recuperat de programele specializate.",
              false, false);
  }
  section_tip(6);
}

void Mainu::Image11_Click() {
  // Unlike the others it undoes only what the section it leaves put up.
  if (ActiveSection == 9) {
    search.Visible(false);
    umb_up.Visible(false);
    RUN.LoadPicture("RUN_JOS");
  } else if (ActiveSection == 1) {
    PIE.Visible(false);
    QM.Visible(false);
    lupe.Visible(false);
    delfolder.Visible(false);
    search.Visible(false);
    talpa.Visible(false);
    uninstall.LoadPicture("DEZ_JOS");
  } else if (ActiveSection == 2) {
    frogsus.Visible(false);
    task.LoadPicture("TASK_JOS");
  } else if (ActiveSection == 3) {
    splity.LoadPicture("SPLITJOS");
  } else if (ActiveSection == 4) {
    explorer.Visible(false);
    dirinfo.LoadPicture("DIRINFO_JOS");
  } else if (ActiveSection == 5) {
    kila.LoadPicture("KILLA_JOS");
  } else if (ActiveSection == 6) {
    shred.LoadPicture("SHRED_JOS");
  } else if (ActiveSection == 10) {
    finddups.Visible(false);
    dupy.LoadPicture("DUP_JOS");
  } else if (ActiveSection == 8) {
    showplugins.Visible(false);
    junk.LoadPicture("JUNK_JOS");
  }
  junk_form.Visible(false);
  options.optiuni.Visible(true);
  RUNframe.Visible(false);
  del.Visible(false);
  ref.Visible(false);
  ActiveSection = 7;

  ComboBox& combo = options.Combo1;
  combo.Clear();
  combo.Text(setting("mod"));
  // "Disk Space Explorer" here, "DirInfo" in the list of changelanguage;
  // it matches no start section.
  const char* const english[] = {"Uninstall programs", "JunkHarrower",        "TaskManager",
                                 "Split Files",        "Disk Space Explorer", "Wellformat",
                                 "Shred Files",        "StartUp Manager",     "Duplicate Harrower"};
  const char* const romanian[] = {"Dezinstalare programe", "Curatare hard disk", "TaskManager",
                                  "Despicare fisiere",     "DirInfo",            "Wellformat",
                                  "Radere fisiere",        "StartUp",
                                  "Gasire fisiere duplicat"};
  for (const char* name : language_flag == 1 ? english : romanian) combo.AddItem(name);
}

void Mainu::junk_Click() {
  if (ActiveSection == 8) return;
  hide_section_extras();
  junk_form.Visible(true);
  frame1.Visible(true);
  showplugins.Visible(true);
  light_section_button(junk);
  ActiveSection = 8;
  del.Visible(true);
  delall.Visible(true);
  ref.Visible(true);
  ocupied.Caption("0 bytes");
  collect_trace_paths();
  junk_scan();
}

void Mainu::RUN_Click() {
  if (ActiveSection == 9) return;
  hide_section_extras();
  RUNframe.Visible(true);
  umb_up.Visible(true);
  light_section_button(RUN);
  ActiveSection = 9;
  del.Visible(true);
  delall.Visible(false);
  ref.Visible(true);
  // The focus before the scan: from the tray the lists stay unfilled until
  // the button is pressed again.
  run_reg.SetFocus();
  scan_startup();
}

void Mainu::dupy_Click() {
  if (ActiveSection == 10) return;
  hide_section_extras();
  finddups.Visible(true);
  light_section_button(dupy);
  ActiveSection = 10;
  del.Visible(Picture17.Visible());  // only on the results page
  delall.Visible(false);
  ref.Visible(false);
  load_search_paths();
}

}  // namespace wh
