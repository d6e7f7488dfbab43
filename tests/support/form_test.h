#pragma once
// The main form in-process: each test starts from an empty key store and
// leaves none behind (the end-to-end tests of this binary start the real
// program on the same store).
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/globals.h"
#include "core/loading.h"
#include "form/mainu.h"
#include "core/poweroff.h"
#include "core/routines.h"
#include "core/settings.h"
#include "platform/registry.h"

namespace wh::test {

inline const char* const run_key = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

inline std::string run_value() {
  return reg_get_value(HKEY_LOCAL_MACHINE, run_key, "Wellharrower", "<none>");
}

inline bool topmost(HWND w) { return (GetWindowLongA(w, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }

// Whether a button shows the picture of a resource, pixel for pixel.
inline bool shows(const ImageButton& b, const char* resource) {
  auto pixels = [](const Picture& pic) {
    BITMAP bm{};
    if (pic) GetObjectA(pic->get(), sizeof bm, &bm);
    BITMAPINFO bi{};
    BITMAPINFOHEADER& h = bi.bmiHeader;
    h.biSize = sizeof h;
    h.biWidth = bm.bmWidth;
    h.biHeight = bm.bmHeight;
    h.biPlanes = 1;
    h.biBitCount = 32;
    std::vector<unsigned char> out(static_cast<size_t>(bm.bmWidth) * bm.bmHeight * 4);
    HDC dc = GetDC(nullptr);
    if (pic) GetDIBits(dc, pic->get(), 0, bm.bmHeight, out.data(), &bi, DIB_RGB_COLORS);
    ReleaseDC(nullptr, dc);
    return out;
  };
  return pixels(b.picture()) == pixels(LoadPicture(resource));
}

class StoreTest : public ::testing::Test {
protected:
  // A first run (the store is empty) takes the first-run window's English.
  LoadingAnswer first_run{[](Loading& w) { w.Command1_Click(); }};
  void SetUp() override {
    wipe();
    mainu_clear();
    ActiveSection = 0;
    language_flag = 0;
  }
  void TearDown() override {
    if (poweroff_loaded()) poweroff_unload();
    mainu_clear();
    wipe();
    do_events();
  }
  static void wipe() {
    reg_delete_tree(HKEY_CURRENT_USER, "Software\\Wellharrower");
    reg_delete_value(HKEY_LOCAL_MACHINE, run_key, "Wellharrower");
  }
  // A new form brought up by the ordinary start, inside an event as
  // Form_Initialize runs it.
  Mainu& start_form() {
    mainu_clear();
    Mainu& m = mainu();
    raise_event([&] { m.ordinary_start(); });
    return m;
  }

  // An error that escapes a handler shows its box here and ends through the
  // hook, which fails the test instead of waiting for a click.
  ScriptedDialogs boxes;
  EndHook end;
};

}  // namespace wh::test
