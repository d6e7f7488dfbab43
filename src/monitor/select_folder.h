#pragma once
// The window that keeps the folders the download watch measures: a list,
// an add button (the folder dialog) and a remove button. Every change is
// saved at once as "Paths2" and rebuilds the watch's records.
#include <string>

#include "core/main_form.h"
#include "monitor/power_off.h"

namespace wh {

// The folder dialog through the dialog service. A result that ends in "\"
// loses that one backslash, so a drive's root comes back as "C:".
std::string browse_for_folder(const std::string& title, const std::string& start);

class SelectFolder : public Form {
public:
  SelectFolder(MainForm& main, PowerSchedule& schedule);

  ListBox& List1;
  ImageButton& Image34;  // add
  ImageButton& Image35;  // remove

  void Form_Load();
  void Image34_Click();
  void Image35_Click();

private:
  void save();

  MainForm& main_;
  PowerSchedule& schedule_;
};

}  // namespace wh
