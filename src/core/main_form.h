#pragma once
// What every section shares of the main window: the skin's buttons, the
// action buttons, the LCD panel, the progress bars, the wait and tip panels,
// the timers and the program's public variables. The pages hold a MainForm&;
// the form that builds them (form/mainu) fills in the few calls that go up:
// the section entries, the action buttons and the language switch.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/skin_layout.h"
#include "display/lcd_display.h"
#include "ui/ui.h"

namespace wh {

// Controls are placed by the skin's rectangles.
inline Place at(const skin::Rect& r) { return Place{r.left, r.top, r.width, r.height}; }
// The working area below the section buttons: every section's page.
inline Place page_place() { return at(skin::content); }
// Where the small extras of a section sit, beside the action buttons.
inline Place extra_place(int index) { return at(skin::extras[index]); }

class MainForm : public Form {
public:
  explicit MainForm(const FormOptions& options);

  // --- public variables the sections read and set
  std::string lighton = "MAINU";  // hover key of what the panel describes
  bool displaytips = false;
  bool restart = false;  // "start" on the command line
  std::string emini;     // "X": back to the tray after a restart
  bool reface = false;
  bool freeing = false;
  bool scanningdupes = false;
  double totalwaist = 0;
  int restore_type = 0;   // 1 registry backups listed, 2 service backups
  uint8_t search_target = 0;  // 1 the search box serves List1, 2 the start-up lists
  uint8_t startup_tab = 0;    // the start-up list that gets the focus back (1..4)
  // Tick count at which the next timed RAM release is due; 0 unarmed.
  uint32_t next_free_tick = 0;
  std::string current_check_key;  // the junk category last under the mouse
  uint8_t viewer_mode = 0;         // what the trace viewer's list shows

  // --- the calls that go up to the form
  virtual void uninstall_Click() = 0;  // 1
  virtual void task_Click() = 0;       // 2
  virtual void splity_Click() = 0;     // 3
  virtual void dirinfo_Click() = 0;    // 4
  virtual void kila_Click() = 0;       // 5
  virtual void shred_Click() = 0;      // 6
  virtual void Image11_Click() = 0;    // 7, the Options page
  virtual void junk_Click() = 0;       // 8
  virtual void RUN_Click() = 0;        // 9
  virtual void dupy_Click() = 0;       // 10
  virtual void del_Click() = 0;
  virtual void delall_Click() = 0;
  virtual void ref_Click() = 0;
  virtual void load_settings() = 0;
  // Every caption of every section in a language (1 English, else Romanian).
  virtual void changelanguage(int language) = 0;
  // Hides the extras of every section, as each entry does first.
  virtual void hide_section_extras() = 0;

  // --- shared routines that live on the form
  std::string spatiuu(double& n);
  // Hides the highlight and puts the plain picture back on the action button
  // named "DEL", "DELALL" or "REF".
  void Clear(const std::string& lit);
  void spProg(int16_t percent);   // picProgress
  void spProg2(int16_t percent);  // the wait panel's bar, Picture13
  void spProg3(int16_t percent);  // the small bar, Picture16
  // The section's button lit, the eight others plain.
  void light_section_button(const ImageButton& lit);
  // Only this section's button plain (leaving for Options).
  void plain_section_button(const ImageButton& button);
  // A hover text, the shape of every button's: nothing while `key` is lit;
  // else the old one put out, the panel cleared and written, `key` lit.
  void show_help(const std::string& key, const std::vector<std::string>& lines);
  void action_buttons(bool del_shown, bool delall_shown, bool ref_shown);
  // The panel's heading is its design caption unless another is given.
  void quick_tip(const std::string& text, bool demonstration, bool close_button,
                 const std::string& heading = "    QUICK TIP");
  // The quick tip of a section, once a run and only while the tips are on.
  void section_tip(int section, const std::string& text, bool demonstration);

  // --- controls, placed on the skin by core/skin_layout.h
  Label& highlight;      // the hover shape behind a lit button
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
  ImageButton& Image11;
  ImageButton& del;
  ImageButton& delall;
  ImageButton& ref;
  PictureBox& picProgress;
  Frame& mark;  // the wait panel
  Label& Label39;
  PictureBox& Picture13;
  PictureBox& Picture16;
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

  // The nine section buttons with their lit ("SUS") and plain ("JOS")
  // pictures, top to bottom. Options has no pictures of its own.
  struct SectionButton {
    ImageButton& button;
    const char* lit;
    const char* plain;
  };
  const std::array<SectionButton, 9> section_buttons;

private:
  void draw_progress(PictureBox& box, int16_t percent, double scale);
  bool tip_shown_[11] = {};  // the once-per-run tip of a section
};

}  // namespace wh
