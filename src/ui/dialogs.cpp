#include "ui/dialogs.h"

#include <windows.h>

#include <utility>

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

DialogService& dialogs() { return *current; }

int msg_box(const std::string& text, unsigned style, const std::string& title) {
  return current->msg_box(text, style, title);
}

DialogScope::DialogScope(DialogService& service) : previous_(current) { current = &service; }

DialogScope::~DialogScope() { current = previous_; }

ScriptedDialogs::ScriptedDialogs(std::vector<int> answers, int fallback)
    : answers_(std::move(answers)), fallback_(fallback) {}

int ScriptedDialogs::msg_box(const std::string& text, unsigned style, const std::string& title) {
  boxes_.push_back({text, style, title});
  return next_ < answers_.size() ? answers_[next_++] : fallback_;
}

}  // namespace wh
