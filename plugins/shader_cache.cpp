// ShaderCache: the compiled shaders that DirectX and the graphics drivers
// keep per user, %LOCALAPPDATA%\D3DSCache, NVIDIA\DXCache, NVIDIA\GLCache
// and AMD\DxCache. They are made again as games and programs need them.
// The folders are emptied and stay; a file in use stays too.
#include <windows.h>
#include <shlobj.h>

#include "common/plugin.h"
#include "common/walk.h"

namespace pack {

namespace {

std::vector<std::wstring> cache_folders() {
  std::vector<std::wstring> folders;
  const std::wstring local = known_folder(CSIDL_LOCAL_APPDATA);
  if (local.empty()) return folders;
  for (const wchar_t* cache : {L"D3DSCache", L"NVIDIA\\DXCache", L"NVIDIA\\GLCache", L"AMD\\DxCache"})
    folders.push_back(join(local, cache));
  return folders;
}

}  // namespace

std::wstring description(Language language) {
  const bool en = language == Language::english;
  Tally sum;
  for (const std::wstring& folder : cache_folders()) {
    const Tally found = tally(folder);
    sum.files += found.files;
    sum.bytes += found.bytes;
  }
  return (en ? L"  Shader caches|DirectX NVIDIA AMD|" : L"  Cache shadere|DirectX NVIDIA AMD|") +
         files_line(sum.files, sum.bytes, language) +
         (en ? L"|made again as|needed" : L"|refacute cand|e nevoie");
}

void run() {
  for (const std::wstring& folder : cache_folders()) clear_tree(folder, true, Locked::skip);
}

}  // namespace pack
