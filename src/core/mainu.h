#pragma once
// The main form: the program itself. It owns the shared state, the controls
// of every section and the handlers; routines elsewhere reach it through
// mainu().
#include <cstdint>
#include <memory>
#include <string>

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

  // --- start sequence
  void Form_Initialize();
  // The same for a given command tail (Form_Initialize reads the process's).
  void start(std::string tail);
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

  // --- sections
  void junk_Click();

  // --- controls (their final place and look come with the skin)
  Label& highlight;  // the hover shape behind a lit button
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

  Timer& Timer1;
  Timer& Timer2;
  Timer& Timer3;
  Timer& Timer5;
  Timer& timerul;
  Timer& closing;
  Timer& Autoshutdown;

private:
  void ordinary_start();
  void start_with_paths(const std::string& tail);
  void apply_skin();
  void draw_progress(PictureBox& box, int16_t percent, double scale);
  void Timer3_Timer();

  uint8_t load_count_ = 0;  // calls of load_settings
};

// The one main form, made on first use.
Mainu& mainu();
// Whether it exists now (without making it).
bool mainu_exists();
// Drops the form (Form_Unload); the next mainu() makes a new one.
void mainu_clear();

}  // namespace wh
