#pragma once
#include <string>

#include "ui/control.h"

namespace wh {

struct PictureBoxOptions {
  bool border = false;
};

// A drawing surface kept in a memory bitmap (always AutoRedraw), so what
// was drawn survives repaints and hidden periods. Also a container.
// Coordinates are pixels of the client area.
class PictureBox : public Control {
public:
  using Options = PictureBoxOptions;

  PictureBox(Form& form, std::string name, const Place& place, const Options& options = {});

  // Fills with BackColor and puts the print position at 0,0.
  void Cls();
  void FillRect(int x1, int y1, int x2, int y2, COLORREF color);  // Line ... BF
  void Line(int x1, int y1, int x2, int y2, COLORREF color);
  void PSet(int x, int y, COLORREF color);
  // Text in ForeColor at the print position, which then moves to the next line.
  void Print(const std::string& text);
  void PrintAt(int x, int y, const std::string& text);
  int CurrentX = 0;
  int CurrentY = 0;
  bool FontTransparent = true;
  int TextWidth(const std::string& text) const;
  int TextHeight(const std::string& text) const;

  // Draws the picture at 0,0 over what is there and keeps it as Picture.
  void picture(Picture pic);
  Picture picture() const { return picture_; }
  void LoadPicture(const std::string& resource_name);
  void PaintPicture(const Picture& pic, int x, int y, int width = -1, int height = -1);

  // The memory surface, for BitBlt; Refresh() after drawing on it directly.
  HDC hdc() const { return mem_.get(); }
  // A copy of what the surface shows now (the surface itself stays
  // selected in its DC, where GetDIBits and icons can't use it).
  Picture Image() const;
  int ScaleWidth() const;
  int ScaleHeight() const;

  Event Paint;

  bool on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) override;
  bool paint_background(HDC dc) override;
  bool is_container() const override { return true; }

private:
  void fit_surface();  // grows the surface to the client size, keeping content
  void dirty();

  Options options_;
  MemoryDC mem_;
  Bitmap surface_;
  SIZE surface_size_{0, 0};
  Picture picture_;
};

}  // namespace wh
