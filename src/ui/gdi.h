#pragma once
// GDI ownership, colours, fonts and pictures shared by the controls.
#include <windows.h>

#include <memory>
#include <string>
#include <utility>

namespace wh {

// Owns one GDI object (bitmap, brush, pen, font, region).
template <class T>
class GdiObject {
public:
  GdiObject() = default;
  explicit GdiObject(T h) noexcept : h_(h) {}
  GdiObject(GdiObject&& o) noexcept : h_(o.release()) {}
  GdiObject& operator=(GdiObject&& o) noexcept {
    if (this != &o) reset(o.release());
    return *this;
  }
  GdiObject(const GdiObject&) = delete;
  GdiObject& operator=(const GdiObject&) = delete;
  ~GdiObject() { reset(); }

  T get() const noexcept { return h_; }
  explicit operator bool() const noexcept { return h_ != nullptr; }
  T release() noexcept { return std::exchange(h_, nullptr); }
  void reset(T h = nullptr) noexcept {
    T old = std::exchange(h_, h);
    if (old) ::DeleteObject(old);
  }

private:
  T h_ = nullptr;
};

using Bitmap = GdiObject<HBITMAP>;
using Brush = GdiObject<HBRUSH>;
using Pen = GdiObject<HPEN>;
using Region = GdiObject<HRGN>;

// A memory DC that puts back what it had selected.
class MemoryDC {
public:
  explicit MemoryDC(HDC like = nullptr) : dc_(::CreateCompatibleDC(like)) {}
  ~MemoryDC() {
    if (old_) ::SelectObject(dc_, old_);
    ::DeleteDC(dc_);
  }
  MemoryDC(const MemoryDC&) = delete;
  MemoryDC& operator=(const MemoryDC&) = delete;
  HDC get() const { return dc_; }
  void select(HBITMAP bmp) {
    HGDIOBJ prev = ::SelectObject(dc_, bmp);
    if (!old_) old_ = prev;
  }

private:
  HDC dc_;
  HGDIOBJ old_ = nullptr;
};

// A picture shared between controls, as the program hands one control's
// picture to another. Null means no picture.
using Picture = std::shared_ptr<const Bitmap>;

// Takes ownership of `bmp`; null gives an empty picture.
Picture make_picture(HBITMAP bmp);
SIZE picture_size(const Picture& pic);

// A bitmap resource of the exe by name (case-exact, as the names are), or
// raises run-time error 326 when there is none.
Picture LoadPicture(const std::string& resource_name);

// Colours are COLORREF values; 0x800000nn is system colour nn, as the
// form designer's defaults are (0x8000000F button face, 0x80000012 button text).
constexpr COLORREF system_color(int index) { return 0x80000000u | static_cast<unsigned>(index); }
COLORREF to_rgb(COLORREF color);
// A solid brush per colour, kept to the end of the program.
HBRUSH solid_brush(COLORREF color);

struct FontDesc {
  std::string name = "MS Sans Serif";
  int size = 8;  // points
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool operator==(const FontDesc&) const = default;
};
// One font per desc, kept to the end of the program.
HFONT font_handle(const FontDesc& desc);

// Screen twips per pixel (15 at 96 dpi), for the places that store twips.
int twips_per_pixel_x();
int twips_per_pixel_y();

}  // namespace wh
