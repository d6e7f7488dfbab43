#pragma once
// Overwrites files with fixed patterns, gives them a meaningless name and
// deletes them; a folder tree file by file.
#include <cstdint>
#include <functional>
#include <string>

namespace wh {

constexpr int shred_block_size = 8192;
constexpr int shred_patterns = 7;  // passes beyond the seventh write nothing

// Blocks per pass for a file length (signed 32-bit as the length reads):
// length / 8192 rounded half to even; one block more is written.
int32_t shred_blocks(int32_t length);

// The byte of pass i (1-based): '!' + i - 1; 0 when the pass writes nothing.
char shred_pattern_byte(int pass);

// Six letters/digits: a draw r = whole part of random x 100 gives the capital
// letter r when 65 <= r <= 90, else the digit seconds mod 10.
std::string throwaway_stem(const std::function<double()>& random, int seconds);
// "a" + stem + "." + round(random x 1000), e.g. "aK47Q22.815".
std::string throwaway_name(const std::function<double()>& random, int seconds);

// What a shred tells its caller as it goes; any of them may be empty.
struct ShredProgress {
  std::function<void(int16_t percent)> pass;          // after each pass
  std::function<void()> deleted;                      // the file is gone
  std::function<void(const std::string& name)> file;  // shred_folder: the next file
};

// Overwrites `path` with `passes` passes, renames it to a throw-away name and
// deletes it. Never reports a failure of the overwrite; only a failure of the
// deletion step shows "Can't delete!", and only when not silent.
void shred_file(const std::string& path, uint8_t passes, bool silent,
                const ShredProgress& progress = {});

// Every file of the tree, files of a folder before its subfolders. Removes
// no folder.
void shred_folder(const std::string& path, uint8_t passes, const ShredProgress& progress = {});

}  // namespace wh
