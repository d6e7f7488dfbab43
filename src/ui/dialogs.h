#pragma once
// Message boxes go through one service, so that tests can script answers.
// Answers are the platform's: IDOK 1, IDCANCEL 2, IDYES 6, IDNO 7.
#include <string>
#include <vector>

namespace wh {

class DialogService {
public:
  virtual ~DialogService() = default;
  virtual int msg_box(const std::string& text, unsigned style, const std::string& title) = 0;
  // The folder dialog: the chosen folder, "" when cancelled. The system's
  // unless a service answers it.
  virtual std::string browse_folder(const std::string& title, const std::string& start);
};

// MessageBoxA, owned by the active window of this thread.
class SystemDialogs : public DialogService {
public:
  int msg_box(const std::string& text, unsigned style, const std::string& title) override;
};

// The service in use: the system one unless a scope replaced it.
DialogService& dialogs();

// Style: MB_* flags; title: the program's title unless given.
int msg_box(const std::string& text, unsigned style = 0,
            const std::string& title = "Wellharrower");

// The folder dialog of the service in use.
std::string browse_folder(const std::string& title, const std::string& start = {});

// Puts `service` in place for the life of the scope.
class DialogScope {
public:
  explicit DialogScope(DialogService& service);
  ~DialogScope();
  DialogScope(const DialogScope&) = delete;
  DialogScope& operator=(const DialogScope&) = delete;

private:
  DialogService* previous_;
};

// Records every box and answers from a script, in order; `fallback` once
// the script has run out. Installs itself while it lives, so that test code
// in any folder can use it.
class ScriptedDialogs : public DialogService {
public:
  struct Box {
    std::string text;
    unsigned style;
    std::string title;
  };

  explicit ScriptedDialogs(std::vector<int> answers = {}, int fallback = 1);
  ~ScriptedDialogs() override = default;

  int msg_box(const std::string& text, unsigned style, const std::string& title) override;
  // Answers the folder dialogs in order from `folders` ("" is a cancel; a
  // cancel once they have run out); their titles are kept.
  std::string browse_folder(const std::string& title, const std::string& start) override;
  std::vector<std::string> folders;
  std::vector<std::string> folder_titles;

  void answer(int id) { answers_.push_back(id); }
  const std::vector<Box>& boxes() const { return boxes_; }
  size_t count() const { return boxes_.size(); }
  const Box& last() const { return boxes_.back(); }

private:
  std::vector<int> answers_;
  size_t next_ = 0;
  int fallback_;
  std::vector<Box> boxes_;
  DialogScope scope_{*this};
};

}  // namespace wh
