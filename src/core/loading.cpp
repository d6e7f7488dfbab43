#include "core/loading.h"

#include "core/globals.h"
#include "core/settings.h"
#include "core/skin_layout.h"

namespace wh {

namespace {
Loading* instance = nullptr;  // like the main form, never destroyed at exit
LoadingAnswer* answering = nullptr;
std::function<void(int)> switch_language;  // the main form's changelanguage

void store_language(int language) {
  save_setting("Limba", language == 1 ? "engleza" : "romana");
  save_setting("mod", language == 1 ? "Uninstall programs" : "Dezinstalare programe");
  language_flag = static_cast<uint8_t>(language);
  if (switch_language) switch_language(language);
}

const char* const caption = "  Wellharrower....What do you want to harrow today?";
}  // namespace

Loading::Loading()
    // Skinned like the main window; the caption stands in its title strip.
    : Form({.class_name = "WellharrowerLoading", .caption = caption,
            .width = skin::loading_width, .height = skin::loading_height, .popup = true,
            .icon = ::LoadIconA(exe_module(), MAKEINTRESOURCEA(1))}),
      Option1(add<OptionButton>("Option1", Place{68, 104, 110, 20}, "English")),
      Option2(add<OptionButton>("Option2", Place{68, 136, 110, 20}, "Romanian")),
      en(add<ImageButton>("en", Place{28, 103, 32, 22})),
      ro(add<ImageButton>("ro", Place{28, 135, 32, 22})),
      Command1(add<ImageButton>("Command1", Place{248, 150, 96, 30})),
      title_(add<Label>("title", Place{8, 6, 344, 16}, caption,
                        Label::Options{.transparent = true, .word_wrap = false})) {
  picture(LoadPicture("LOADING_BACK"));
  title_.ForeColor(skin::text_color);
  title_.Font(FontDesc{.name = "Tahoma", .size = 8, .bold = true});
  BackColor(skin::body_color);
  for (OptionButton* o : {&Option1, &Option2}) {
    o->BackColor(skin::body_color);
    o->ForeColor(skin::text_color);
    o->Font(FontDesc{.name = "Tahoma", .size = 9, .bold = true});
  }
  en.LoadPicture("FLAG_EN");
  ro.LoadPicture("FLAG_RO");
  Command1.LoadPicture("LOADING_OK");

  // A change runs both handlers: the selected option's and the cleared one's.
  Option1.Click = [this] {
    Option1_Click();
    Option2_Click();
  };
  Option2.Click = [this] {
    Option2_Click();
    Option1_Click();
  };
  en.Click = [this] { Option1.Value(true); };
  ro.Click = [this] { Option2.Value(true); };
  Command1.Click = [this] { Command1_Click(); };
  // Closed another way (Alt+F4), it takes the language shown, as the button
  // does: the program waits for this window and shows nothing else meanwhile.
  QueryUnload = [this](int&, int) {
    first_run_done = true;
    if (instance == this) instance = nullptr;
    switch_language = nullptr;  // the form that asked may be gone by the next window
  };

  const int w = Width(), h = Height();
  Move((::GetSystemMetrics(SM_CXSCREEN) - w) / 2, (::GetSystemMetrics(SM_CYSCREEN) - h) / 2, w, h);
  Form_Load();
}

void Loading::Form_Load() { Option1.Value(true); }

void Loading::Option1_Click() { store_language(Option1.Value() ? 1 : 2); }

void Loading::Option2_Click() { store_language(Option2.Value() ? 2 : 1); }

void Loading::Command1_Click() {
  first_run_done = true;
  loading_unload();
}

Loading& loading() {
  if (!instance) instance = new Loading();
  return *instance;
}

bool loading_loaded() { return instance != nullptr; }

void loading_unload() {
  // Let go rather than deleted: the unload may come from the window's own
  // click, which the object must outlive.
  Loading* gone = instance;
  instance = nullptr;
  if (gone) gone->unload();
}

void show_loading(std::function<void(int)> changelanguage) {
  switch_language = std::move(changelanguage);
  Loading& w = loading();
  w.Show();
  if (answering) {
    ++answering->shown_;
    answering->answer_(w);
  }
}

LoadingAnswer::LoadingAnswer(std::function<void(Loading&)> answer)
    : answer_(std::move(answer)), previous_(answering) {
  answering = this;
}

LoadingAnswer::~LoadingAnswer() { answering = previous_; }

}  // namespace wh
