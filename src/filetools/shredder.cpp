#include "filetools/shredder.h"

#include <windows.h>

#include <algorithm>
#include <ctime>
#include <vector>

#include "core/globals.h"
#include "core/paths.h"
#include "core/rnd.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/rt_error.h"
#include "ui/dialogs.h"
#include "ui/events.h"

namespace wh {

namespace {
// Whole blocks per write call: one block a call is what the routine means,
// many at once is what the disk likes. The bytes are the same.
constexpr int blocks_per_write = 128;

int clock_seconds() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return now.wSecond;
}

// Lets the window breathe when input waits, cheaply otherwise.
void breathe() {
  if (GetInputState()) do_events();
}
}  // namespace

int32_t shred_blocks(int32_t length) {
  return static_cast<int32_t>(round_even(static_cast<double>(length) / shred_block_size));
}

char shred_pattern_byte(int pass) {
  return pass >= 1 && pass <= shred_patterns ? static_cast<char>(pass + 32) : 0;
}

std::string throwaway_stem(const std::function<double()>& random, int seconds) {
  std::string stem;
  for (int i = 0; i < 6; ++i) {
    int r = static_cast<int>(random() * 100);
    if (r >= 65 && r <= 90)
      stem += static_cast<char>(r);
    else
      stem += static_cast<char>('0' + seconds % 10);
  }
  return stem;
}

std::string throwaway_name(const std::function<double()>& random, int seconds) {
  std::string name(1, 'a');
  name += throwaway_stem(random, seconds);
  name += '.';
  name += std::to_string(static_cast<int>(round_even(random() * 1000)));
  return name;
}

void shred_file(const std::string& path, uint8_t passes, bool silent,
                const ShredProgress& progress) {
  // Steps run on when one fails: every failure is skipped.
  int32_t length = 0;
  ignore_errors([&] {
    BinaryFile f;
    check(f.open_read(path));
    int64_t bytes = 0;
    check(f.length(bytes));
    length = static_cast<int32_t>(bytes);  // 2 GiB and more read negative
  });
  const int32_t blocks = shred_blocks(length);
  set_attributes(path, 0);

  std::vector<char> pattern;
  for (int pass = 1; pass <= passes; ++pass) {
    BinaryFile f;
    f.open_binary(path);
    const char byte = shred_pattern_byte(pass);
    if (byte != 0 && f.is_open()) {
      pattern.assign(static_cast<size_t>(shred_block_size) * blocks_per_write, byte);
      for (int64_t j = 0; j <= blocks;) {
        int64_t run = std::min<int64_t>(blocks_per_write, blocks - j + 1);
        f.write_at(j * shred_block_size, pattern.data(), static_cast<DWORD>(run * shred_block_size));
        j += run;
        breathe();
      }
      f.flush();  // each pass must reach the medium, not only the cache
    }
    f.close();
    if (progress.pass) progress.pass(static_cast<int16_t>(round_even(pass * 100.0 / passes)));
    do_events();
  }

  std::string name = throwaway_name(rnd, clock_seconds());
  std::string renamed = add_backslash(file_system().GetParentFolderName(path)) + name;
  rename_path(path, renamed);

  try {
    delete_file_a(renamed);
    if (progress.deleted) progress.deleted();
  } catch (const RuntimeError&) {
    if (!silent) {
      if (language_flag == 1)
        msg_box("Can't delete!", MB_ICONSTOP, "Error!");
      else
        msg_box("Nu pot sa sterg!", MB_ICONSTOP, "Eroare!");
    }
  }
}

void shred_folder(const std::string& path, uint8_t passes, const ShredProgress& progress) {
  Folder folder;
  if (file_system().GetFolder(path, folder) != 0) return;
  for (const File& file : folder.Files()) {
    if (progress.file) progress.file(file.Name);
    do_events();
    shred_file(file.Path, passes, false, progress);
  }
  for (const Folder& sub : folder.SubFolders()) shred_folder(sub.Path(), passes, progress);
}

}  // namespace wh
