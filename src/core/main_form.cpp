#include "core/main_form.h"

#include "core/paths.h"
#include "core/routines.h"

namespace wh {

namespace {
// The panel has its size from its properties, as a designer leaves them.
kaLCDDisplay& make_lcd(Form& form) {
  LcdPropertyBag bag;
  bag.WriteProperty("TotalCols", "20");
  bag.WriteProperty("TotalRows", "5");
  return *kaLCDDisplay::Create(form.hwnd(), skin::lcd.left, skin::lcd.top, 0, &bag);
}
}  // namespace

MainForm::MainForm(const FormOptions& options)
    : Form(options),
      highlight(add<Label>("highlight", Place{0, 0, 68, 52})),
      Image1(add<ImageButton>("Image1", at(skin::Image1))),
      Image10(add<ImageButton>("Image10", at(skin::Image10))),
      uninstall(add<ImageButton>("uninstall", at(skin::uninstall))),
      task(add<ImageButton>("task", at(skin::task))),
      splity(add<ImageButton>("splity", at(skin::splity))),
      dirinfo(add<ImageButton>("dirinfo", at(skin::dirinfo))),
      kila(add<ImageButton>("kila", at(skin::kila))),
      shred(add<ImageButton>("shred", at(skin::shred))),
      junk(add<ImageButton>("junk", at(skin::junk))),
      RUN(add<ImageButton>("RUN", at(skin::RUN))),
      dupy(add<ImageButton>("dupy", at(skin::dupy))),
      Image11(add<ImageButton>("Image11", at(skin::Image11))),
      del(add<ImageButton>("del", at(skin::del))),
      delall(add<ImageButton>("delall", at(skin::delall))),
      ref(add<ImageButton>("ref", at(skin::ref))),
      picProgress(add<PictureBox>("picProgress", at(skin::progress))),
      mark(add<Frame>("mark", at(skin::wait_panel), "Please wait...")),
      Label39(add<Label>("Label39", Place{12, 26, 356, 18, &mark})),
      Picture13(add<PictureBox>("Picture13", Place{12, 54, 356, 22, &mark})),
      Picture16(add<PictureBox>("Picture16", at(skin::progress_small))),
      quicktip(add<Frame>("quicktip", at(skin::tip_panel), "    QUICK TIP")),
      quicktiptext(add<Label>("quicktiptext", Place{8, 20, 304, 110, &quicktip})),
      OKU(add<Label>("OKU", Place{272, 140, 40, 20, &quicktip}, "OK")),
      Command1(add<Label>("Command1", Place{8, 140, 80, 20, &quicktip}, "show me")),
      Timer1(add_timer("Timer1", 4000, false)),
      Timer2(add_timer("Timer2", 400, false)),
      Timer3(add_timer("Timer3", 500, true)),
      Timer5(add_timer("Timer5", 1800, false)),
      timerul(add_timer("timerul", 4000, false)),
      closing(add_timer("closing", 900, false)),
      Autoshutdown(add_timer("Autoshutdown", 30000, false)),
      lcd(make_lcd(*this)),
      section_buttons{{{uninstall, "DEZ_SUS", "DEZ_JOS"},
                       {task, "TASK_SUS", "TASK_JOS"},
                       {splity, "SPLITSUS", "SPLITJOS"},
                       {dirinfo, "DIRINFO_SUS", "DIRINFO_JOS"},
                       {kila, "KILLA_SUS", "KILLA_JOS"},
                       {shred, "SHRED_SUS", "SHRED_JOS"},
                       {junk, "JUNK_SUS", "JUNK_JOS"},
                       {RUN, "RUN_SUS", "RUN_JOS"},
                       {dupy, "DUP_SUS", "DUP_JOS"}}} {
  highlight.Visible(false);
  mark.Visible(false);
  quicktip.Visible(false);
  OKU.Click = [this] { quicktip.Visible(false); };
  // The pictures as designed; the start and the sections change them.
  for (const SectionButton& b : section_buttons) b.button.LoadPicture(b.plain);
  del.LoadPicture("DELETE_JOS");
  delall.LoadPicture("DELETEALL_JOS");
  ref.LoadPicture("REFRESH_JOS");
  // The progress boxes sit on the dark skin.
  for (PictureBox* p : {&picProgress, &Picture16}) {
    p->BackColor(skin::well_color);
    p->ForeColor(skin::text_color);
    p->Cls();
  }
}

std::string MainForm::spatiuu(double& n) { return wh::spatiuu(n); }

void MainForm::Clear(const std::string& lit) {
  highlight.Visible(false);
  if (lit == "DEL")
    del.LoadPicture("DELETE_JOS");
  else if (lit == "DELALL")
    delall.LoadPicture("DELETEALL_JOS");
  else if (lit == "REF")
    ref.LoadPicture("REFRESH_JOS");
}

void MainForm::draw_progress(PictureBox& box, int16_t percent, double scale) {
  const int width = static_cast<int>(percent * scale + 30);
  box.Cls();
  box.FillRect(0, 0, width, box.ScaleHeight(), RGB(64, 160, 96));
  const std::string text = std::to_string(percent) + "%";
  box.PrintAt((box.ScaleWidth() - box.TextWidth(text)) / 2,
              (box.ScaleHeight() - box.TextHeight(text)) / 2, text);
  box.Refresh();
}

void MainForm::spProg(int16_t percent) { draw_progress(picProgress, percent, 3.3); }
void MainForm::spProg2(int16_t percent) { draw_progress(Picture13, percent, 3.3); }
void MainForm::spProg3(int16_t percent) { draw_progress(Picture16, percent, 1.6); }

void MainForm::light_section_button(const ImageButton& lit) {
  for (const SectionButton& b : section_buttons)
    b.button.LoadPicture(&b.button == &lit ? b.lit : b.plain);
}

void MainForm::plain_section_button(const ImageButton& button) {
  for (const SectionButton& b : section_buttons)
    if (&b.button == &button) b.button.LoadPicture(b.plain);
}

void MainForm::action_buttons(bool del_shown, bool delall_shown, bool ref_shown) {
  del.Visible(del_shown);
  delall.Visible(delall_shown);
  ref.Visible(ref_shown);
}

void MainForm::show_help(const std::string& key, const std::vector<std::string>& lines) {
  if (lighton == key) return;
  Clear(lighton);
  lcd.Clear();
  lcd.Mode(0);
  lcd.WriteSpeed(0);
  for (const std::string& line : lines) lcd.WriteText(line);
  lighton = key;
}

void MainForm::quick_tip(const std::string& text, bool demonstration, bool close_button,
                         const std::string& heading) {
  quicktip.Caption(heading);
  quicktip.Visible(true);
  Command1.Visible(demonstration);
  OKU.Visible(close_button);
  quicktiptext.Caption(text);
}

void MainForm::section_tip(int section, const std::string& text, bool demonstration) {
  if (!displaytips || tip_shown_[section]) return;
  tip_shown_[section] = true;
  quick_tip(text, demonstration, true);
}

}  // namespace wh
