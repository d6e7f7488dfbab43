#pragma once
// kaLCDDisplay: a dot-matrix LCD panel as a window class of its own that
// other windows embed as a child. Characters are copied from a glyph strip,
// one block copy per cell; a second mode shows a two-colour dithered picture.
#include <windows.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "display/hive.h"
#include "display/lcd_glyphs.h"

namespace wh {

// The saved properties of a control: names to raw values. Values equal to
// their default are not written, so a bag holds only what was changed.
class LcdPropertyBag {
public:
  void WriteProperty(const std::string& name, const std::string& value);
  std::optional<std::string> ReadProperty(const std::string& name) const;
  bool Empty() const { return values_.empty(); }

  // The whole bag as bytes and back, to keep it in a file or a setting.
  std::string Save() const;
  static LcdPropertyBag Load(const std::string& bytes);

private:
  std::map<std::string, std::string> values_;
};

class kaLCDDisplay {
public:
  static constexpr const char* ClassName = "kaLCDDisplay";

  // Registers the window class once per process.
  static void Register();
  // A new panel inside `parent` at (x, y), with saved properties or the
  // defaults. The window owns the object; it goes with the window.
  static kaLCDDisplay* Create(HWND parent, int x, int y, int id = 0,
                              const LcdPropertyBag* saved = nullptr);
  static kaLCDDisplay* FromWindow(HWND window);
  HWND hwnd() const { return hwnd_; }

  void Clear();
  // align 0 left, 1 centre, 2 right; row 0 is the row after the last one written.
  void WriteText(std::string text, std::int16_t align = 0, std::int16_t row = 0,
                 std::int16_t col = 1);

  bool AutoSize() const { return auto_size_; }
  void AutoSize(bool value);
  std::int32_t Mode() const { return mode_; }
  void Mode(std::int32_t value);
  // The control keeps its own copy; the getter's bitmap belongs to the control.
  HBITMAP Picture() const { return picture_.get(); }
  void Picture(HBITMAP value);
  bool Scrollable() const { return scrollable_; }
  void Scrollable(bool value);
  std::int16_t TotalCols() const { return total_cols_; }
  void TotalCols(std::int16_t value);
  std::int16_t TotalRows() const { return total_rows_; }
  void TotalRows(std::int16_t value);
  std::int16_t WriteSpeed() const { return write_speed_; }
  void WriteSpeed(std::int16_t value);

  // The ambient user mode: true at run time; false while a designer edits.
  bool UserMode() const { return user_mode_; }
  void UserMode(bool value) { user_mode_ = value; }

  void UserControl_InitProperties();
  void UserControl_ReadProperties(const LcdPropertyBag& bag);
  void UserControl_WriteProperties(LcdPropertyBag& bag) const;

  // What the panel holds, for those who look.
  const std::string& Line(int row) const { return lines_.at(row - 1); }  // 1-based
  std::int16_t current_row() const { return current_row_; }
  bool WriteTimerOn() const { return tmrWrite.enabled; }
  bool CommandTimerOn() const { return tmrProcessCommands.enabled; }
  const CHive& CommandQueue() const { return queue_; }
  int DitherProgress() const { return progress_; }
  LcdPixels Snapshot() const;  // the panel's surface

  kaLCDDisplay(const kaLCDDisplay&) = delete;
  kaLCDDisplay& operator=(const kaLCDDisplay&) = delete;

private:
  struct Timer {
    UINT_PTR id;
    UINT interval;
    bool enabled = false;
  };
  template <class T, auto Close>
  struct Owned {
    T h{};
    Owned() = default;
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { reset(); }
    void reset(T v = T{}) {
      if (h) Close(h);
      h = v;
    }
    T get() const { return h; }
  };
  static BOOL delete_bitmap(HBITMAP b) { return DeleteObject(b); }
  using OwnedBitmap = Owned<HBITMAP, delete_bitmap>;
  using OwnedDC = Owned<HDC, DeleteDC>;

  explicit kaLCDDisplay(HWND hwnd);  // UserControl_Initialize
  ~kaLCDDisplay();                   // UserControl_Terminate
  static LRESULT CALLBACK WndProc(HWND hwnd, UINT msg, WPARAM wp, LPARAM lp);

  void UserControl_Resize();
  void Repaint();
  void Refresh();
  void ScrollUp();
  void tmrWrite_Timer();
  void tmrProcessCommands_Timer() {}  // nothing takes the commands out

  std::string place_text(int row, std::string text, int align, int col);
  void copy_glyph(unsigned char code, int col0, int row0, int width);
  void paint_all_cells();
  void queue_command(int number, const std::string& arguments = {});
  void set_timer(Timer& t, bool on);
  void set_write_interval();
  void make_surface(int width, int height);

  HWND hwnd_;
  bool user_mode_ = true;
  bool resizing_ = false;

  // Properties.
  bool auto_size_ = false;
  std::int32_t mode_ = 0;
  OwnedBitmap picture_;
  bool scrollable_ = true;
  std::int16_t total_cols_ = 16;
  std::int16_t total_rows_ = 2;
  std::int16_t write_speed_ = 0;

  // Run-time state.
  std::vector<std::string> lines_;
  std::int16_t current_row_ = 0;
  std::string current_text_;
  std::int16_t write_pos_ = 0;
  std::int16_t write_end_ = 0;
  CHive queue_;
  std::string sep255_, sep254_;
  int progress_ = 0;
  Timer tmrWrite{1, 1};
  Timer tmrProcessCommands{2, 100};

  // imgLetters: the strip, selected for the life of the control.
  OwnedBitmap strip_;
  OwnedDC strip_dc_;
  HGDIOBJ strip_old_ = nullptr;
  // The surface: a DIB section the size of the window, painted on WM_PAINT.
  OwnedBitmap surface_;
  OwnedDC surface_dc_;
  HGDIOBJ surface_old_ = nullptr;
  std::uint32_t* surface_bits_ = nullptr;
  int surface_w_ = 0, surface_h_ = 0;
};

}  // namespace wh
