#pragma once
#include <string>

#include "ui/control.h"

namespace wh {

// MultiSelect: none, simple (a click toggles a row), extended (Shift, Ctrl).
enum MultiSelect { multi_none = 0, multi_simple = 1, multi_extended = 2 };

struct ListBoxOptions {
  MultiSelect multi_select = multi_none;
  bool sorted = false;
  bool border = true;
};

// A list whose rows are often the program's only store: text plus a 32-bit
// ItemData each. Click fires when the selection changes, by the user or by
// ListIndex/Selected set from code.
class ListBox : public Control {
public:
  using Options = ListBoxOptions;

  ListBox(Form& form, std::string name, const Place& place, const Options& options = {});

  // Sorted lists place the row by text; the index form inserts at `index`
  // even in a sorted list.
  void AddItem(const std::string& text);
  void AddItem(const std::string& text, int index);
  void RemoveItem(int index);  // raises 5 outside the rows
  void Clear();
  int ListCount() const;
  std::string List(int index) const;  // "" outside the rows
  // Replaces a row's text in place, keeping its ItemData and selection.
  void List(int index, const std::string& text);
  long ItemData(int index) const;  // raises 381 outside the rows
  void ItemData(int index, long value);
  int NewIndex() const { return new_index_; }

  bool Selected(int index) const;
  void Selected(int index, bool on);
  int SelCount() const;
  // The current row: the selection, or in multi-select lists the row with
  // the focus rectangle; -1 for none.
  int ListIndex() const;
  void ListIndex(int index);  // raises 380 outside -1..count-1
  int TopIndex() const;
  void TopIndex(int index);
  MultiSelect multi_select() const { return options_.multi_select; }
  bool sorted() const { return options_.sorted; }

  // Height in pixels of a text in the list's font.
  int TextHeight(const std::string& text) const;

  // The tool tip shown while the pointer rests on the list; "" shows none.
  std::string ToolTipText() const { return tip_text_; }
  void ToolTipText(const std::string& text);

  // Rows added while a Batch lives show at once when it ends: under Wine a
  // shown list otherwise redraws its scroll bar at every added row, a trip
  // to the X server each (a thousand rows took seconds). Batches nest.
  class Batch {
  public:
    explicit Batch(ListBox& list);
    ~Batch();
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

  private:
    ListBox& list_;
  };

  KeyEvent KeyDown;
  KeyPressEvent KeyPress;
  Event GotFocus;

  void on_command(int code) override;
  bool on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) override;

protected:
  ListBox(Form& form, std::string name, const Place& place, const Options& options,
          DWORD extra_style);
  bool multi() const { return options_.multi_select != multi_none; }
  int rows() const { return static_cast<int>(send(LB_GETCOUNT)); }
  void check_row(int index) const;  // raises 381 outside the rows
  // After the rows were replaced: no current row until one is chosen.
  void forget_current() { current_set_ = false; }

  Options options_;
  int new_index_ = -1;

private:
  bool current_set_ = false;
  int batch_depth_ = 0;
  HWND tip_window_ = nullptr;  // made on the first text, owned by the list
  std::string tip_text_;  // multi-select: a row got the focus rectangle
};

}  // namespace wh
