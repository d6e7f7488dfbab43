#include "form/meniu.h"

#include <string>

#include "core/choose.h"
#include "core/tray.h"
#include "form/mainu.h"
#include "monitor/power_off.h"

namespace wh {

Meniu::Meniu(Mainu& form)
    : Form({.class_name = "WellharrowerMeniu", .caption = "meniu", .tool_window = true}),
      fili(*this, "fili", "fili"),
      fili2(*this, "fili2", "fili2"),
      Picture1(add<PictureBox>("Picture1", Place{0, 0, 16, 16})),
      form_(form) {
  wire(fili, "uninst", "Dezinstalare programe", &Meniu::uninst_Click);
  wire(fili, "curata", "Curatare hard-disk si urme", &Meniu::curata_Click);
  wire(fili, "mem", "TaskManager", &Meniu::mem_Click);
  wire(fili, "split", "Despicare fisiere", &Meniu::split_Click);
  wire(fili, "killa", "Formatare discheta", &Meniu::killa_Click);
  wire(fili, "dirinfo", "Disk Space Manager", &Meniu::dirinfo_Click);
  wire(fili, "wipe", "Rade fisere", &Meniu::wipe_Click);
  wire(fili, "startuppp", "Start Up", &Meniu::STP_Click);
  fili.separator("line");
  wire(fili, "closeall", "Inchide toate programele", &Meniu::closeall_Click);
  wire(fili, "cleanall", "Curata tot", &Meniu::harrowalljunk_Click);
  wire(fili, "freeram", "Elibereaza RAM", &Meniu::freeram_Click);
  fili.separator("line2");
  wire(fili, "closePC", "Inchide PC", &Meniu::closePC2_Click);
  wire(fili, "opt", "Optiuni", &Meniu::opt_Click);
  fili.separator("line3");
  wire(fili, "end", "Inchide Wellharrower", &Meniu::end_Click);

  wire(fili2, "uninst1", "Uninstall programs", &Meniu::uninst_Click);
  wire(fili2, "junk", "Junk and trace harrower", &Meniu::curata_Click);
  wire(fili2, "task1", "TaskManager", &Meniu::mem_Click);
  wire(fili2, "split1", "Split files", &Meniu::split_Click);
  wire(fili2, "format1", "Wellformat floppy disk", &Meniu::killa_Click);
  wire(fili2, "dir1", "DirInfo", &Meniu::dirinfo_Click);
  wire(fili2, "wipe1", "Wellshred files", &Meniu::wipe_Click);
  wire(fili2, "STP", "StartUp Manager", &Meniu::STP_Click);
  fili2.separator("shit2");
  wire(fili2, "close1", "Close all programs", &Meniu::closeall_Click);
  wire(fili2, "harrowalljunk", "Harrow ALL junk and  traces", &Meniu::harrowalljunk_Click);
  wire(fili2, "elib1", "Free up RAM", &Meniu::freeram_Click);
  fili2.separator("ahit");
  wire(fili2, "closePC2", "Harrow Windows", &Meniu::closePC2_Click);
  wire(fili2, "opt2", "Options", &Meniu::opt2_Click);
  fili2.separator("asd");
  wire(fili2, "close13", "Close Wellharrower", &Meniu::close13_Click);

  for (size_t j = 0; j < Image1.size(); ++j) Image1[j] = LoadPicture("MENU_" + std::to_string(j));
  set_tray_owner(TrayIcon::menu_busy, Picture1.hwnd(),
                 ::LoadIconA(exe_module(), "TRAY_HARROW"));
}

void Meniu::wire(Menu& menu, const char* name, const char* caption, void (Meniu::*handler)()) {
  menu.add(name, caption).Click = [this, handler] { (this->*handler)(); };
}

void Meniu::Form_Load() {
  ++loads;
  HMENU bar = ::GetMenu(hwnd());
  for (int m = 0; m < 2; ++m) {
    HMENU sub = ::GetSubMenu(bar, m);
    for (int j = 0; j <= 16; ++j) {
      const Picture& image = Image1[static_cast<size_t>(j)];
      HBITMAP pic = image ? image->get() : nullptr;
      ::SetMenuItemBitmaps(sub, ::GetMenuItemID(sub, j), 4, pic, pic);
    }
  }
}

void Meniu::show() {
  tray_remove();
  form_.Visible(true);
}

void Meniu::show_section(void (Mainu::*entry)()) {
  show();
  (form_.*entry)();
}

void Meniu::uninst_Click() { show_section(&Mainu::uninstall_Click); }
void Meniu::curata_Click() { show_section(&Mainu::junk_Click); }
void Meniu::mem_Click() { show_section(&Mainu::task_Click); }
void Meniu::split_Click() { show_section(&Mainu::splity_Click); }
void Meniu::killa_Click() { show_section(&Mainu::kila_Click); }
void Meniu::dirinfo_Click() { show_section(&Mainu::dirinfo_Click); }
void Meniu::wipe_Click() { show_section(&Mainu::shred_Click); }
void Meniu::STP_Click() { show_section(&Mainu::RUN_Click); }

void Meniu::closeall_Click() {
  // The main window stays hidden: the wait shows on the small strip.
  Choose& c = choose();
  c.Show();
  c.Picture1.Visible(true);
  c.Label2.Visible(true);
  do_events();
  form_.task_Click();
  form_.delall_Click();
  c.Picture1.Visible(false);
  c.Label2.Visible(false);
  c.Hide();
  choose_unload();
}

void Meniu::harrowalljunk_Click() {
  tray_remove();
  tray_add_menu();
  form_.junk_Click();
  form_.delall_Click();  // finds section 8
  tray_remove_menu();
  tray_add();
}

void Meniu::freeram_Click() { form_.ram.meniu_freeram_Click(); }

void Meniu::closePC2_Click() { power_off(); }

void Meniu::opt_Click() {
  form_.Visible(true);
  form_.Image11_Click();
}
void Meniu::opt2_Click() {
  show();
  form_.Image11_Click();
}

void Meniu::end_Click() {
  tray_remove();
  end_program();
}
void Meniu::close13_Click() {
  tray_remove();
  end_program();
}

}  // namespace wh
