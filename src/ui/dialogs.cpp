#include "ui/dialogs.h"

#include <windows.h>

#include <utility>

#include "platform/shell.h"

namespace wh {

namespace {
SystemDialogs system_dialogs;
DialogService* current = &system_dialogs;
}  // namespace

int SystemDialogs::msg_box(const std::string& text, unsigned style, const std::string& title) {
  // Owned by the active window so that the box stays above it; null when
  // the program has none showing (tray mode), which gives a desktop box.
  return ::MessageBoxA(::GetActiveWindow(), text.c_str(), title.c_str(), style);
}

std::string DialogService::browse_folder(const std::string& title, const std::string& start) {
  return shell_browse_folder(::GetActiveWindow(), title, start);
}

int DialogService::popup_menu(HMENU menu, HWND owner) {
  // The owner in front, or the menu would not close on a click elsewhere;
  // the posted message lets the menu's loop see that it has ended.
  POINT at{};
  ::GetCursorPos(&at);
  ::SetForegroundWindow(owner);
  int id = static_cast<int>(::TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y,
                                             0, owner, nullptr));
  ::PostMessageA(owner, WM_NULL, 0, 0);
  return id;
}

DialogService& dialogs() { return *current; }

int msg_box(const std::string& text, unsigned style, const std::string& title) {
  return current->msg_box(text, style, title);
}

std::string browse_folder(const std::string& title, const std::string& start) {
  return current->browse_folder(title, start);
}

DialogScope::DialogScope(DialogService& service) : previous_(current) { current = &service; }

DialogScope::~DialogScope() { current = previous_; }

ScriptedDialogs::ScriptedDialogs(std::vector<int> answers, int fallback)
    : answers_(std::move(answers)), fallback_(fallback) {}

int ScriptedDialogs::msg_box(const std::string& text, unsigned style, const std::string& title) {
  boxes_.push_back({text, style, title});
  return next_ < answers_.size() ? answers_[next_++] : fallback_;
}

std::string ScriptedDialogs::browse_folder(const std::string& title, const std::string&) {
  folder_titles.push_back(title);
  return folder_titles.size() <= folders.size() ? folders[folder_titles.size() - 1] : std::string();
}

int ScriptedDialogs::popup_menu(HMENU menu, HWND) {
  menus_.push_back(menu);
  return next_item_ < items_.size() ? items_[next_item_++] : 0;
}

}  // namespace wh
