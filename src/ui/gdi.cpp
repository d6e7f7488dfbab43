#include "ui/gdi.h"

#include <map>
#include <vector>

#include "platform/rt_error.h"
#include "ui/resources.h"

namespace wh {

Picture make_picture(HBITMAP bmp) {
  if (!bmp) return nullptr;
  return std::make_shared<const Bitmap>(bmp);
}

SIZE picture_size(const Picture& pic) {
  BITMAP b{};
  if (pic && ::GetObjectA(pic->get(), sizeof b, &b)) return {b.bmWidth, b.bmHeight};
  return {0, 0};
}

Picture LoadPicture(const std::string& resource_name) {
  HBITMAP bmp = load_bitmap_resource(resource_name);
  if (!bmp) raise(326, "Resource with identifier '" + resource_name + "' not found");
  return make_picture(bmp);
}

COLORREF to_rgb(COLORREF color) {
  if (color & 0x80000000u) return ::GetSysColor(static_cast<int>(color & 0xFF));
  return color & 0xFFFFFF;
}

HBRUSH solid_brush(COLORREF color) {
  static std::map<COLORREF, Brush> brushes;
  COLORREF rgb = to_rgb(color);
  auto it = brushes.find(rgb);
  if (it == brushes.end()) it = brushes.emplace(rgb, Brush(::CreateSolidBrush(rgb))).first;
  return it->second.get();
}

HFONT font_handle(const FontDesc& desc) {
  static std::vector<std::pair<FontDesc, GdiObject<HFONT>>> fonts;
  for (auto& f : fonts)
    if (f.first == desc) return f.second.get();
  HDC screen = ::GetDC(nullptr);
  int height = -::MulDiv(desc.size, ::GetDeviceCaps(screen, LOGPIXELSY), 72);
  ::ReleaseDC(nullptr, screen);
  HFONT h = ::CreateFontA(height, 0, 0, 0, desc.bold ? FW_BOLD : FW_NORMAL, desc.italic,
                          desc.underline, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                          CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE,
                          desc.name.c_str());
  fonts.emplace_back(desc, GdiObject<HFONT>(h));
  return h;
}

namespace {
int twips(int cap) {
  HDC screen = ::GetDC(nullptr);
  int dpi = ::GetDeviceCaps(screen, cap);
  ::ReleaseDC(nullptr, screen);
  return dpi > 0 ? 1440 / dpi : 15;
}
}  // namespace

int twips_per_pixel_x() { return twips(LOGPIXELSX); }
int twips_per_pixel_y() { return twips(LOGPIXELSY); }

}  // namespace wh
