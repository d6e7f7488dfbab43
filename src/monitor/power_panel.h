#pragma once
// The power button and the panel of the scheduled power-off. A left click on
// the button powers off at once; any other button opens `Frame17`, where the
// user sets a time (`hh`, `mm`) or picks the download watch and arms it with
// `negru` or disarms it with `color`. `Image32` marks that it is armed and is
// a power button too.
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "core/main_form.h"
#include "monitor/power_off.h"

namespace wh {

class SelectFolder;

class PowerPanel {
public:
  explicit PowerPanel(MainForm& form);
  ~PowerPanel();

  ImageButton& shut_blue;  // plain
  ImageButton& shut_red;   // lit, under the mouse
  ImageButton& Image32;    // the armed mark
  Frame& Frame17;
  std::array<OptionButton*, 2> Option12;  // 0 at a time, 1 when downloads end
  TextBox& hh;
  Label& colon;
  TextBox& mm;
  ImageButton& Image15;  // the watched folders
  Label& negru;          // arm
  Label& color;          // disarm
  Label& close;          // hides the panel

  PowerSchedule schedule;

  void shut_red_MouseDown(int button, int shift, int x, int y);
  void Image32_MouseDown(int button, int shift, int x, int y);
  void shut_blue_MouseMove(int button, int shift, int x, int y);
  void negru_Click();
  void color_Click();
  void hh_Change();
  void mm_Change();
  void hh_KeyPress(int& ascii);
  void mm_KeyPress(int& ascii);
  void Option12_Click(int index);
  void Image15_Click();
  void Image15_MouseMove(int button, int shift, int x, int y);

  // Timer3's first step: the set time reached.
  void time_check() { schedule.time_check(hh.Text(), mm.Text()); }
  void Autoshutdown_Timer() { schedule.Autoshutdown_Timer(); }
  // The mouse on the form's bare surface: the button goes back to plain.
  void surface();
  void captions(int language);

  // The folder list window, made on first use; null until then.
  SelectFolder* select_folder() const { return select_folder_.get(); }

private:
  void power_button(int button);
  void normal_time_color();

  MainForm& form_;
  std::unique_ptr<SelectFolder> select_folder_;
};

}  // namespace wh
