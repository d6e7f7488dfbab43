#include "form/app.h"

#include "form/mainu.h"
#include "platform/rt_error.h"
#include "ui/events.h"

namespace wh {

int app_main(HINSTANCE) {
  // The form's first event is the whole start; an error that leaves it is an
  // unhandled run-time error, as it would be in any event.
  try {
    mainu().Form_Initialize();
  } catch (const RuntimeError& e) {
    runtime_error_end(e.number(), e.what());
  }
  return message_loop();
}

}  // namespace wh
