#pragma once
// The one way the program ends: an immediate end, no unload events, no
// saving (every setting is stored when it changes). Tests swap it for a
// hook so that an end can be seen without losing the test process.

namespace wh {

// Thrown by end_program while an EndHook is installed. Deliberately not a
// std::exception, so that no error-ignoring code swallows it.
struct ProgramEnded {
  int code;
};

// Ends the process at once with `code`. Under an EndHook it records the
// call and throws ProgramEnded instead; window procedures stop it there and
// the next do_events() rethrows it, so it climbs through every level of code
// without crossing a Win32 frame.
void end_program(int code = 0);

// Number of hooked ends so far (0 without a hook). do_events() compares it.
int hooked_end_count();
int hooked_end_code();  // of the last hooked end

// Installs itself in place of the real end; the previous one comes back
// when the scope closes. Hooks nest.
class EndHook {
public:
  EndHook();
  ~EndHook();
  EndHook(const EndHook&) = delete;
  EndHook& operator=(const EndHook&) = delete;

  bool called() const { return calls_ > 0; }
  int calls() const { return calls_; }
  int code() const { return code_; }  // of the last call

private:
  friend void end_program(int);
  EndHook* previous_;
  int calls_ = 0;
  int code_ = 0;
};

}  // namespace wh
