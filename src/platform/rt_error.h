#pragma once
// Run-time errors, the one convention of the whole program:
//  - platform wrappers return an error number (0 = fine) and never throw;
//  - code that lets errors pass to its caller calls raise() / check();
//  - code that ignores errors wraps each statement in ignore_errors();
//  - the form's message dispatch catches what is left, shows the run-time
//    error box and ends the program (ui/form.cpp).
#include <stdexcept>
#include <string>
#include <utility>

namespace wh {

// The numbers the program tests.
enum rt : int {
  rt_ok = 0,
  rt_invalid_call = 5,
  rt_overflow = 6,
  rt_out_of_memory = 7,
  rt_subscript = 9,
  rt_type_mismatch = 13,
  rt_bad_file_name_or_number = 52,
  rt_file_not_found = 53,
  rt_bad_file_mode = 54,
  rt_file_already_open = 55,
  rt_device_io = 57,
  rt_file_exists = 58,
  rt_disk_full = 61,
  rt_input_past_end = 62,
  rt_bad_record_number = 63,
  rt_too_many_files = 67,
  rt_device_unavailable = 68,
  rt_permission_denied = 70,
  rt_disk_not_ready = 71,
  rt_path_file_access = 75,
  rt_path_not_found = 76,
  rt_object_not_set = 91,
  rt_invalid_property = 380,
  rt_set_not_at_runtime = 382,
  rt_cannot_create_object = 429,
  rt_no_such_member = 438,
  rt_automation = 440,
};

// The platform's text for a run-time error number.
const char* rt_text(int number);

class RuntimeError : public std::runtime_error {
public:
  explicit RuntimeError(int number, std::string text = {})
      : std::runtime_error(text.empty() ? rt_text(number) : text), number_(number) {}
  int number() const noexcept { return number_; }

private:
  int number_;
};

[[noreturn]] inline void raise(int number, std::string text = {}) {
  throw RuntimeError(number, std::move(text));
}

// Turns a wrapper's error number into a raised error.
inline void check(int number) {
  if (number != 0) raise(number);
}

// One statement under "errors ignored": a failure is dropped, the next runs.
// Returns the error number, 0 when the statement went through.
template <class F>
int ignore_errors(F&& statement) {
  try {
    statement();
    return 0;
  } catch (const RuntimeError& e) {
    return e.number();
  } catch (const std::out_of_range&) {
    return rt_subscript;
  } catch (const std::bad_alloc&) {
    return rt_out_of_memory;
  }
}

}  // namespace wh
