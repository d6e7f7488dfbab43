#pragma once
// The first-run window: the language to work in. Its choice also decides the
// section shown after the start ("mod").
#include <functional>

#include "ui/ui.h"

namespace wh {

class Loading : public Form {
public:
  Loading();
  // Selects Option1, which runs its handler.
  void Form_Load();

  OptionButton& Option1;  // English
  OptionButton& Option2;  // Romanian
  ImageButton& en;        // their flags
  ImageButton& ro;
  ImageButton& Command1;

  // Mirror images: the selected option stores its language, the cleared one
  // stores the other's; both run at each change.
  void Option1_Click();
  void Option2_Click();
  // Sets first_run_done and unloads.
  void Command1_Click();

private:
  Label& title_;
};

// Loaded on first use.
Loading& loading();
bool loading_loaded();
void loading_unload();

// Shows the window for the first-run wait; the caller then waits for
// first_run_done. Each language picked is stored and handed to
// `changelanguage`.
void show_loading(std::function<void(int)> changelanguage);

// Tests answer the window without a click: while a scope lives, each window
// that show_loading() puts up is handed to `answer` at once.
class LoadingAnswer {
public:
  explicit LoadingAnswer(std::function<void(Loading&)> answer);
  ~LoadingAnswer();
  LoadingAnswer(const LoadingAnswer&) = delete;
  LoadingAnswer& operator=(const LoadingAnswer&) = delete;
  int shown() const { return shown_; }

private:
  friend void show_loading(std::function<void(int)>);
  std::function<void(Loading&)> answer_;
  LoadingAnswer* previous_;
  int shown_ = 0;
};

}  // namespace wh
