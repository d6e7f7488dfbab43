#include "core/skin.h"

#include <objbase.h>
#include <ocidl.h>
#include <olectl.h>

#include "platform/files.h"
#include "platform/fso.h"
#include "platform/rt_error.h"
#include "ui/form.h"
#include "ui/resources.h"

namespace wh {

namespace {
std::string resource_or_raise(const char* type, int id) {
  std::string_view bytes = resource_bytes(type, id);
  if (bytes.empty())
    raise(326, "Resource with identifier '" + std::to_string(id) + "' not found");
  return std::string(bytes);
}

// A stream over a copy of the bytes, released with the stream.
IStream* memory_stream(const std::string& bytes) {
  HGLOBAL mem = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  if (!mem) return nullptr;
  if (void* p = ::GlobalLock(mem)) {
    memcpy(p, bytes.data(), bytes.size());
    ::GlobalUnlock(mem);
  }
  IStream* stream = nullptr;
  if (FAILED(::CreateStreamOnHGlobal(mem, TRUE, &stream))) {
    ::GlobalFree(mem);
    return nullptr;
  }
  return stream;
}
}  // namespace

HBITMAP load_picture_file(const std::string& path) {
  BinaryFile f;
  if (f.open_read(path) != 0) return nullptr;
  std::int64_t length = 0;
  if (f.length(length) != 0 || length <= 0 || length > 64 * 1024 * 1024) return nullptr;
  std::string bytes(static_cast<size_t>(length), '\0');
  DWORD got = 0;
  if (f.read_at(0, bytes.data(), static_cast<DWORD>(length), got) != 0 || got != length)
    return nullptr;
  f.close();

  // The picture object decodes JPEG through the imaging codecs, which are
  // COM objects: Wine refuses them on a thread that never initialised COM.
  ::CoInitialize(nullptr);
  IStream* stream = memory_stream(bytes);
  if (!stream) return nullptr;
  IPicture* picture = nullptr;
  HRESULT hr = ::OleLoadPicture(stream, static_cast<LONG>(length), FALSE, IID_IPicture,
                                reinterpret_cast<void**>(&picture));
  stream->Release();
  if (FAILED(hr) || !picture) return nullptr;
  HBITMAP copy = nullptr;
  OLE_HANDLE handle = 0;
  short type = PICTYPE_NONE;
  if (SUCCEEDED(picture->get_Type(&type)) && type == PICTYPE_BITMAP &&
      SUCCEEDED(picture->get_Handle(&handle))) {
    // The picture object owns its bitmap; keep a section of our own.
    copy = static_cast<HBITMAP>(::CopyImage(reinterpret_cast<HBITMAP>(static_cast<UINT_PTR>(handle)),
                                            IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
  }
  picture->Release();
  return copy;
}

std::string clsSkinForm::LoadResJpg(int id) { return resource_or_raise("JPEG", id); }
std::string clsSkinForm::LoadResRgn(int id) { return resource_or_raise("RGN", id); }

void clsSkinForm::FormShape(Form& form, int ResRgn, int ResJpg) {
  // The picture goes through a file, as the picture loader takes files.
  const std::string file = temp_path() + "resjpg.tmp";
  const std::string jpeg = LoadResJpg(ResJpg);
  ignore_errors([&] { check(file_system().DeleteFile(file)); });
  {
    BinaryFile out;
    check(out.open_binary(file));
    check(out.write_at(0, jpeg.data(), static_cast<DWORD>(jpeg.size())));
  }
  HBITMAP bmp = load_picture_file(file);
  if (!bmp) raise(481, "Invalid picture");
  form.picture(make_picture(bmp));
  ignore_errors([&] { check(file_system().DeleteFile(file)); });

  const std::string rgn = LoadResRgn(ResRgn);
  HRGN region = ::ExtCreateRegion(nullptr, static_cast<DWORD>(rgn.size()),
                                  reinterpret_cast<const RGNDATA*>(rgn.data()));
  // From here the window owns the region.
  if (region) ::SetWindowRgn(form.hwnd(), region, TRUE);
}

}  // namespace wh
