#pragma once
// A top-level window that owns named controls and routes their messages.
// A derived form creates its controls in code, typically as members:
//   class Choose : public Form {
//    public:
//     Choose() : Form({.class_name = "WhChoose", .popup = true}) {}
//     Label& Label1 = add<Label>("Label1", Place{8, 8, 120, 16});
//   };
// The base is built before the members, so add() may be used in their
// initialisers. Forms start hidden.
#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ui/control.h"
#include "ui/gdi.h"

struct IDropTarget;

namespace wh {

class Timer;

struct FormOptions {
  std::string class_name = "WellharrowerForm";
  std::string caption;
  int left = CW_USEDEFAULT;
  int top = CW_USEDEFAULT;
  int width = 400;  // outer size, pixels
  int height = 300;
  bool popup = false;        // no frame or title bar (the skinned windows)
  bool tool_window = false;  // no taskbar button
  bool topmost = false;
  HICON icon = nullptr;
  HWND owner = nullptr;
};

// QueryUnload modes.
enum UnloadMode : int {
  unload_control_menu = 0,  // the user closed it (WM_CLOSE)
  unload_code = 1,          // Form::unload()
  unload_windows = 2,       // the session is ending
};

class Form {
public:
  explicit Form(const FormOptions& options = {});
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  HWND hwnd() const { return hwnd_; }
  bool loaded() const { return hwnd_ != nullptr; }

  // Outer rectangle on the screen, pixels.
  int Left() const;
  int Top() const;
  int Width() const;
  int Height() const;
  void Left(int v);
  void Top(int v);
  void Width(int v);
  void Height(int v);
  void Move(int left, int top, int width, int height);
  int ScaleWidth() const;  // client area
  int ScaleHeight() const;

  std::string Caption() const;
  void Caption(const std::string& text);

  bool Visible() const;
  void Visible(bool v);
  void Show() { Visible(true); }
  void Hide() { Visible(false); }
  // 0 normal, 1 minimised, 2 maximised.
  int WindowState() const;
  void WindowState(int state);
  void TopMost(bool on);
  void SetFocus();
  void Refresh();

  // The background, drawn at 0,0 under every control; shared, not copied.
  Picture picture() const { return picture_; }
  void picture(Picture pic);
  COLORREF BackColor() const { return back_; }
  void BackColor(COLORREF c);

  // QueryUnload, Unload, then the window goes. The object stays, so
  // don't delete a form inside one of its own events.
  void unload();

  // Controls by name; null when there is none.
  Control* find(const std::string& name) const;
  Timer* find_timer(const std::string& name) const;

  template <class C, class... A>
  C& add(const std::string& name, const Place& place, A&&... args) {
    auto c = std::make_unique<C>(*this, name, place, std::forward<A>(args)...);
    C& ref = *c;
    adopt(std::move(c));
    return ref;
  }
  Timer& add_timer(const std::string& name, unsigned interval, bool enabled);

  MouseEvent MouseDown, MouseMove, MouseUp;
  Event Click, DblClick;
  std::function<void(int& cancel, int mode)> QueryUnload;
  std::function<void(int& cancel)> Unload;
  Event Resize, Paint;
  DropEvent OLEDragDrop;
  // Fires while files are dragged over the bare form (once it accepts drops).
  DropEvent OLEDragOver;
  void OLEDropMode(bool accept);
  // Takes OLE drags for the form and its controls (ui/drop_target.cpp):
  // each one goes to the control under the pointer that accepts drops.
  void accept_ole_drags();

  // Next free control id of this form, for WM_COMMAND.
  int next_id() { return next_id_++; }

  // Routes a container's message to the child control named by it. Used by
  // the form, frames and picture boxes.
  static bool route_child_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result);

private:
  static LRESULT CALLBACK proc(HWND w, UINT msg, WPARAM wp, LPARAM lp);
  LRESULT handle(UINT msg, WPARAM wp, LPARAM lp);
  bool close_request(int mode);  // true when the unload goes on
  void adopt(std::unique_ptr<Control> c);

  HWND hwnd_ = nullptr;
  Picture picture_;
  COLORREF back_ = system_color(COLOR_BTNFACE);
  int next_id_ = 1000;
  bool pressed_ = false;
  int pending_state_ = -1;  // WindowState set while hidden
  std::vector<std::unique_ptr<Control>> controls_;
  std::vector<std::unique_ptr<Timer>> timers_;
  std::map<std::string, Control*> by_name_;
  IDropTarget* drop_target_ = nullptr;  // registered on the window
  void revoke_ole_drags();
};

}  // namespace wh
