#pragma once
// The program's random numbers: uniform in [0, 1), never seeded, so every run
// of the program draws the same sequence.
#include <random>

namespace wh {

class Rnd {
public:
  double next() {
    // minstd gives 1..2^31-2; shift to 0..2^31-3 and scale below 1.
    return static_cast<double>(engine_() - 1) / 2147483646.0;
  }

private:
  std::minstd_rand engine_;  // default state, the same every run
};

// The one generator of the process.
double rnd();

}  // namespace wh
