#include "core/rnd.h"

namespace wh {

double rnd() {
  static Rnd generator;
  return generator.next();
}

}  // namespace wh
