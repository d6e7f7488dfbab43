#pragma once
// Base of every windowed control: one HWND, the common properties, the
// mouse events, and the hooks through which the owning window routes
// WM_COMMAND, WM_NOTIFY, WM_DRAWITEM and WM_CTLCOLOR* back to the object.
#include <windows.h>
#include <shellapi.h>

#include <functional>
#include <string>
#include <vector>

#include "ui/gdi.h"

namespace wh {

class Form;
class Control;

// Where a control goes: pixels relative to its container, which is the form
// unless a Frame or PictureBox is given.
struct Place {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  Control* container = nullptr;
};

// Buttons as the events give them: 1 left, 2 right, 4 middle;
// shift: 1 Shift, 2 Ctrl, 4 Alt.
using Event = std::function<void()>;
using MouseEvent = std::function<void(int button, int shift, int x, int y)>;
// Setting `key` to 0 swallows the key.
using KeyEvent = std::function<void(int& key, int shift)>;
using KeyPressEvent = std::function<void(int& ascii)>;
using DropEvent = std::function<void(const std::vector<std::string>& files)>;

int shift_state();  // of the keyboard now

class Control {
public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  HWND hwnd() const { return hwnd_; }
  const std::string& Name() const { return name_; }
  Form& form() const { return form_; }
  // The object behind a window made by this layer, or null.
  static Control* from_hwnd(HWND w);

  // The property, not the screen: true for a control on a hidden form.
  bool Visible() const;
  void Visible(bool v);
  bool Enabled() const;
  void Enabled(bool v);

  virtual void Move(int left, int top, int width, int height);
  int Left() const;
  int Top() const;
  int Width() const;
  int Height() const;
  void Left(int v);
  void Top(int v);
  void Width(int v);
  void Height(int v);

  void SetFocus();
  void Refresh();
  void ZOrder(int position = 0);  // 0 to the front, 1 to the back

  FontDesc Font() const { return font_; }
  void Font(const FontDesc& f);
  COLORREF ForeColor() const { return fore_; }
  void ForeColor(COLORREF c);
  COLORREF BackColor() const { return back_; }
  void BackColor(COLORREF c);

  // The program keeps numbers here as text.
  std::string Tag;

  // Files dropped from the shell arrive as OLEDragDrop once this is on, and
  // files dragged over it as OLEDragOver.
  void OLEDropMode(bool accept);

  MouseEvent MouseDown, MouseMove, MouseUp;
  Event Click, DblClick;
  DropEvent OLEDragDrop, OLEDragOver;

  // Raw message to the control's window.
  LRESULT send(UINT msg, WPARAM wp = 0, LPARAM lp = 0) const {
    return ::SendMessageA(hwnd_, msg, wp, lp);
  }

protected:
  Control(Form& form, std::string name, const Place& place, const char* window_class,
          DWORD style, DWORD ex_style = 0, const std::string& text = {});

  // WM_CHAR through a KeyPress handler, which may change the key or swallow
  // it with 0. True when the message was dealt with here.
  bool key_press(const KeyPressEvent& handler, WPARAM wp, LPARAM lp, LRESULT& result);

  std::string window_text() const;
  void window_text(const std::string& text);
  HWND parent_hwnd() const { return ::GetParent(hwnd_); }
  // Colours the control has when the program sets none (edits and lists
  // are white, the rest button face).
  void default_colors(COLORREF fore, COLORREF back) {
    fore_ = fore;
    back_ = back;
  }

  // Labels, images, frames and pictures capture the mouse on a press and
  // make Click from press and release themselves, as the standard controls'
  // notifications don't cover them.
  bool own_clicks_ = false;
  bool has_fore_ = false;
  bool has_back_ = false;

public:
  // Routing hooks, called by the window procedures of this layer.
  virtual void on_command(int /*code*/) {}
  virtual bool on_notify(NMHDR& /*n*/, LRESULT& /*result*/) { return false; }
  virtual bool on_draw_item(DRAWITEMSTRUCT& /*d*/) { return false; }
  // The brush for WM_CTLCOLOR*, or null for the default.
  virtual HBRUSH on_ctl_color(HDC dc);
  // Before the window's own procedure; true when handled.
  virtual bool on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result);
  // Paints the control's background into `dc` (origin already moved), for
  // children that draw transparently over it. False when it has none.
  virtual bool paint_background(HDC /*dc*/) { return false; }
  virtual bool is_container() const { return false; }
  void window_gone() { hwnd_ = nullptr; }

private:
  friend LRESULT CALLBACK control_proc(HWND, UINT, WPARAM, LPARAM);
  Form& form_;
  std::string name_;
  HWND hwnd_ = nullptr;
  WNDPROC base_proc_ = nullptr;  // the window class's own procedure
  FontDesc font_;
  COLORREF fore_ = system_color(COLOR_BTNTEXT);
  COLORREF back_ = system_color(COLOR_BTNFACE);
  bool pressed_ = false;
};

// For children drawn transparently: the container's background under `child`.
void paint_parent_background(HWND child, HDC dc);

namespace detail {
// The mouse events of a form or a control, from its window's messages.
struct MouseEvents {
  MouseEvent& down;
  MouseEvent& move;
  MouseEvent& up;
  Event& click;
  Event& dbl_click;
  bool own_clicks;  // capture on press, Click on release, DblClick
  bool& pressed;
};
void mouse_message(HWND w, UINT msg, WPARAM wp, LPARAM lp, const MouseEvents& ev);
std::vector<std::string> dropped_files(HDROP drop);
// The paths of a drop, leaving the handle to its owner.
std::vector<std::string> drop_file_names(HDROP drop);
}  // namespace detail

}  // namespace wh
