#include "platform/clipboard.h"

#include <cstring>

#include "platform/rt_error.h"

namespace wh {

bool open_clipboard(HWND owner) { return OpenClipboard(owner) != 0; }
bool empty_clipboard() { return EmptyClipboard() != 0; }
bool close_clipboard() { return CloseClipboard() != 0; }

int clipboard_set_text(const std::string& text, HWND owner) {
  ClipboardLock lock(owner);
  if (!lock.is_open()) return rt_permission_denied;
  if (!empty_clipboard()) return rt_permission_denied;
  HGLOBAL mem = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
  if (!mem) return rt_out_of_memory;
  void* p = GlobalLock(mem);
  if (!p) {
    GlobalFree(mem);
    return rt_out_of_memory;
  }
  std::memcpy(p, text.c_str(), text.size() + 1);
  GlobalUnlock(mem);
  // On success the clipboard owns the memory; on failure it is still ours.
  if (!SetClipboardData(CF_TEXT, mem)) {
    GlobalFree(mem);
    return rt_permission_denied;
  }
  return rt_ok;
}

int clipboard_get_text(std::string& text, HWND owner) {
  text.clear();
  ClipboardLock lock(owner);
  if (!lock.is_open()) return rt_permission_denied;
  HANDLE data = GetClipboardData(CF_TEXT);
  if (!data) return rt_ok;
  const char* p = static_cast<const char*>(GlobalLock(data));
  if (!p) return rt_ok;
  // The block may be larger than the text and need not end in a NUL.
  SIZE_T size = GlobalSize(data);
  SIZE_T n = 0;
  while (n < size && p[n]) ++n;
  text.assign(p, n);
  GlobalUnlock(data);
  return rt_ok;
}

bool clipboard_has_format(UINT format) { return IsClipboardFormatAvailable(format) != 0; }

int clipboard_get_bitmap(HBITMAP& copy, HWND owner) {
  copy = nullptr;
  ClipboardLock lock(owner);
  if (!lock.is_open()) return rt_permission_denied;
  // The clipboard keeps its handle: the picture gets a copy of its own.
  auto bitmap = static_cast<HBITMAP>(GetClipboardData(CF_BITMAP));
  if (bitmap) copy = static_cast<HBITMAP>(CopyImage(bitmap, IMAGE_BITMAP, 0, 0, 0));
  return rt_ok;
}

}  // namespace wh
