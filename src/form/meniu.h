#pragma once
// The tray menu's form. It is never shown: it carries the two menus, fili
// (Romanian) and fili2 (English), and the picture that owns the clean-up
// icon. The main form makes it at the first right click on the tray icon.
#include <array>

#include "ui/ui.h"

namespace wh {

class Mainu;

class Meniu : public Form {
public:
  explicit Meniu(Mainu& form);
  // Every line of both menus gets the picture of its place.
  void Form_Load();

  Menu fili;
  Menu fili2;
  std::array<Picture, 17> Image1;  // the lines' pictures, line by line
  PictureBox& Picture1;            // owns the clean-up icon
  int loads = 0;                   // times Form_Load ran

  // Romanian items; the English ones forward to these but for the last rows.
  void uninst_Click();
  void curata_Click();
  void mem_Click();
  void split_Click();
  void killa_Click();
  void dirinfo_Click();
  void wipe_Click();
  void closeall_Click();
  void freeram_Click();
  void opt_Click();  // the tray icon stays
  void end_Click();
  // English items with a body of their own.
  void STP_Click();
  void harrowalljunk_Click();
  void closePC2_Click();
  void opt2_Click();  // the tray icon goes
  void close13_Click();

private:
  void wire(Menu& menu, const char* name, const char* caption, void (Meniu::*handler)());
  void show();  // the main window back from the tray
  void show_section(void (Mainu::*entry)());

  Mainu& form_;
};

}  // namespace wh
