#include "core/poweroff.h"

#include "core/routines.h"
#include "core/skin_layout.h"

namespace wh {

namespace {
Poweroff* instance = nullptr;  // like the main form, never destroyed at exit

// The project's own pages, until it has addresses of its own.
const char* const web_page = "https://wellharrower.example.org/";
const char* const mail_to = "mailto:author@wellharrower.example.org?subject=Wellharrower";
const char* const postal_address =
    "Wellharrower\r\nc/o the project's maintainers\r\n(postal address to be announced)";

// The outer size that gives the picture's client area under a tool frame.
SIZE outer_size() {
  RECT rc{0, 0, skin::poweroff_width, skin::poweroff_height};
  ::AdjustWindowRectEx(&rc, WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX, FALSE,
                       WS_EX_TOOLWINDOW);
  return {rc.right - rc.left, rc.bottom - rc.top};
}
}  // namespace

Poweroff::Poweroff()
    : Form({.class_name = "WellharrowerPoweroff", .caption = "Wellharrower",
            .width = outer_size().cx, .height = outer_size().cy, .tool_window = true}),
      Label3(add<Label>("Label3", Place{18, 66, 324, 58},
                        "You have runned Wellharrower for 45 times.As you know this application  "
                        "is free but you can show the author your appreciation by clicking one "
                        "of the buttons below.",
                        Label::Options{.transparent = true})),
      md(add<ImageButton>("md", Place{16, 132, 104, 34})),
      sm(add<ImageButton>("sm", Place{128, 132, 104, 34})),
      sp(add<ImageButton>("sp", Place{240, 132, 104, 34})) {
  picture(LoadPicture("POWEROFF_BACK"));
  Label3.ForeColor(skin::text_color);
  md.LoadPicture("POWEROFF_WEB");
  sm.LoadPicture("POWEROFF_MAIL");
  sp.LoadPicture("POWEROFF_POST");
  md.Click = [this] { md_Click(); };
  sm.Click = [this] { sm_Click(); };
  sp.Click = [this] { sp_Click(); };
  const int w = Width(), h = Height();
  Move((::GetSystemMetrics(SM_CXSCREEN) - w) / 2, (::GetSystemMetrics(SM_CYSCREEN) - h) / 2, w, h);
  // A shutdown shows this window with its picture alone; these come out at
  // the 45th start only.
  for (Control* c : std::initializer_list<Control*>{&Label3, &md, &sm, &sp}) c->Visible(false);
}

void Poweroff::md_Click() {
  poweroff_unload();
  const std::string browser = find_associated_program("html");
  if (browser.empty())
    ::ShellExecuteA(nullptr, "Open", web_page, nullptr, "C:\\", SW_SHOWNORMAL);
  else
    ::ShellExecuteA(nullptr, "Open", browser.c_str(), web_page, "C:\\", SW_SHOWNORMAL);
}

void Poweroff::sm_Click() {
  ::ShellExecuteA(hwnd(), "Open", mail_to, nullptr, "C:\\", SW_SHOWNORMAL);
  poweroff_unload();
}

void Poweroff::sp_Click() {
  poweroff_unload();
  msg_box(postal_address, MB_ICONINFORMATION, "My adress");
}

Poweroff& poweroff() {
  if (!instance) instance = new Poweroff();
  return *instance;
}

bool poweroff_loaded() { return instance != nullptr; }

void poweroff_unload() {
  Poweroff* gone = instance;
  instance = nullptr;
  if (gone) gone->unload();
}

}  // namespace wh
