#pragma once
// The clipboard, as text.
#include <windows.h>

#include <string>

namespace wh {

bool open_clipboard(HWND owner = nullptr);
bool empty_clipboard();
bool close_clipboard();

// Holds the clipboard open for its scope.
class ClipboardLock {
public:
  explicit ClipboardLock(HWND owner = nullptr) : open_(open_clipboard(owner)) {}
  ClipboardLock(const ClipboardLock&) = delete;
  ClipboardLock& operator=(const ClipboardLock&) = delete;
  ~ClipboardLock() {
    if (open_) close_clipboard();
  }
  bool is_open() const { return open_; }

private:
  bool open_;
};

// Replace the clipboard with CF_TEXT. Run-time numbers; 70 when another
// program holds the clipboard.
int clipboard_set_text(const std::string& text, HWND owner = nullptr);
// CF_TEXT up to its NUL; empty text when there is none.
int clipboard_get_text(std::string& text, HWND owner = nullptr);

// IsClipboardFormatAvailable: no need to open the clipboard.
bool clipboard_has_format(UINT format);
// A copy of the CF_BITMAP, the caller's to free; null when there is none.
int clipboard_get_bitmap(HBITMAP& copy, HWND owner = nullptr);

}  // namespace wh
