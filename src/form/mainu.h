#pragma once
// The main form: the program itself. It builds the shared controls and the
// ten section pages, wires the buttons, and keeps the section handlers and
// the three action buttons' chains of tests. Each branch is one line into a
// page, through a virtual forwarder that tests can override.
#include <cstdint>
#include <memory>
#include <string>

#include "cleaning/junk_page.h"
#include "core/main_form.h"
#include "core/options_page.h"
#include "filetools/disk_page.h"
#include "filetools/duplicates_page.h"
#include "filetools/floppy_page.h"
#include "filetools/shred_page.h"
#include "filetools/split_page.h"
#include "form/meniu.h"
#include "monitor/monitor.h"
#include "monitor/power_panel.h"
#include "monitor/ram_release.h"
#include "system/startup_page.h"
#include "system/task_page.h"
#include "system/uninstall_page.h"

namespace wh {

class Mainu : public MainForm {
public:
  Mainu();

  // --- start sequence (startup.cpp)
  void Form_Initialize();
  // The same for a given command tail (Form_Initialize reads the process's).
  void start(std::string tail);
  // The ordinary start after the single-instance test: pictures, skin and
  // load_settings. Public so that a form can be brought up in-process.
  void ordinary_start();
  void load_settings() override;
  bool analyze(std::string& text);
  void monitor_start();  // the system monitor's first run, last of the start

  // --- the window (window.cpp): dragged by its bare surface
  void Form_MouseDown(int button, int shift, int x, int y);
  void Form_MouseMove(int button, int shift, int x, int y);
  void Form_MouseUp(int button, int shift, int x, int y);
  void Image1_Click();                                        // close
  void Image10_MouseDown(int button, int shift, int x, int y);  // minimise, or to the tray
  // The tray icon's messages: the real one in X.
  void Picture4_MouseMove(int button, int shift, int x, int y);
  // The tray menu's form, made and loaded at the first need.
  Meniu& meniu();
  bool meniu_loaded() const { return meniu_ != nullptr; }

  // --- sections (sections.cpp): one entry handler each
  void uninstall_Click() override;  // 1
  void task_Click() override;       // 2
  void splity_Click() override;     // 3
  void dirinfo_Click() override;    // 4
  void kila_Click() override;       // 5
  void shred_Click() override;      // 6
  void Image11_Click() override;    // 7, the Options page
  void junk_Click() override;       // 8
  void RUN_Click() override;        // 9
  void dupy_Click() override;       // 10
  void hide_section_extras() override;
  void changelanguage(int language) override;
  // --- the action buttons (actions.cpp)
  void del_Click() override;
  void delall_Click() override;
  void ref_Click() override;

  // --- the forwarders of the chains, one line each into a page
  virtual void del_duplicates();     // 10
  virtual void del_startup_items();  // 9
  virtual void del_junk();           // 8: ticked categories, then plug-ins
  virtual void del_uninstall();      // 1
  virtual void del_tasks();          // 2
  virtual void del_split();          // 3
  virtual void del_disk_explorer();  // 4
  virtual void del_floppy();         // 5
  virtual void del_shred();          // 6
  virtual void delall_tasks();
  virtual void delall_junk();
  virtual void ref_startup();
  virtual void ref_junk();
  virtual void ref_uninstall();
  virtual void ref_tasks();
  virtual void ref_disk_explorer();
  virtual void ref_split();
  virtual void ref_floppy();
  virtual void ref_shred();

  // Whether the disk explorer holds the root listing of `path`'s drive among
  // its first `count` cached drives.
  bool driveexists(const std::string& path, int count) const {
    return disk_page.driveexists(path, count);
  }

  // --- the quick tip's demonstration (tip_demo.cpp)
  void Command1_Click();  // starts the glide
  void Timer5_Timer();    // its next frame

  // Panels that two sections share.
  Frame& search;  // sections 1 and 9
  Frame& frame1;  // sections 2 and 8
  TextBox& Text6;  // the search text, in `search`

  // --- the search box (search.cpp): it serves List1 or the start-up lists
  void Text6_Change();
  void Text6_KeyPress(int& ascii);
  void Text6_KeyDown(int& key, int shift);
  PictureBox& Picture4;  // owns the tray icon, hidden
  // Hidden lists that several sections point at their own places.
  DriveListBox& Drive1;
  FileListBox& k1;

  // The sections, in their order.
  UninstallPage uninstall_page;
  TaskPage task_page;
  SplitPage split_page;
  DiskPage disk_page;
  FloppyPage floppy_page;
  ShredPage shred_page;
  OptionsPage options;
  JunkPage junk_page;
  StartupPage startup_page;
  DuplicatesPage duplicates_page;
  // The monitor and its RAM release, on the frog of section 2 and the
  // Options page's amounts.
  RamRelease ram;
  SystemMonitor monitor;
  // The power button and the scheduled power-off.
  PowerPanel power;

private:
  void start_with_paths(const std::string& tail);
  void apply_skin();
public:
  void Timer3_Timer();

private:
  void show_poweroff_once();
  void enter_start_section();  // by Combo1's text, the stored "mod"

  std::unique_ptr<Meniu> meniu_;
  uint8_t load_count_ = 0;       // calls of load_settings
  uint8_t demo_frame_ = 0;       // the demonstration's frames shown so far
  int drag_x_ = 0, drag_y_ = 0;  // where the surface was pressed
};

// The one main form, made on first use.
Mainu& mainu();
// Whether it exists now (without making it).
bool mainu_exists();
// Drops the form (Form_Unload); the next mainu() makes a new one.
void mainu_clear();

}  // namespace wh
