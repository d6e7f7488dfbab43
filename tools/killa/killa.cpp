// killa: empties the diskette in drive A. No arguments. It prints what it
// does in its own small text window and, when done, puts "Inactive" in its
// title and stays open; Wellharrower watches for that title and ends it.
//
// On a real floppy device it writes a fresh, empty FAT12 file system through
// the raw device (boot sector, both FATs, root folder), which is what a quick
// format does. Where A: is no floppy device (a folder mapped as A:, as Wine
// allows) it deletes everything on the drive instead.
#include <windows.h>
#include <winioctl.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

const char* const title_busy = "KILLA";
const char* const title_done = "KILLA - Inactive";
constexpr UINT start_message = WM_APP + 1;

std::vector<std::string> lines;
HWND window = nullptr;

void print(const std::string& text) {
  lines.push_back(text);
  if (window) {
    InvalidateRect(window, nullptr, TRUE);
    UpdateWindow(window);
  }
}

// The controller's failures, told as the BIOS would.
const char* failure_text(DWORD error) {
  switch (error) {
    case ERROR_INVALID_FUNCTION:
    case ERROR_BAD_COMMAND:
    case ERROR_NOT_SUPPORTED: return "ERROR: invalid request to controller !";
    case ERROR_WRITE_PROTECT: return "ERROR: Attempted to write on write-protected diskette !";
    case ERROR_SECTOR_NOT_FOUND: return "ERROR: Sector ID bad or not found !";
    case ERROR_CRC: return "ERROR: invalid CRC when data checked !";
    case ERROR_SEEK: return "Bad seek ! Requested track not found !";
    case ERROR_NOT_READY:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_FILE_NOT_FOUND: return "ERROR: Drive not ready !";
    case ERROR_GEN_FAILURE: return "ERROR: Controller failure !";
    case ERROR_IO_DEVICE: return "ERROR: Reset failed !";
    case ERROR_READ_FAULT: return "ERROR: Sense operation failed !";
    case ERROR_WRITE_FAULT: return "ERROR: Bad address mark !";
    default: return "ERROR: Unknown error !";
  }
}

// The layout of an empty FAT12 diskette of each standard size.
struct Layout {
  MEDIA_TYPE media;
  WORD sectors;  // total
  BYTE per_cluster;
  WORD root_entries;
  WORD fat_sectors;
  BYTE descriptor;
  WORD per_track;
};
const Layout layouts[] = {
    {F3_1Pt44_512, 2880, 1, 224, 9, 0xF0, 18}, {F3_2Pt88_512, 5760, 2, 240, 9, 0xF0, 36},
    {F3_720_512, 1440, 2, 112, 3, 0xF9, 9},    {F5_1Pt2_512, 2400, 1, 224, 7, 0xF9, 15},
    {F5_360_512, 720, 2, 112, 2, 0xFD, 9},
};

void put16(BYTE* p, WORD v) { p[0] = BYTE(v), p[1] = BYTE(v >> 8); }
void put32(BYTE* p, DWORD v) { put16(p, WORD(v)), put16(p + 2, WORD(v >> 16)); }

// Boot sector, two FATs and the root folder: everything a directory walk
// reads. The data area is left as it is, unreachable.
std::vector<BYTE> system_area(const Layout& l) {
  const WORD root_sectors = WORD(l.root_entries * 32 / 512);
  std::vector<BYTE> image(size_t(1 + 2 * l.fat_sectors + root_sectors) * 512, 0);
  BYTE* b = image.data();
  const BYTE jump[] = {0xEB, 0x3C, 0x90};
  std::memcpy(b, jump, 3);
  std::memcpy(b + 3, "KILLA1.0", 8);
  put16(b + 0x0B, 512);
  b[0x0D] = l.per_cluster;
  put16(b + 0x0E, 1);  // reserved: the boot sector
  b[0x10] = 2;
  put16(b + 0x11, l.root_entries);
  put16(b + 0x13, l.sectors);
  b[0x15] = l.descriptor;
  put16(b + 0x16, l.fat_sectors);
  put16(b + 0x18, l.per_track);
  put16(b + 0x1A, 2);  // heads
  b[0x26] = 0x29;
  put32(b + 0x27, GetTickCount());  // serial
  std::memcpy(b + 0x2B, "NO NAME    ", 11);
  std::memcpy(b + 0x36, "FAT12   ", 8);
  // Not a system disk: the code asks the BIOS for the next boot device.
  b[0x3E] = 0xCD, b[0x3F] = 0x18;
  b[0x1FE] = 0x55, b[0x1FF] = 0xAA;
  for (int fat = 0; fat < 2; ++fat) {
    BYTE* f = b + 512 * (1 + fat * l.fat_sectors);
    f[0] = l.descriptor, f[1] = 0xFF, f[2] = 0xFF;
  }
  return image;
}

