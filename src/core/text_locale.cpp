// The one routine of core/text.h that asks Windows; apart so that the text
// routines build on their own (tests/fuzz builds them natively).
#include <windows.h>

#include "core/text.h"
#include "platform/utf8.h"

namespace wh {

char locale_decimal() {
  char buf[8] = {};
  // One byte stands for the symbol: when its first character takes more
  // (a symbol outside ASCII in UTF-8), that byte alone would be no
  // character at all, and the point stands in.
  if (GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, buf, sizeof buf) > 0 && buf[0] &&
      utf8::char_size(buf, 0) == 1)
    return buf[0];
  return '.';
}

}  // namespace wh
