// Section 8's plug-ins: automation components kept in "JunkHarrower
// Plugins" beside the program, each made by its file's base name + ".Plugin"
// and reached late-bound through `Description` and `RUN`. Nothing about
// them is stored: the folder is read at each load.
#include "cleaning/junk_page.h"

#include <string>
#include <vector>

#include "core/globals.h"
#include "core/routines.h"
#include "platform/automation.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/rt_error.h"

namespace wh {

namespace {
// Split at "|": an empty text has no parts.
std::vector<std::string> description_lines(const std::string& text) {
  std::vector<std::string> parts;
  if (text.empty()) return parts;
  size_t start = 0;
  for (size_t bar; (bar = text.find('|', start)) != std::string::npos; start = bar + 1)
    parts.push_back(text.substr(start, bar - start));
  parts.push_back(text.substr(start));
  return parts;
}
}  // namespace

void JunkPage::wire_plugins() {
  Image22.LoadPicture("PLUGINS_NONE");
  Image23.LoadPicture("PLUGINS_FOUND");
  Picture14.LoadPicture("PLUGINS_CLOSE");
  showplugins.Click = [this] { showplugins_Click(); };
  showplugins.MouseMove = [this](int, int, int, int) { showplugins_MouseMove(); };
  pluginlist.MouseMove = [this](int, int, int, int y) { pluginlist_MouseMove(y); };
  Picture14.Click = [this] { Picture14_Click(); };
}

bool JunkPage::scan_plugins() {
  FileSystemObject& fso = file_system();
  const std::string folder = app_path() + "\\JunkHarrower Plugins";
  if (!fso.FolderExists(folder)) return false;
  bool found = false;
  Folder plugin_folder;
  wh::check(fso.GetFolder(folder, plugin_folder));
  for (const File& file : plugin_folder.Files()) {
    ignore_errors([&] {
      const std::string base = fso.GetBaseName(file.Name);
      for (;;) {
        AutomationObject plugin;
        if (plugin.create(base + ".Plugin") == rt_ok) {
          pluginlist.AddItem(base);
          found = true;
          return;
        }
        // Only the first unknown file of a start is registered: the mark is
        // never cleared.
        if (plugin_retried_) return;
        register_component(form_.hwnd(), file.Path, true);
        plugin_retried_ = true;
      }
    });
  }
  return found;
}

void JunkPage::run_plugins() {
  // A failing plug-in stops the whole run, before the lists are emptied.
  for (int row = 0; row < pluginlist.ListCount(); ++row) {
    if (!pluginlist.Selected(row)) continue;
    AutomationObject plugin;
    wh::check(plugin.create(pluginlist.List(row) + ".Plugin"));
    wh::check(plugin.call("RUN"));
  }
}

void JunkPage::showplugins_Click() {
  if (pluginlist.ListCount() == 0) form_.load_settings();
  plugins.Visible(true);
}

void JunkPage::Picture14_Click() { plugins.Visible(false); }

void JunkPage::showplugins_MouseMove() {
  if (form_.lighton == "SHOWPLUGIN") return;
  const int count = pluginlist.ListCount();
  form_.lcd.Clear();
  form_.lcd.WriteText("      Plugins");
  if (language_flag == 1)
    form_.lcd.WriteText(" " + std::to_string(count) + " installed");
  else
    form_.lcd.WriteText(count == 1 ? " 1 instalat" : " " + std::to_string(count) + " instalate");
  form_.lighton = "SHOWPLUGIN";
}

void JunkPage::pluginlist_MouseMove(int y) {
  const int height = pluginlist.TextHeight("Xyz");
  if (height <= 0) return;
  const int row = pluginlist.TopIndex() + y / height;
  if (row >= pluginlist.ListCount()) {
    form_.lighton = "MAINU";
    return;
  }
  const std::string name = pluginlist.List(row);
  if (name == form_.lighton) return;
  // Made anew for every line: a plug-in keeps no state between calls.
  AutomationObject plugin;
  std::string description;
  ignore_errors([&] { wh::check(plugin.create(name + ".Plugin")); });
  ignore_errors([&] { wh::check(plugin.get_text("Description", description)); });
  form_.lcd.Clear();
  for (const std::string& line : description_lines(description)) form_.lcd.WriteText(line);
  plugin.release();
  form_.lighton = name;
}

}  // namespace wh
