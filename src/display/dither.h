#pragma once
#include <windows.h>

namespace wh {

// Burkes error diffusion of `bitmap` to two colours (black and the panel's
// lit blue), in place. `progress` becomes 3, 10 and 100 as the work goes;
// window events are pumped on the way, and a call made during such a pump
// returns at once. Failures are raised to the caller.
void dither_picture(HBITMAP bitmap, int level, int& progress);

}  // namespace wh
