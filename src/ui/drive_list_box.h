#pragma once
#include <string>

#include "ui/combo_box.h"

namespace wh {

// The drives as "c: [label]", or "c:" where there is no label or the
// medium is removable (asking a floppy for its label would spin it).
// Change fires when Drive changes, by the user or by code.
class DriveListBox : public ComboBox {
public:
  DriveListBox(Form& form, std::string name, const Place& place);

  std::string Drive() const;
  // Takes "c", "c:", "C:\path" and the like; raises 68 for a drive that
  // isn't there.
  void Drive(const std::string& drive);
  void Refresh();  // reads the drives again, keeping the current one

  void on_command(int code) override;
};

}  // namespace wh
