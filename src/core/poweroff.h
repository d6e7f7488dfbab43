#pragma once
// The power-off window: shown while the machine shuts down, and once at the
// 45th start with a request for appreciation and its three buttons (web
// page, mail, postal address). Its look and addresses come with the skin.
#include "ui/ui.h"

namespace wh {

class Poweroff : public Form {
public:
  Poweroff();

  Label& Label3;
  ImageButton& md;  // the author's web page
  ImageButton& sm;  // a mail to the author
  ImageButton& sp;  // the postal address
};

// Loaded on first use.
Poweroff& poweroff();
bool poweroff_loaded();
void poweroff_unload();

}  // namespace wh
