#include "platform/clipboard.h"

#include <cstring>

#include "platform/code_pages.h"
#include "platform/rt_error.h"

namespace wh {

bool open_clipboard(HWND owner) { return OpenClipboard(owner) != 0; }
bool empty_clipboard() { return EmptyClipboard() != 0; }
bool close_clipboard() { return CloseClipboard() != 0; }

// Text goes as CF_UNICODETEXT: the CF_TEXT that Windows makes from it for
// others, and for us, takes the clipboard locale's code page, not ours, and
// loses every letter outside it.
int clipboard_set_text(const std::string& text, HWND owner) {
  ClipboardLock lock(owner);
  if (!lock.is_open()) return rt_permission_denied;
  if (!empty_clipboard()) return rt_permission_denied;
  const std::wstring wide = wide_text(text);
  const SIZE_T bytes = (wide.size() + 1) * sizeof(wchar_t);
  HGLOBAL mem = GlobalAlloc(GMEM_MOVEABLE, bytes);
  if (!mem) return rt_out_of_memory;
  void* p = GlobalLock(mem);
  if (!p) {
    GlobalFree(mem);
    return rt_out_of_memory;
  }
  std::memcpy(p, wide.c_str(), bytes);
  GlobalUnlock(mem);
  // On success the clipboard owns the memory; on failure it is still ours.
  if (!SetClipboardData(CF_UNICODETEXT, mem)) {
    GlobalFree(mem);
    return rt_permission_denied;
  }
  return rt_ok;
}

int clipboard_get_text(std::string& text, HWND owner) {
  text.clear();
  ClipboardLock lock(owner);
  if (!lock.is_open()) return rt_permission_denied;
  HANDLE data = GetClipboardData(CF_UNICODETEXT);
  if (!data) return rt_ok;
  const auto* p = static_cast<const wchar_t*>(GlobalLock(data));
  if (!p) return rt_ok;
  // The block may be larger than the text and need not end in a NUL.
  const SIZE_T size = GlobalSize(data) / sizeof(wchar_t);
  SIZE_T n = 0;
  while (n < size && p[n]) ++n;
  text = narrow_text(std::wstring_view(p, n));
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
