#include "form/hover.h"

#include "core/globals.h"
#include "core/main_form.h"

namespace wh {

namespace {
using Lines = std::vector<std::string>;

struct Help {
  const char* control;
  const char* key;
  Lines english;
  Lines romanian;
};

// `kila` and `shred` share a key: going straight from one to the other
// leaves the first one's help on the panel.
const std::vector<Help>& helps() {
  static const std::vector<Help> table = {
      {"Image1", "CLOSE", {"Close Wellharrower"}, {"Inchide Wellharrower"}},
      {"Image10", "MINIM", {"Minimise", "program to", "taskbar  left clk", "tray    right clk"},
       {"Minimizeaza", "programul in", "taskbar  click stg", "tray    click dr"}},
      {"Image11", "OPT", {"Configure Options"}, {"Configurare optiuni"}},
      {"uninstall", "DEZ", {"Uninstall", "programs"}, {"Dezinstalare", "programe"}},
      {"task", "TASK", {"Task Manager"}, {"Manager de", "  aplicatii"}},
      {"splity", "SPLIT", {"Split files"}, {"Despicare fisiere"}},
      {"dirinfo", "DIRINFO", {"Disk space", " explorer"}, {"Explorator al", " spatiului pe disc"}},
      {"kila", "KILLA", {"Wellformat ", "   a floppy disk"}, {"Wellformat ", "   o discheta"}},
      {"shred", "KILLA", {"Wellshred files"}, {"Radere fisiere"}},
      {"Image9", "viewa", {"Show content", "  of floppy disk"}, {"Arata continutul", "  dischetei"}},
      {"junk", "JUNK", {"Erase junk ", "data", "and eliminate", "all traces", "of using the PC"},
       {"Sterge fisierele ", "inutile", "si elimina", "toate urmele", "folosirii PC-ului"}},
      {"RUN", "STARTUPMANAGER", {"StartUP Manager"}, {"Manager StartUP"}},
      {"dupy", "DUPS", {"Duplicate File", "         Harrower"}, {"Gasire fisiere", "   duplicat"}},
      {"del", "DEL", {}, {}},
      {"delall", "DELALL", {}, {}},
      {"ref", "REF", {"Refresh", "list"}, {"Reimprospatare", "lista"}},
      {"PIE", "PIEM", {"Show disk usage", " 4 each application"},
       {"Arata spatiul ocupat", " de fiecare program"}},
      {"delfolder", "DELFOLDER", {"Delete the folder", " left behind by", "  an uninstaller"},
       {"Sterge directorul", " ramas in urma", "  dezinstalarii"}},
      {"frogsus", "FROG", {"Free up RAM"}, {"Elibereaza RAM"}},
      {"explorer", "EXPLORER", {"Start Explorer"}, {"Porneste Explorer"}},
      {"Check7", "ALOHA",
       {"You can unistall", "shredd or split a", "file directly from", "explorer with a",
        " right  click"},
       {"Puteti dezinstala,", "rade sau despica un", "fisier direct din", "explorer cu un",
        " click dreapta"}},
      {"Label23", "MAIL", {"Send the author", "    an e-mail !"},
       {"Trimiteti autorului", "   un e-mail !"}},
      {"Label25", "WEB", {"Visit the author's", "  website!"},
       {"Vizitati site-ul", "  autorului!"}},
      // The five mask pictures share a key: one write for the row.
      {"Image36(0)", "SHAPE", {"   Audio files"}, {"   Fisiere audio"}},
      {"Image36(1)", "SHAPE", {"   Video files"}, {"   Fisiere video"}},
      {"Image36(2)", "SHAPE", {"   Documents"}, {"   Documente"}},
      {"Image36(3)", "SHAPE", {"   Graphic files"}, {"   Fisiere grafice"}},
      {"Image36(4)", "SHAPE", {"   Other files.."}, {"   Alte fisiere.."}},
      {"Image37", "STARTSCAN", {"  Start Scan Now"}, {"  Porneste cautarea"}},
      {"Text7", "+", {"  Add new mask", " (write text and", "   press ENTER)"},
       {"  Adauga masca noua", " (scrieti textul si", "   apasati ENTER)"}},
      {"lupa", "LUPA", {"    View"}, {"    Vizualizare"}},
  };
  return table;
}

const Help* help_of(const std::string& control) {
  for (const Help& h : helps())
    if (control == h.control) return &h;
  return nullptr;
}

// What the Harrow button does in each section.
Lines del_lines(bool en, int section) {
  switch (section) {
    case 1: return en ? Lines{"Uninstall the", "selected programs"}
                      : Lines{"Dezinstaleaza", "programele alese"};
    case 2: return en ? Lines{"Close the selected", "programs"}
                      : Lines{"Inchide programele", "selectate"};
    case 3: return en ? Lines{"Split or merge", "the chosen file"}
                      : Lines{"Despica sau imbina", "fisierul ales"};
    case 4: return en ? Lines{"Delete the selected", "files and folders"}
                      : Lines{"Sterge fisierele si", "directoarele alese"};
    case 5: return en ? Lines{"Format the", "   floppy disk"} : Lines{"Formateaza", "   discheta"};
    case 6: return en ? Lines{"Shred the chosen", "file or folder"}
                      : Lines{"Rade fisierul sau", "directorul ales"};
    case 8: return en ? Lines{"Harrow the selected", "junk and traces"}
                      : Lines{"Curata categoriile", "selectate"};
    case 9: return en ? Lines{"Remove the selected", "start-up items"}
                      : Lines{"Elimina elementele", "de StartUP alese"};
    case 10: return en ? Lines{"Delete the selected", "duplicates"}
                       : Lines{"Sterge duplicatele", "selectate"};
    default: return en ? Lines{"Harrow"} : Lines{"Curata"};
  }
}

Lines delall_lines(bool en, int section) {
  if (section == 2)
    return en ? Lines{"Close all", "   programs"} : Lines{"Inchide toate", "   programele"};
  return en ? Lines{"Harrow all junk and", "   traces"} : Lines{"Curata tot: junk", "   si urme"};
}

void harrow_tip(MainForm& m) {
  m.tip_once(
      "HARROWtip",
      language_flag == 1
          ? "Presing the DELETE key or DOUBLE CLICKING(only for Uninstaler,TaskManager & "
            "StartUp)an item has the same effect as presing the Harrow button!\r\nIn SplitFiles "
            "window ,pressing SHIFT+DELETE deletes the selected item."
          : "Apasarea tastei DELETE sau DUBLUL CLICK pe un item(numai pentru "
            "Dezinstalare,TaskManager si StartUP) are acelasi efect cu apasarea butonului "
            "HARROW\r\nIn fereastra Despicare Fisiere,combinatia te taste SHIFT+DELETE are ca "
            "efect stergerea fisierului selectat.");
}
}  // namespace

std::vector<std::string> hover_lines(const std::string& control, int language, int section) {
  const bool en = language == 1;
  if (control == "del") return del_lines(en, section);
  if (control == "delall") return delall_lines(en, section);
  const Help* h = help_of(control);
  if (!h) return {};
  return en ? h->english : h->romanian;
}

std::string hover_key(const std::string& control) {
  const Help* h = help_of(control);
  return h ? h->key : std::string();
}

void hover(MainForm& m, const std::string& control) {
  const std::string key = hover_key(control);
  if (key.empty() || m.lighton == key) return;
  m.show_help(key, hover_lines(control, language_flag, ActiveSection));
  if (key == "DEL") harrow_tip(m);
}

void wire_hover(MainForm& m) {
  for (const Help& h : helps()) {
    Control* c = m.find(h.control);
    if (!c) continue;
    const std::string control = h.control;
    // A page's own handler (a tip, a tool tip) runs after the help.
    MouseEvent own = c->MouseMove;
    c->MouseMove = [&m, control, own](int b, int s, int x, int y) {
      hover(m, control);
      if (own) own(b, s, x, y);
    };
  }
}

}  // namespace wh
