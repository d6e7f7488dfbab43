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

}  // namespace wh
