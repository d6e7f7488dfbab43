#pragma once
// The run-time error number a call raises; 0 when it raises none.
#include "platform/rt_error.h"

namespace wh::test {

template <class F>
long error_of(F&& f) {
  try {
    f();
  } catch (const RuntimeError& e) {
    return e.number();
  }
  return 0;
}

}  // namespace wh::test
