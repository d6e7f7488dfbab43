#pragma once
// The main form: the program itself. It owns the shared state, the controls
// of every section and the handlers; routines elsewhere reach it through
// mainu().
#include <cstdint>
#include <memory>
#include <string>

#include "core/options_page.h"
#include "display/lcd_display.h"
#include "filetools/shred_page.h"
#include "ui/ui.h"

namespace wh {

class Mainu : public Form {
public:
  Mainu();

  // --- public variables the other parts read and set
  std::string lighton = "MAINU";  // hover key of what the panel describes
  bool displaytips = false;
  bool restart = false;  // "start" on the command line
  std::string emini;     // "X": back to the tray after a restart
  bool reface = false;
  bool freeing = false;
  bool scanningdupes = false;
  double totalwaist = 0;
  int restore_type = 0;
  // Tick count at which the next timed RAM release is due; 0 unarmed.
  uint32_t next_free_tick = 0;
  std::string current_check_key;  // the junk category last under the mouse
  uint8_t viewer_mode = 0;         // what the trace viewer's list shows

  // --- start sequence
  void Form_Initialize();
  // The same for a given command tail (Form_Initialize reads the process's).
  void start(std::string tail);
  // The ordinary start after the single-instance test: pictures, skin and
  // load_settings. Public so that a form can be brought up in-process.
  void ordinary_start();
  void load_settings();
  bool analyze(std::string& text);

  // --- shared routines that live on the form
  std::string spatiuu(double& n);
  // Hides the highlight and puts the plain picture back on the action button
  // named "DEL", "DELALL" or "REF".
  void Clear(const std::string& lit);
  void spProg(int16_t percent);
  void spProg2(int16_t percent);
  void spProg3(int16_t percent);

  // --- the window (window.cpp): dragged by its bare surface
  void Form_MouseDown(int button, int shift, int x, int y);
  void Form_MouseMove(int button, int shift, int x, int y);
  void Form_MouseUp(int button, int shift, int x, int y);
  void Image1_Click();                                         // close
  void Image10_MouseUp(int button, int shift, int x, int y);  // minimise, or to the tray
  void famare();  // the trace panel over the whole working area
  void famic();   // the trace panel beside the categories

  // --- sections (sections.cpp): one entry handler each
  void uninstall_Click();  // 1
  void task_Click();       // 2
  void splity_Click();     // 3
  void dirinfo_Click();    // 4
  void kila_Click();       // 5
  void shred_Click();      // 6
  void Image11_Click();    // 7, the Options page
  void junk_Click();       // 8
  void RUN_Click();        // 9
  void dupy_Click();       // 10
  // --- the action buttons (actions.cpp)
  void del_Click();
  void delall_Click();
  void ref_Click();

  // --- blocks of the sections whose content comes with their own parts;
  // empty for now (later.cpp). Virtual, so that tests can see them reached.
  // Entries:
  virtual void scan_installed_programs();  // section 1
  virtual void afis_tasks();               // section 2: rebuilds List2
  virtual void Label1_Click();             // section 3: the split tab
  virtual void Drive3_Change();            // section 4
  virtual void collect_trace_paths();      // section 8
  virtual void junk_scan();
  virtual void scan_startup();             // section 9
  virtual void load_search_paths();        // section 10: List4 from "Paths"
  // The del blocks, one per section:
  virtual void del_duplicates();     // 10
  virtual void del_startup_items();  // 9
  virtual void del_junk();           // 8: ticked categories, then plug-ins
  virtual void del_uninstall();      // 1
  virtual void del_tasks();          // 2
  virtual void del_split();          // 3
  virtual void del_disk_explorer();  // 4
  virtual void del_floppy();         // 5
  virtual void del_shred();          // 6
  // Others:
  virtual void killem(uint32_t pid, const std::string& name);
  virtual void lupa_Click();  // the trace viewer, by current_check_key
  virtual void afisdirs(const std::string& path, bool select_saved);  // section 4's listing
  void Command1_Click();      // the quick tip's demonstration
  bool scan_plugins();        // true when a plug-in was found
  void monitor_start();       // the system monitor's first run