// The raw device, when A: is a floppy drive with a known diskette in it.
// 0 when it is no floppy device; otherwise the Win32 error or ERROR_SUCCESS
// once written.
DWORD format_device(bool& is_floppy) {
  is_floppy = false;
  HANDLE h = CreateFileA("\\\\.\\A:", GENERIC_READ | GENERIC_WRITE,
                         FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  if (h == INVALID_HANDLE_VALUE) return 0;
  DISK_GEOMETRY g{};
  DWORD got = 0;
  const Layout* layout = nullptr;
  if (DeviceIoControl(h, IOCTL_DISK_GET_DRIVE_GEOMETRY, nullptr, 0, &g, sizeof g, &got, nullptr))
    for (const Layout& l : layouts)
      if (l.media == g.MediaType) layout = &l;
  if (!layout) {
    CloseHandle(h);
    return 0;
  }
  is_floppy = true;
  DWORD error = ERROR_SUCCESS;
  // Sectors of a mounted volume can only be written once it is locked; when
  // something holds a file open the lock fails, and a forced dismount lets
  // the writes through.
  const bool locked = DeviceIoControl(h, FSCTL_LOCK_VOLUME, nullptr, 0, nullptr, 0, &got, nullptr);
  if (!locked) DeviceIoControl(h, FSCTL_DISMOUNT_VOLUME, nullptr, 0, nullptr, 0, &got, nullptr);
  const std::vector<BYTE> image = system_area(*layout);
  DWORD wrote = 0;
  if (!WriteFile(h, image.data(), DWORD(image.size()), &wrote, nullptr) || wrote != image.size())
    error = GetLastError() ? GetLastError() : ERROR_WRITE_FAULT;
  // The file system still thinks it knows the disk: make it read it again.
  DeviceIoControl(h, FSCTL_DISMOUNT_VOLUME, nullptr, 0, nullptr, 0, &got, nullptr);
  if (locked) DeviceIoControl(h, FSCTL_UNLOCK_VOLUME, nullptr, 0, nullptr, 0, &got, nullptr);
  CloseHandle(h);
  return error;
}

// Everything under a folder, read-only or not. The first failure wins.
DWORD delete_tree(const std::string& folder) {
  DWORD error = ERROR_SUCCESS;
  WIN32_FIND_DATAA fd;
  HANDLE f = FindFirstFileA((folder + "*").c_str(), &fd);
  if (f == INVALID_HANDLE_VALUE) {
    DWORD e = GetLastError();
    return e == ERROR_FILE_NOT_FOUND || e == ERROR_NO_MORE_FILES ? ERROR_SUCCESS : e;
  }
  do {
    const std::string name = fd.cFileName;
    if (name == "." || name == "..") continue;
    const std::string path = folder + name;
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    bool ok;
    if (fd.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
      DWORD inner = delete_tree(path + "\\");
      if (inner && !error) error = inner;
      ok = RemoveDirectoryA(path.c_str());
    } else {
      ok = DeleteFileA(path.c_str());
    }
    if (!ok && !error) error = GetLastError();
  } while (FindNextFileA(f, &fd));
  FindClose(f);
  return error;
}

void kill_diskette() {
  LARGE_INTEGER freq, t0, t1;
  QueryPerformanceFrequency(&freq);
  QueryPerformanceCounter(&t0);
  print("Killing diskette in drive A ...");
  // The device first: a diskette that was never formatted has no root
  // folder to look at, and is just what a format is for.
  bool is_floppy = false;
  DWORD error = format_device(is_floppy);
  if (!is_floppy)
    error = GetFileAttributesA("A:\\") == INVALID_FILE_ATTRIBUTES ? ERROR_NOT_READY
                                                                  : delete_tree("A:\\");
  QueryPerformanceCounter(&t1);
  if (error != ERROR_SUCCESS) {
    print(failure_text(error));
  } else {
    char done[64];
    std::snprintf(done, sizeof done, "Done! (in %.3f sec)",
                  double(t1.QuadPart - t0.QuadPart) / double(freq.QuadPart));
    print(done);
  }
  SetWindowTextA(window, title_done);
}

LRESULT CALLBACK window_proc(HWND w, UINT msg, WPARAM wp, LPARAM lp) {
  switch (msg) {
    case start_message:
      kill_diskette();
      return 0;
    case WM_PAINT: {
      PAINTSTRUCT ps;
      HDC dc = BeginPaint(w, &ps);
      HGDIOBJ old = SelectObject(dc, GetStockObject(ANSI_FIXED_FONT));
      SetBkColor(dc, RGB(0, 0, 0));
      SetTextColor(dc, RGB(192, 192, 192));
      TEXTMETRICA tm;
      GetTextMetricsA(dc, &tm);
      int y = 4;
      for (const std::string& line : lines) {
        TextOutA(dc, 4, y, line.c_str(), int(line.size()));
        y += tm.tmHeight;
      }
      SelectObject(dc, old);
      EndPaint(w, &ps);
      return 0;
    }
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
  }
  return DefWindowProcA(w, msg, wp, lp);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
  WNDCLASSA wc{};
  wc.lpfnWndProc = window_proc;
  wc.hInstance = instance;
  wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
  wc.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
  wc.lpszClassName = "KillaConsole";
  RegisterClassA(&wc);
  window = CreateWindowA("KillaConsole", title_busy, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                         CW_USEDEFAULT, 420, 160, nullptr, nullptr, instance, nullptr);
  if (!window) return 1;
  // Started minimised and without focus by Wellharrower: keep it that way.
  ShowWindow(window, show);
  PostMessageA(window, start_message, 0, 0);
  MSG m;
  while (GetMessageA(&m, nullptr, 0, 0) > 0) {
    TranslateMessage(&m);
    DispatchMessageA(&m);
  }
  return 0;
}
