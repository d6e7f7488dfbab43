// The product: everything lives in the wh library, shared with the tests.
#include <windows.h>

#include "form/app.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  return wh::app_main(instance);
}
