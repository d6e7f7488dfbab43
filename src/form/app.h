#pragma once
#include <windows.h>

namespace wh {

// Runs the program: the main form's start sequence, then the message loop.
int app_main(HINSTANCE instance);

}  // namespace wh
