// The one routine of core/text.h that asks Windows; apart so that the text
// routines build on their own (tests/fuzz builds them natively).
#include <windows.h>

#include "core/text.h"

namespace wh {

char locale_decimal() {
  char buf[8] = {};
  if (GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, buf, sizeof buf) > 0 && buf[0])
    return buf[0];
  return '.';
}

}  // namespace wh
