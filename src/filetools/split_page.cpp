#include "filetools/split_page.h"

#include <cstdint>

#include "core/globals.h"
#include "core/paths.h"
#include "core/routines.h"
#include "core/text.h"
#include "filetools/floppy_tool.h"
#include "filetools/splitter.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"

namespace wh {

namespace {
bool english() { return language_flag == 1; }

constexpr COLORREF tab_active = 33023;     // orange
constexpr COLORREF tab_idle = 14215660;
constexpr const char* old_fragment_mark = "\xC2\xAE";  // the registered sign, U+00AE

double file_length(const std::string& path) {
  File f;
  check(file_system().GetFile(path, f));
  return f.Size;
}

// A number written as text and read back, as the preview's divisor goes.
double through_text(double x) {
  const char decimal = locale_decimal();
  std::string t = number_text(x, decimal);
  for (char& c : t)
    if (c == decimal) c = '.';
  return val(t);
}

// The size field read the locale's way: "1,5" is 1.5 on a comma locale.
double locale_number(std::string text) {
  const char decimal = locale_decimal();
  for (char& c : text) {
    if (c == '.' && decimal != '.') c = ' ';  // ends the number there
    else if (c == decimal) c = '.';
  }
  return val(text);
}
}  // namespace

SplitPage::SplitPage(MainForm& form)
    : splitbox(form.add<Frame>("splitbox", page_place())),
      Label1(form.add<Label>("Label1", Place{8, 4, 140, 22, &splitbox}, "Split files")),
      Label2(form.add<Label>("Label2", Place{150, 4, 140, 22, &splitbox}, "Merge files")),
      Drive2(form.add<DriveListBox>("Drive2", Place{8, 32, 214, 22, &splitbox})),
      dir1(form.add<DirListBox>("dir1", Place{8, 58, 214, 196, &splitbox})),
      File1(form.add<FileListBox>("File1", Place{230, 32, 206, 222, &splitbox})),
      calefisier(form.add<Label>("calefisier", Place{8, 262, 604, 20, &splitbox}, "file path")),
      Label4(form.add<Label>("Label4", Place{8, 288, 428, 20, &splitbox})),
      Frame2(form.add<Frame>("Frame2", Place{444, 28, 168, 84, &splitbox}, "Fragment size")),
      Option1(form.add<OptionButton>("Option1", Place{10, 22, 150, 20, &Frame2}, "1.38MB(floppy)")),
      Option2(form.add<OptionButton>("Option2", Place{10, 50, 20, 20, &Frame2})),
      size(form.add<TextBox>("size", Place{32, 49, 80, 22, &Frame2})),
      Label3(form.add<Label>("Label3", Place{118, 52, 30, 18, &Frame2}, "MB")),
      Frame3(form.add<Frame>("Frame3", Place{444, 118, 168, 80, &splitbox}, "Options")),
      Check8(form.add<CheckBox>("Check8", Place{10, 22, 150, 20, &Frame3}, "copy to floppy")),
      Check9(form.add<CheckBox>("Check9", Place{10, 48, 150, 20, &Frame3}, "delete after merge")),
      Frame4(form.add<Frame>("Frame4", Place{444, 28, 168, 170, &splitbox}, "Merge")),
      Label5(form.add<Label>("Label5", Place{10, 20, 150, 72, &Frame4})),
      dirdest(form.add<Label>("dirdest", Place{10, 96, 150, 66, &Frame4})),
      Picture3(form.add<PictureBox>("Picture3", Place{444, 206, 168, 48, &splitbox})),
      form_(form) {
  splitbox.Visible(false);
  splitbox.ZOrder(0);  // over the lists that sit on the form itself
  Frame4.Visible(false);
  Picture3.Visible(false);
  // The tabs' two colours are both light: they sit on a dark strip.
  for (Label* tab : {&Label1, &Label2}) {
    tab->BackColor(skin::well_color);
    tab->Alignment(center);
  }
  size.Enabled(false);

  // The three lists start on the current folder, as one.
  ignore_errors([&] { Drive2.Drive(dir1.Path().substr(0, 2)); });
  ignore_errors([&] { File1.Path(dir1.Path()); });
  Label1.Click = [this] { Label1_Click(); };
  Label2.Click = [this] { Label2_Click(); };
  Drive2.Change = [this] { Drive2_Change(); };
  dir1.Change = [this] { dir1_Change(); };
  File1.Click = [this] { File1_Click(); };
  Option1.Click = [this] { Option1_Click(); };
  Option2.Click = [this] { Option2_Click(); };
  size.Change = [this] { size_Change(); };
  size.KeyPress = [this](int& key) { size_KeyPress(key); };
  Check9.MouseMove = [this](int b, int s, int x, int y) { Check9_MouseMove(b, s, x, y); };

  for (Control* c : {static_cast<Control*>(&Label1), static_cast<Control*>(&Label2),
                     static_cast<Control*>(&Label4), static_cast<Control*>(&calefisier),
                     static_cast<Control*>(&form_.splity)})
    c->OLEDropMode(true);
  Label1.OLEDragDrop = [this](const std::vector<std::string>& f) { Label1_OLEDragDrop(f); };
  Label2.OLEDragDrop = [this](const std::vector<std::string>& f) { Label2_OLEDragDrop(f); };
  Label4.OLEDragDrop = [this](const std::vector<std::string>& f) { Label4_OLEDragDrop(f); };
  calefisier.OLEDragDrop = [this](const std::vector<std::string>& f) { calefisier_OLEDragDrop(f); };
  form_.splity.OLEDragDrop = [this](const std::vector<std::string>& f) { splity_OLEDragDrop(f); };
  // A drag over the rest of the page shows the drop hint.
  for (Control* c : std::initializer_list<Control*>{&dir1, &dirdest, &Drive2, &File1, &Frame2,
                                                    &Frame3, &Frame4, &Label3, &Option2, &size,
                                                    &splitbox}) {
    c->OLEDropMode(true);
    c->OLEDragOver = [this](const std::vector<std::string>& f) { Form_OLEDragOver(f); };
  }
  captions(1);
}

void SplitPage::enter() {
  if (ActiveSection == 3) return;
  ActiveSection = 3;
  form_.hide_section_extras();
  splitbox.Visible(true);
  form_.light_section_button(form_.splity);
  form_.action_buttons(true, false, true);
  Option1.Value(true);
  Label1_Click();
  form_.section_tip(
      3,
      language_flag == 1
          ? "YOU CAN EASILY SPLIT A FILE STRAIGHT FROM YOUR DESKTOP BY DROPPING IT OVER "
            "WELLHARROWER OR BY SELECTING WELLHARROW IN THE RIGHT CLICK CONTEXT MENU IN EXPLORER"
          : "PUTETI DESPICA CU USURINTA UN FISIER DIRECT DE PE DESKTOP TRAGAND-UL PESTE "
            "WELLHARROWER SAU DAND CLICK DREAPTA SI ALEGAND WELLHARROW DIN MENIUL CONTEXTUAL DIN "
            "EXPLORER",
      false);
}

std::string SplitPage::placeholder() const { return english() ? "file path" : "cale fisier"; }

void SplitPage::del_block() {
  const bool en = english();
  FileSystemObject& fso = file_system();
  const std::string path = calefisier.Caption();
  if (path == "cale fisier" || path == "file path") {
    msg_box(en ? "First you have to choose a file!" : "Trebuie sa alegeti un fisier!", MB_ICONSTOP);
    return;
  }
  if (!fso.FileExists(path)) {
    msg_box(en ? "File not found!" : "Fisierul selecta nu mai exista!", MB_ICONSTOP);
    return;
  }
  if (Option2.Value() && size.Text().empty()) {
    msg_box(en ? "You have to specify the split size!" : "Trebuie sa specificati marimea unei bucatii",
            MB_ICONSTOP);
    return;
  }
  std::string destination = parent_path(path);  // beside the source
  const double length = file_length(path);
  // Read whatever the field holds, with Option1 too.
  if (length / 1048576 < val(size.Text())) {
    if (en)
      msg_box("The split size is larger than the size of the file to be splited!", 0);
    else
      msg_box("Marimea unei bucati este mai mare decat marimea intregului fisier ce trebuie "
              "despicat.",
              MB_ICONSTOP);
    return;
  }
  // The split reads the field up to the first character that is no part of
  // a number with a point, whatever the locale (the preview reads it the
  // locale's way).
  const double megabytes = Option1.Value() ? 1.38 : val(size.Text());
  const double bytes = round_even(1048576 * megabytes);
  if (bytes > INT32_MAX || bytes < INT32_MIN) raise(rt_overflow);
  int16_t count = 0;
  const SplitProgress progress{
      .percent = [this](int16_t p) { form_.spProg(p); },
      .pump = [] { do_events(); },
      .delete_after_merge = [this] { return Check9.Value() == 1; },
  };
  const int16_t result =
      split_file(path, destination, static_cast<int32_t>(bytes), count, progress);
  if (result == split_done) {
    const std::string n = number_text(ceil_div(length, 1024 * 1024 * megabytes));
    const std::string file = path_part(path, 6);
    msg_box(en ? "Split completed successfully. The file was splitted into " + n + " parts.\r\n\r\n" +
                     "To merge the splited files run merge(" + file + ").bat"
               : "Despicarea s-a incheiat cu succes.Fisierul a fost spart in  " + n +
                     " bucati.\r\n\r\nPentru a recrea fisierul din bucati rulati reface(" + file +
                     ").bat",
            0);
    form_.picProgress.Cls();
    if (Check8.Value() == 1) span_to_floppies(path, length, megabytes);
  } else if (result == split_too_many) {
    msg_box(en ? "The ratio of file size in bytes of the source file to the specified Segment size "
                 "value resulted in 1000 or more segment files."
               : "Sunt mai mult de 999 de bucati..",
            MB_ICONSTOP);
  } else if (result == split_failed) {
    msg_box(en ? "Unpredicted error." : "Eroare neprevazuta.", MB_ICONSTOP);
  }
  calefisier.Caption(placeholder());
  File1.Refresh();
}

void SplitPage::ref_block() {
  dir1.Refresh();
  File1.Refresh();
}

void SplitPage::hide_extras() { splitbox.Visible(false); }

void SplitPage::leave_for_options() { form_.plain_section_button(form_.splity); }

void SplitPage::captions(int language) {
  const bool en = language == 1;
  const std::string path = calefisier.Caption();
  if (path == "file path" || path == "cale fisier") calefisier.Caption(en ? "file path" : "cale fisier");
  Label1.Caption(en ? "Split files" : "Despicare fisiere");
  Label2.Caption(en ? "Merge files" : "Reface fisiere");
  Frame2.Caption(en ? "Fragment size" : "Marimea bucatilor");
  Option1.Caption(en ? "1.38MB(floppy)" : "1.38MB(discheta)");
  Frame3.Caption(en ? "Options" : "Optiuni");
  Check8.Caption(en ? "copy to floppy" : "copiaza pe dischete");
  Check9.Caption(en ? "delete after merge" : "sterge dupa imbinare");
  Frame4.Caption(en ? "Merge" : "Imbinare");
  Label5.Caption(en ? "Drop the first fragment here, then run the batch file beside the "
                      "fragments. Fragments are in:"
                    : "Trageti aici prima bucata, apoi rulati fisierul batch de langa bucati. "
                      "Bucatile sunt in:");
  Picture3.BackColor(tab_active);
  Picture3.ForeColor(RGB(255, 255, 255));
  Picture3.Cls();
  Picture3.PrintAt(6, 6, en ? "Drop the file here" : "Trageti fisierul aici");
  Picture3.PrintAt(6, 24, en ? "to choose it" : "pentru a-l alege");
}

void SplitPage::Label1_Click() {
  Frame2.Visible(true);
  Frame3.Visible(true);
  Frame4.Visible(false);
  split_mode_ = true;
  Label1.ForeColor(tab_active);
  Label2.ForeColor(tab_idle);
}

void SplitPage::Label2_Click() {
  File1.ListIndex(-1);
  calefisier.Caption(placeholder());
  dirdest.Caption(dir1.Path());
  Frame4.Visible(true);
  Frame2.Visible(false);
  Frame3.Visible(false);
  split_mode_ = false;
  Label2.ForeColor(tab_active);
  Label1.ForeColor(tab_idle);
}

std::string SplitPage::preview_text() const {
  const std::string path = calefisier.Caption();
  if (path == "file path" || path == "cale fisier" || path.empty()) return {};
  double divisor;
  if (Option1.Value()) {
    divisor = through_text(1.38 * 1024 * 1024);
  } else {
    const double mb = locale_number(size.Text());
    if (size.Text().empty() || mb == 0) return {};
    divisor = through_text(mb * 1024 * 1024);
  }
  double length = 0, n = 0;
  if (ignore_errors([&] { length = file_length(path); }) != 0) return {};
  // A file beyond 32 bits has no count to show.
  if (ignore_errors([&] { n = ceil_div(length, divisor); }) != 0) return {};
  const std::string count = number_text(n);
  if (english()) return "The file will be splited in " + count + (n == 1 ? " fragment" : " fragments");
  return (n == 1 ? "Va rezulta " : "Vor rezulta ") + count + (n == 1 ? " bucata" : " bucati");
}

void SplitPage::preview() {
  const std::string path = calefisier.Caption();
  if (path == "file path" || path == "cale fisier" || path.empty()) return;
  form_.picProgress.Cls();
  const std::string text = preview_text();
  if (!text.empty()) form_.picProgress.Print(text);
}

void SplitPage::Drive2_Change() {
  // A drive with no disk in it stays where the folders were.
  ignore_errors([&] { dir1.Path(Drive2.Drive().substr(0, 2)); });
}

void SplitPage::dir1_Change() { File1.Path(dir1.Path()); }

void SplitPage::File1_Click() {
  if (File1.ListIndex() < 0) return;
  const std::string path = join_path(dir1.Path(), File1.FileName());
  calefisier.Caption(path);
  double length = file_length(path);
  Label4.Caption(form_.spatiuu(length));
  preview();
}

void SplitPage::Option1_Click() {
  size.Enabled(false);
  preview();
}

void SplitPage::Option2_Click() {
  size.Enabled(true);
  if (splitbox.Visible()) ignore_errors([&] { size.SetFocus(); });
  size_Change();
}

void SplitPage::size_Change() { preview(); }

void SplitPage::size_KeyPress(int& key) {
  const char symbol = locale_decimal();
  if ((key == ',' && symbol == '.') || (key == '.' && symbol == ',')) {
    msg_box(std::string(english() ? "The decimal symbol is " : "Simboulul decimal este ") + "\"" +
                symbol + "\"",
            MB_ICONEXCLAMATION);
  }
  if (key != symbol && key != '0') {
    // A key outside ASCII (a UTF-16 unit) has no numeric value either.
    const bool number = key < 128 && val(std::string(1, static_cast<char>(key))) != 0;
    if (!number && key != VK_BACK) key = 0;
  }
}

void SplitPage::Check9_MouseMove(int, int, int, int) {
  using Lines = std::vector<std::string>;
  form_.show_help("AFTERMERGE", english() ? Lines{"Delete fragments", "after merging"}
                                          : Lines{"Sterge bucatile", "dupa imbinare"});
}

void SplitPage::Label1_OLEDragDrop(const std::vector<std::string>& files) {
  if (ActiveSection != 3 || files.empty()) return;
  Label1_Click();
  calefisier.Caption(files.front());
}

void SplitPage::calefisier_OLEDragDrop(const std::vector<std::string>& files) {
  if (ActiveSection != 3 || files.empty()) return;
  Picture3.Visible(false);
  if (file_system().FileExists(files.front())) calefisier.Caption(files.front());
}

void SplitPage::Label2_OLEDragDrop(const std::vector<std::string>& files) {
  if (!files.empty()) fragment_dropped(files.front(), DropTarget::label2);
}

void SplitPage::Label4_OLEDragDrop(const std::vector<std::string>& files) {
  if (!files.empty()) fragment_dropped(files.front(), DropTarget::label4);
}

void SplitPage::splity_OLEDragDrop(const std::vector<std::string>& files) {
  if (!files.empty()) fragment_dropped(files.front(), DropTarget::splity);
}

void SplitPage::fragment_dropped(const std::string& path, DropTarget target) {
  if (target == DropTarget::label4 && split_mode_) {
    calefisier.Caption(path);
    return;
  }
  FileSystemObject& fso = file_system();
  // Only fragments of an older naming carry this sign; none of ours do. (A
  // second test on the last character always passed and adds nothing.)
  if (path.find(old_fragment_mark) != std::string::npos) {
    const std::string first = std::string(utf8::left(path, utf8::length(path) - 1)) + "1";
    if (fso.FileExists(first)) {
      if (target == DropTarget::splity) form_.splity_Click();
      Label2_Click();
      calefisier.Caption(first);
      dirdest.Caption(parent_path(first));
    } else if (english()) {
      msg_box(std::string(target == DropTarget::label2 ? "First piece does not exist   ("
                                                       : "First piece does not exist!   (") +
                  first + " )",
              MB_ICONSTOP);
    } else {
      msg_box("Nu exista prima bucata!   (" + first + " )", MB_ICONSTOP);
    }
    return;
  }
  if (target == DropTarget::label2) return;
  if (fso.FileExists(path)) {
    form_.splity_Click();
    calefisier.Caption(path);
  }
}

void SplitPage::Form_OLEDragOver(const std::vector<std::string>& files) {
  if (ActiveSection != 3 || files.empty()) return;
  if (split_mode_ || files.front().find(old_fragment_mark) != std::string::npos)
    Picture3.Visible(true);
}

void SplitPage::span_to_floppies(const std::string& source, double length, double megabytes) {
  const bool en = english();
  FileSystemObject& fso = file_system();
  const double n = ceil_div(length, 1024 * 1024 * megabytes);
  const std::string count_text = number_text(n);
  msg_box(en ? "You need " + count_text + " formatted floppy disks.\r\n" +
                   "If they are not formatted Wellharrower will format them for you\r\n" +
                   "Please insert the first disk and then press OK."
             : "Aveti nevoie de " + count_text + " dischete formatate.\r\n" +
                   "Daca nu sunt formatate Wellharrower le va formata automat.\r\n" +
                   "Introduceti prima discheta.",
          MB_ICONINFORMATION);
  // The count goes through a 16-bit number: an exact division's far too
  // large count wraps, and the loop may not run at all.
  const auto count = static_cast<int16_t>(static_cast<int64_t>(round_even(n)));
  const std::string folder = add_backslash(parent_path(source));
  const std::string file = path_part(source, 6);
  const size_t dot = split_short_name.rfind('.');
  const std::string base = dot == std::string::npos ? split_short_name : split_short_name.substr(0, dot);

  for (int i = 1; i <= count; ++i) {
    while (!fso.FolderExists("a:\\")) {
      if (msg_box("Please insert floppy disk!", MB_OKCANCEL | MB_ICONEXCLAMATION) == IDCANCEL)
        goto aborted;
      do_events();
    }
    {
      Drive a;
      check(fso.GetDrive("a", a));
      double free = 0;
      check(a.FreeSpace(free));
      if (static_cast<int64_t>(free) / 1024 < 1414) {
        if (msg_box(en ? "The floppy disk is not empty.Would you like to format it?"
                       : "Discheta nu este goala.Doriti sa o formatati?",
                    MB_OKCANCEL | MB_ICONQUESTION) == IDCANCEL)
          goto aborted;
        format_done = false;
        run_killa();
        do {  // no pause: the tool runs beside us
          do_events();
          killa_watch();
        } while (!format_done);
        file_system().DeleteFile(killa_path());  // result not looked at
      }
    }
    {
      const std::string name = fragment_name(base, i);
      if (is_nt()) {
        // The result is kept by the original and never looked at.
        move_file_with_progress(
            folder + name, "a:\\" + name,
            [this](double done, double total) {
              form_.spProg(static_cast<int16_t>(total > 0 ? done / total * 100 : 0));
            },
            MOVEFILE_COPY_ALLOWED);
        form_.picProgress.Cls();
      } else {
        fso.CopyFile(folder + name, "a:\\" + name, true);
        fso.DeleteFile(folder + name, false);
      }
    }
    if (i != count) {
      msg_box(en ? "Remove the disk in the floppy drive,insert next disk and press OK."
                 : "Scoateti discheta din unitate,inserati urmatoarea discheta si apasati OK.",
              MB_ICONINFORMATION);
    } else {
      check(fso.CopyFile(folder + (en ? "merge(" : "reface(") + file + ").bat", "a:\\", true));
      msg_box(en ? "All fragments have been copied on floppy disks\r\nTo unsplit the file,copy all "
                   "fragments in the same directory and run merge(" + file + ").bat"
                 : "Toate bucatile au fost copiate pe discheta.Pentru a reface fisierul copiati "
                   "toate bucatile in acelasi director si rulatireface(" + file + ").bat",
              MB_ICONINFORMATION);
    }
  }
  return;
aborted:
  msg_box(en ? "Process aborted!" : "Procesul a fost anulat", MB_ICONSTOP);
}

}  // namespace wh
