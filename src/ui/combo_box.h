#pragma once
#include <string>

#include "ui/control.h"

namespace wh {

enum ComboStyle { dropdown_combo = 0, dropdown_list = 2 };

struct ComboBoxOptions {
  ComboStyle style = dropdown_combo;
  bool sorted = false;
  int drop_height = 200;  // the open list, pixels
};

// A drop-down combo (editable) or drop-down list. Click fires when the
// selected row changes, by the user or by ListIndex; Change when the text
// of an editable combo changes (typed or set).
class ComboBox : public Control {
public:
  using Options = ComboBoxOptions;

  ComboBox(Form& form, std::string name, const Place& place, const Options& options = {});

  void AddItem(const std::string& text);
  void AddItem(const std::string& text, int index);
  void RemoveItem(int index);
  void Clear();
  int ListCount() const;
  std::string List(int index) const;  // "" outside the rows
  int ListIndex() const;
  void ListIndex(int index);  // -1 clears; raises 380 outside
  long ItemData(int index) const;
  void ItemData(int index, long value);
  int NewIndex() const { return new_index_; }
  std::string Text() const;
  // Editable: sets the text. List: selects the row with that text, or
  // raises 383 when there is none.
  void Text(const std::string& text);
  ComboStyle style() const { return options_.style; }

  Event Change;
  KeyEvent KeyDown;

  void Move(int left, int top, int width, int height) override;
  void on_command(int code) override;
  bool on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) override;

protected:
  Options options_;
  int new_index_ = -1;
  int last_index_ = -1;  // for Click only on a change of row
  bool quiet_ = false;
};

}  // namespace wh