  // --- controls, placed on the skin by core/skin_layout.h
  Label& highlight;  // the hover shape behind a lit button
  ImageButton& Image1;   // close, drawn on the skin
  ImageButton& Image10;  // minimise, drawn on the skin
  ImageButton& uninstall;
  ImageButton& task;
  ImageButton& splity;
  ImageButton& dirinfo;
  ImageButton& kila;
  ImageButton& shred;
  ImageButton& junk;
  ImageButton& RUN;
  ImageButton& dupy;
  ImageButton& talpa;
  ImageButton& Image11;
  ImageButton& del;
  ImageButton& delall;
  ImageButton& ref;
  PictureBox& picProgress;
  Frame& mark;  // the wait panel of the shred section
  Label& Label39;
  PictureBox& Picture13;
  PictureBox& Picture16;
  ImageButton& Image22;  // holders of the two showplugins pictures
  ImageButton& Image23;

  // Section 1: the programs list and its extras
  ListBox& List1;
  ImageButton& PIE;
  ImageButton& QM;
  ImageButton& lupe;
  ImageButton& delfolder;
  Frame& search;
  // Section 2
  ListBox& List2;
  Frame& frame1;  // shown in sections 2 and 8
  ImageButton& frogsus;
  // Section 3
  Frame& splitbox;
  OptionButton& Option1;
  Label& Label1;
  DirListBox& dir1;
  FileListBox& File1;
  // Section 4
  Frame& Frame5;
  DriveListBox& Drive3;
  Label& back;  // the folder the disk explorer shows
  ListBox& list;
  ImageButton& explorer;
  // Section 5
  Frame& Frame6;
  DirListBox& Dir2;
  FileListBox& File2;
  // Section 6
  Frame& Frame8;
  Frame& Frame9;  // the passes
  OptionButton& Option5;
  OptionButton& Option6;
  OptionButton& Option7;
  DriveListBox& Drive4;
  DirListBox& Dir3;
  FileListBox& File3;
  Label& Label22;  // the target, followed by one blank
  // Section 8
  Frame& junk_form;
  CheckBox* check[19] = {};  // the categories, 1 to 18
  Label& ocupied;
  ListBox& pluginlist;
  ImageButton& showplugins;
  Frame& Frame15;  // the trace viewer
  PictureBox& Picture9;
  PictureBox& Picture7;
  ListBox& junk_files;
  // Section 9
  Frame& RUNframe;
  ListBox& run_reg;
  ImageButton& umb_up;  // element 0 of its array
  // Section 10
  Frame& finddups;
  PictureBox& Picture17;  // the results page
  // The quick-tip panel
  Frame& quicktip;
  Label& quicktiptext;
  Label& OKU;
  Label& Command1;

  Timer& Timer1;
  Timer& Timer2;
  Timer& Timer3;
  Timer& Timer5;
  Timer& timerul;
  Timer& closing;
  Timer& Autoshutdown;

  // The LCD panel: 20 columns, 5 rows.
  kaLCDDisplay& lcd;

  // Section 7; declared after the timers its handlers use.
  OptionsPage options;
  // Section 6; its controls are the ones above.
  ShredPage wellshred;

private:
  void start_with_paths(const std::string& tail);
  void apply_skin();
  void draw_progress(PictureBox& box, int16_t percent, double scale);
  void Timer3_Timer();
  // Section switching (sections.cpp).
  void hide_section_extras();
  void light_section_button(const ImageButton& lit);
  void section_tip(int section);
  void quick_tip(const std::string& text, bool demonstration, bool close_button);
  void show_poweroff_once();
  void enter_start_section();  // by Combo1's text, the stored "mod"

  uint8_t load_count_ = 0;     // calls of load_settings
  bool tip_shown_[11] = {};    // the once-per-run tip of a section
  int drag_x_ = 0, drag_y_ = 0;  // where the surface was pressed
};

// Harrow All in section 2 leaves a process row alone when, in upper case,
// it holds "KERNEL", "MPREXE", "EXPLORER.EXE" or the program's own exe name.
bool spared_by_harrow_all(const std::string& row, const std::string& own_exe);

// The one main form, made on first use.
Mainu& mainu();
// Whether it exists now (without making it).
bool mainu_exists();
// Drops the form (Form_Unload); the next mainu() makes a new one.
void mainu_clear();

}  // namespace wh
