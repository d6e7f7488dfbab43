#pragma once
// The power-off window: shown while the machine shuts down, and once at the
// 45th start with a request for appreciation and its three buttons (web
// page, mail, postal address), each of which closes it.
#include "ui/ui.h"

namespace wh {

class Poweroff : public Form {
public:
  Poweroff();

  Label& Label3;
  ImageButton& md;  // the author's web page
  ImageButton& sm;  // a mail to the author
  ImageButton& sp;  // the postal address

  void md_Click();
  void sm_Click();
  void sp_Click();
};

// Loaded on first use.
Poweroff& poweroff();
bool poweroff_loaded();
void poweroff_unload();

}  // namespace wh
