#include "monitor/select_folder.h"

#include "core/globals.h"
#include "core/settings.h"

namespace wh {

namespace {
bool english() { return language_flag == 1; }
}  // namespace

std::string browse_for_folder(const std::string& title, const std::string& start) {
  std::string path = browse_folder(title, start);
  if (!path.empty() && path.back() == '\\') path.pop_back();
  return path;
}

SelectFolder::SelectFolder(MainForm& main, PowerSchedule& schedule)
    : Form({.class_name = "WellharrowerSelectFolder", .width = 360, .height = 250,
            .tool_window = true, .owner = main.hwnd()}),
      List1(add<ListBox>("List1", Place{8, 8, 260, 200},
                         ListBox::Options{.multi_select = multi_extended})),
      Image34(add<ImageButton>("Image34", Place{278, 8, 64, 30})),
      Image35(add<ImageButton>("Image35", Place{278, 44, 64, 30})),
      main_(main),
      schedule_(schedule) {
  BackColor(skin::body_color);
  Image34.LoadPicture("ADDF");
  Image35.LoadPicture("SUBF");
  Image34.Click = [this] { Image34_Click(); };
  Image35.Click = [this] { Image35_Click(); };
  Image34.MouseMove = [this](int, int, int, int) {
    main_.show_help("ADDF", english() ? std::vector<std::string>{"Add folder", "       to list"}
                                      : std::vector<std::string>{"Adauga director", "     in lista"});
  };
  Image35.MouseMove = [this](int, int, int, int) {
    main_.show_help("SUBF", english() ? std::vector<std::string>{"Delete folder", "     from list"}
                                      : std::vector<std::string>{"Sterge director", "     din lista"});
  };
}

void SelectFolder::Form_Load() {
  Caption(english() ? "What folders do you want Wellharrower to monitor?"
                    : "Ce directoare vreti Wellharrower sa monitorizeze?");
  const std::string joined = setting("Paths2");
  List1.Clear();
  for (const std::string& folder : folder_list(joined)) List1.AddItem(folder);
  schedule_.set_folders(joined);
}

void SelectFolder::Image34_Click() {
  const std::string folder =
      browse_for_folder(english() ? "Select a folder" : "Alegeti directorul", {});
  if (!folder.empty()) List1.AddItem(folder);
  save();
}

void SelectFolder::Image35_Click() {
  for (int i = List1.ListCount() - 1; i >= 0; --i)
    if (List1.Selected(i)) List1.RemoveItem(i);
  save();
}

void SelectFolder::save() {
  std::string joined;
  for (int i = 0; i < List1.ListCount(); ++i) joined += List1.List(i) + "|";
  save_setting("Paths2", joined);
  schedule_.set_folders(joined);
}

}  // namespace wh
