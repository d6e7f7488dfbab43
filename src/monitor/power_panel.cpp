#include "monitor/power_panel.h"

#include <cstdio>

#include "core/globals.h"
#include "core/settings.h"
#include "core/text.h"
#include "monitor/select_folder.h"

namespace wh {

namespace {
const COLORREF time_color = RGB(0, 0, 0);
const COLORREF taken_color = RGB(200, 0, 0);  // the time is armed

std::string two_digits(int n) {
  char buf[8];
  std::snprintf(buf, sizeof buf, "%02d", n);
  return buf;
}

bool english() { return language_flag == 1; }

// Digits and the editing keys (Backspace, and Ctrl+C, V, X, Z) get through.
void digits_only(int& ascii) {
  const bool editing = ascii == 8 || ascii == 3 || ascii == 22 || ascii == 24 || ascii == 26;
  if (!editing && (ascii < '0' || ascii > '9')) ascii = 0;
}

Place in_panel(Frame& panel, int left, int top, int width, int height) {
  return Place{left, top, width, height, &panel};
}
}  // namespace

PowerPanel::PowerPanel(MainForm& form)
    : shut_blue(form.add<ImageButton>("shut_blue", at(skin::shut))),
      shut_red(form.add<ImageButton>("shut_red", at(skin::shut))),
      Image32(form.add<ImageButton>("Image32", at(skin::Image32))),
      Frame17(form.add<Frame>("Frame17", at(skin::Frame17), "Shutdown PC")),
      Option12{&form.add<OptionButton>("Option12(0)", in_panel(Frame17, 10, 22, 220, 20), "At this time"),
               &form.add<OptionButton>("Option12(1)", in_panel(Frame17, 10, 74, 220, 20),
                                       "When all downloads are finished")},
      hh(form.add<TextBox>("hh", in_panel(Frame17, 30, 46, 28, 22))),
      colon(form.add<Label>("colon", in_panel(Frame17, 60, 48, 8, 18), ":")),
      mm(form.add<TextBox>("mm", in_panel(Frame17, 70, 46, 28, 22))),
      Image15(form.add<ImageButton>("Image15", in_panel(Frame17, 30, 100, 64, 30))),
      negru(form.add<Label>("negru", in_panel(Frame17, 140, 104, 90, 24), "Activate",
                            Label::Options{.alignment = center, .word_wrap = false})),
      color(form.add<Label>("color", in_panel(Frame17, 140, 104, 90, 24), "Deactivate",
                            Label::Options{.alignment = center, .word_wrap = false})),
      close(form.add<Label>("close_power", in_panel(Frame17, 218, 2, 16, 16), "x",
                            Label::Options{.alignment = center, .word_wrap = false})),
      form_(form) {
  shut_blue.LoadPicture("SHUT_BLUE");
  shut_red.LoadPicture("SHUT_RED");
  Image32.LoadPicture("ARMED");
  Image15.LoadPicture("FOLDERS");
  shut_red.Visible(false);
  Image32.Visible(false);
  Frame17.Visible(false);
  color.Visible(false);

  Frame17.BackColor(skin::well_color);
  Frame17.ForeColor(skin::text_color);
  for (Control* c : std::initializer_list<Control*>{Option12[0], Option12[1], &colon, &close}) {
    c->BackColor(skin::well_color);
    c->ForeColor(skin::text_color);
  }
  for (Label* button : {&negru, &color}) {
    button->BackColor(skin::body_color);
    button->ForeColor(skin::accent_color);
  }
  for (TextBox* t : {&hh, &mm}) t->MaxLength(2);

  shut_red.MouseDown = [this](int b, int s, int x, int y) { shut_red_MouseDown(b, s, x, y); };
  Image32.MouseDown = [this](int b, int s, int x, int y) { Image32_MouseDown(b, s, x, y); };
  shut_blue.MouseMove = [this](int b, int s, int x, int y) { shut_blue_MouseMove(b, s, x, y); };
  form.Autoshutdown.Tick = [this] { Autoshutdown_Timer(); };
  negru.Click = [this] { negru_Click(); };
  color.Click = [this] { color_Click(); };
  close.Click = [this] { Frame17.Visible(false); };
  hh.Change = [this] { hh_Change(); };
  mm.Change = [this] { mm_Change(); };
  hh.KeyPress = [this](int& a) { hh_KeyPress(a); };
  mm.KeyPress = [this](int& a) { mm_KeyPress(a); };
  Option12[0]->Click = [this] { Option12_Click(0); };
  Option12[1]->Click = [this] { Option12_Click(1); };
  Image15.Click = [this] { Image15_Click(); };
  Image15.MouseMove = [this](int b, int s, int x, int y) { Image15_MouseMove(b, s, x, y); };
  negru.MouseMove = [this](int, int, int, int) {
    form_.show_help("ACT5", english() ? std::vector<std::string>{"  Activate ", "    autoshutdown"}
                                      : std::vector<std::string>{"  Activeaza ", "  oprirea automata"});
  };
  color.MouseMove = [this](int, int, int, int) {
    form_.show_help("XXXX", english()
                                ? std::vector<std::string>{"  Deactivate ", "    autoshutdown"}
                                : std::vector<std::string>{"  Dezactiveaza ", "  oprirea automata"});
  };
  Option12[1]->MouseMove = [this](int, int, int, int) {
    form_.show_help("LADL", english() ? std::vector<std::string>{"Shutdown PC when",
                                                                 " all downloads are", "   finished"}
                                      : std::vector<std::string>{"Opreste PC-ul cand",
                                                                 " toate download-", " urile s-au terminat"});
  };
  Option12[0]->MouseMove = [this](int, int, int, int) {
    form_.show_help("LATIMP", english() ? std::vector<std::string>{"Shutdown PC at", "  this time"}
                                        : std::vector<std::string>{"Opreste PC-ul la", "  aceasta ora"});
  };
}

PowerPanel::~PowerPanel() = default;

void PowerPanel::power_button(int button) {
  if (button == 1) {
    schedule.power_off();
    return;
  }
  Frame17.Visible(true);
  Frame17.ZOrder(0);
  if (!schedule.shutdown_armed) {
    normal_time_color();
    const ClockTime now = clock_now();
    hh.Text(two_digits(now.hour));
    mm.Text(two_digits(now.minute));
  }
}

void PowerPanel::shut_red_MouseDown(int button, int, int, int) { power_button(button); }
void PowerPanel::Image32_MouseDown(int button, int, int, int) { power_button(button); }

void PowerPanel::shut_blue_MouseMove(int, int, int, int) {
  shut_red.Visible(true);
  shut_blue.Visible(false);
  form_.show_help("SHUTBLUE", english() ? std::vector<std::string>{"Power off the PC", " left clk: now",
                                                                   " right clk: later"}
                                        : std::vector<std::string>{"Opreste PC-ul", " click stg: acum",
                                                                   " click dr: mai tarziu"});
  if (val(setting("BLAStip")) != 0) return;
  save_setting("BLAStip", "1");
  form_.quick_tip(
      english() ? "If you left click this button,the PC will shutdown in a matter of seconds,so "
                  "please be sure to save all your work!\r\nIf you right click this button you can "
                  "set your PC to automatically shutdown at a specific time or when all downloads "
                  "are complete!"
                : "Daca faceti click stanga pe acest buton, PC-ul se va opri in cateva secunde "
                  "chiar daca aveti documente nesalvate!\r\nDaca faceti click dreapta,puteti "
                  "programa PC-ul sa se inchida automat la o anumita ora sau cand toate "
                  "download-urile s-au terminat!",
      false, true, "ATENTIE!!!");
}

void PowerPanel::surface() {
  shut_red.Visible(false);
  shut_blue.Visible(true);
}

void PowerPanel::hh_Change() {
  if (val(hh.Text()) >= 24) hh.Text(two_digits(clock_now().hour));
}

void PowerPanel::mm_Change() {
  if (val(mm.Text()) >= 60) mm.Text(two_digits(clock_now().minute));
}

void PowerPanel::hh_KeyPress(int& ascii) { digits_only(ascii); }
void PowerPanel::mm_KeyPress(int& ascii) { digits_only(ascii); }

void PowerPanel::Option12_Click(int index) { schedule.shutdown_mode = index == 1 ? 2 : 1; }

void PowerPanel::negru_Click() {
  if (schedule.shutdown_mode == 0) schedule.shutdown_mode = 1;
  // The records come from the folder window's load: until it has been
  // opened in this run there are none, whatever "Paths2" holds.
  if (schedule.shutdown_mode == 2 && schedule.upper_bound() == 0) {
    msg_box(english() ? "You must choose what folder(s) should be monitored!"
                      : "Trebuie sa alegeti ce director sa fie monitorizat!",
            MB_ICONSTOP);
    return;
  }
  negru.Visible(false);
  color.Visible(true);
  if (schedule.shutdown_mode == 2) {
    schedule.quiet_ticks = 0;
    form_.Autoshutdown.Enabled(true);
  } else if (schedule.shutdown_mode == 1) {
    schedule.shutdown_armed = -1;
    mm.ForeColor(taken_color);
    hh.ForeColor(taken_color);
  }
  Image32.Visible(true);
}

void PowerPanel::color_Click() {
  schedule.shutdown_armed = 0;
  form_.Autoshutdown.Enabled(false);
  Image32.Visible(false);
  color.Visible(false);
  negru.Visible(true);
  normal_time_color();
}

void PowerPanel::normal_time_color() {
  hh.ForeColor(time_color);
  mm.ForeColor(time_color);
}

void PowerPanel::Image15_Click() {
  // Made at its first use, and again after the user closed it.
  if (!select_folder_ || !select_folder_->loaded())
    select_folder_ = std::make_unique<SelectFolder>(form_, schedule);
  select_folder_->Form_Load();
  select_folder_->Show();
}

void PowerPanel::Image15_MouseMove(int, int, int, int) {
  if (val(setting("AUTOtip")) != 0) return;
  save_setting("AUTOtip", "1");
  form_.quick_tip(english() ? "The chosen folders will be monitored for disk space changes.If for "
                              "90 seconds ther is no change in their size , then surely the "
                              "downloads are finished and the PC will be turned OFF !"
                            : "Directoarele selectate vor fi monitorizate.Daca marimea lor nu va "
                              "suferi nici o modificare timp de 90 de secunde atunci este foarte "
                              "probabil ca download-ul s-a terminat iar PC-ul va fi oprit!",
                  false, true);
}

void PowerPanel::captions(int language) {
  const bool en = language == 1;
  Frame17.Caption(en ? "Shutdown PC" : "Oprire PC");
  Option12[0]->Caption(en ? "At this time" : "La aceasta ora");
  Option12[1]->Caption(en ? "When all downloads are finished" : "Cand download-urile s-au terminat");
  negru.Caption(en ? "Activate" : "Activeaza");
  color.Caption(en ? "Deactivate" : "Dezactiveaza");
}

}  // namespace wh
