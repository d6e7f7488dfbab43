#pragma once
// The skinned window: the picture and the outline of a form come from the
// program's own resources, a JPEG and a region data block.
#include <windows.h>

#include <string>

namespace wh {

class Form;

class clsSkinForm {
public:
  // Gives `form` the picture of resource "JPEG" ResJpg and the outline of
  // resource "RGN" ResRgn. A missing resource raises 326; a region the
  // platform refuses leaves the window rectangular, unreported.
  void FormShape(Form& form, int ResRgn, int ResJpg);

private:
  std::string LoadResJpg(int id);
  std::string LoadResRgn(int id);
};

// A picture file (JPEG, GIF, BMP, as the OS decodes them) as a bitmap of its
// own; null when it cannot be read or decoded.
HBITMAP load_picture_file(const std::string& path);

}  // namespace wh
