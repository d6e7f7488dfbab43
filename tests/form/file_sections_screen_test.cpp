// Sections 10 and 4 on the real form, on the screen: a same-content search
// of a scratch tree with its results, and the disk explorer walked into a
// folder. The pictures are kept as C:\wh\artefacts\duplicates.bmp and
// disk_explorer.bmp for people to look at.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "core/globals.h"
#include "core/settings.h"
#include "support/form_test.h"
#include "support/scratch.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::ScratchDir;

namespace {

// The window as the screen shows it, as a 24-bit BMP file.
void save_window(HWND w, const std::string& path) {
  RECT r{};
  GetWindowRect(w, &r);
  const int width = r.right - r.left, height = r.bottom - r.top;
  HDC screen = GetDC(nullptr);
  HDC mem = CreateCompatibleDC(screen);
  BITMAPINFO bi{};
  bi.bmiHeader.biSize = sizeof bi.bmiHeader;
  bi.bmiHeader.biWidth = width;
  bi.bmiHeader.biHeight = height;
  bi.bmiHeader.biPlanes = 1;
  bi.bmiHeader.biBitCount = 24;
  void* bits = nullptr;
  HBITMAP dib = CreateDIBSection(screen, &bi, DIB_RGB_COLORS, &bits, nullptr, 0);
  HGDIOBJ old = SelectObject(mem, dib);
  BitBlt(mem, 0, 0, width, height, screen, r.left, r.top, SRCCOPY);
  GdiFlush();
  const DWORD row = (width * 3 + 3) & ~3u, size = row * height;
  BITMAPFILEHEADER fh{};
  fh.bfType = 0x4D42;
  fh.bfOffBits = sizeof fh + sizeof bi.bmiHeader;
  fh.bfSize = fh.bfOffBits + size;
  CreateDirectoryA("C:\\wh\\artefacts", nullptr);
  HANDLE f = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD put = 0;
  WriteFile(f, &fh, sizeof fh, &put, nullptr);
  WriteFile(f, &bi.bmiHeader, sizeof bi.bmiHeader, &put, nullptr);
  WriteFile(f, bits, size, &put, nullptr);
  CloseHandle(f);
  SelectObject(mem, old);
  DeleteObject(dib);
  DeleteDC(mem);
  ReleaseDC(nullptr, screen);
}

void settle() {
  for (int i = 0; i < 20; ++i) {
    do_events();
    Sleep(20);
  }
}

class FileSections : public test::StoreTest {
protected:
  void SetUp() override {
    StoreTest::SetUp();
    save_setting("runed", "7");  // no first-run window
  }
};

}  // namespace

TEST_F(FileSections, DuplicatesWithResultsAndTheExplorerInAFolder) {
  ScratchDir dir("screen_sections");
  const std::string photo(30000, 'p'), song(7000, 's');
  dir.file("Photos\\summer.jpg", photo);
  dir.file("Backup\\Photos\\summer (copy).jpg", photo);
  dir.file("Backup\\Photos\\summer again.jpg", photo);
  dir.file("Music\\song.mp3", song);
  dir.file("Backup\\song.mp3", song);
  dir.file("Music\\intro.mp3", std::string(900, 'i'));
  save_setting("Paths", dir.path() + "|");
  Mainu& m = start_form();
  m.Show();
  m.dupy_Click();
  auto& page = m.duplicates_page;
  page.List4.Selected(0, true);
  page.Option4.Value(true);
  page.Image36_Click(0);  // audio
  page.Image36_Click(3);  // graphics
  raise_event([&] { page.Image37_Click(); });
  EXPECT_EQ(5, page.duplicates.ListCount());
  EXPECT_TRUE(m.del.Visible());
  page.duplicates.Selected(1, true);
  page.duplicates.Selected(2, true);
  settle();
  save_window(m.hwnd(), "C:\\wh\\artefacts\\duplicates.bmp");

  m.dirinfo_Click();
  auto& disk = m.disk_page;
  disk.back.Caption(dir.path());
  disk.afisdirs(dir.path(), false);
  disk.list.ListIndex(1);
  disk.list_DblClick();  // into the largest: Backup
  EXPECT_EQ(dir / "Backup", disk.back.Caption());
  disk.list.Selected(1, true);
  settle();
  save_window(m.hwnd(), "C:\\wh\\artefacts\\disk_explorer.bmp");
}
