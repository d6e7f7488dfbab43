#include "ui/end.h"

#include <windows.h>

namespace wh {

namespace {
EndHook* hook = nullptr;
int hooked_ends = 0;
int last_code = 0;
}  // namespace

void end_program(int code) {
  if (hook) {
    ++hook->calls_;
    hook->code_ = code;
    ++hooked_ends;
    last_code = code;
    throw ProgramEnded{code};
  }
  // No unload events and no waiting for timers: the process just stops.
  ::ExitProcess(static_cast<UINT>(code));
}

int hooked_end_count() { return hooked_ends; }

int hooked_end_code() { return last_code; }

EndHook::EndHook() : previous_(hook) { hook = this; }

EndHook::~EndHook() { hook = previous_; }

}  // namespace wh
