#pragma once
// The shred section's page: a file or a folder picked in its lists is
// shredded with 3, 5 or 7 passes when the Harrow button is pressed. The
// controls are the main form's; this wires their handlers.
#include <cstdint>
#include <string>
#include <vector>

namespace wh {

class Mainu;

class ShredPage {
public:
  explicit ShredPage(Mainu& form);

  // The section's action: del_Click's block, and Delete in Dir3 or File3.
  void action();
  // 3, 5 or 7, by Option5..Option7.
  uint8_t passes() const;

  void Drive4_Change();
  void Dir3_Change();
  void Dir3_Click();
  void File3_Click();
  void Dir3_KeyDown(int& key, int shift);
  void File3_KeyDown(int& key, int shift);
  // Files dropped on the section's button: the first is the target.
  void shred_OLEDragDrop(const std::vector<std::string>& files);

private:
  void target(const std::string& path);
  Mainu& m_;
};

}  // namespace wh
