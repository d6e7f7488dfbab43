#pragma once
// Cutting a file into numbered fragments and writing the batch file that
// joins them again with nothing but a command prompt. No controls: progress
// and the event pumps go through SplitProgress.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace wh {

// Results of split_file.
enum SplitResult : int16_t {
  split_done = 0,
  split_not_found = 1,   // source or destination folder missing
  split_zero_size = 2,   // fragment size 0
  split_too_many = 3,    // 1000 fragments or more; nothing written
  split_failed = 4,      // a run-time failure; every open file closed
};

struct SplitProgress {
  std::function<void(int16_t percent)> percent;  // whole part of copied / length * 100
  std::function<void()> pump;                    // a turn of the event loop
  // Read while the batch file is written: add the lines that delete the
  // fragments and the batch file itself (Check9).
  std::function<bool()> delete_after_merge;
};

// "+A.001+A.002": grows by one name per fragment of the last run.
extern std::string fragment_list;
// The source's short (8.3) file name of the last run.
extern std::string split_short_name;

// `destination` comes back ending in a backslash. `fragment_count` is set
// on success only.
int16_t split_file(const std::string& source, std::string& destination, int32_t fragment_bytes,
                   int16_t& fragment_count, const SplitProgress& progress = {});

// Every fragment count the user sees. The quotient of the two numbers,
// each rounded to 32 bits first, plus one; but when the division is exact
// the numerator itself comes back, not the quotient. Raises 6 beyond 32 bits.
double ceil_div(double numerator, double denominator);

// Mode 6: the file name with its extension, the text behind the last
// backslash or colon. Other modes give the path back.
std::string path_part(const std::string& path, int32_t mode);

// "BASE.001" .. "BASE.999"; a number above 999 gives "".
std::string fragment_name(const std::string& base, int number);

// The batch file's path: destination, "merge(" or "reface(" by language,
// the long name, ").bat".
std::string batch_path(const std::string& destination, const std::string& file, int language);

// The batch file's bytes. `fragments` are the names without folder, in
// order; the last line has no line end.
std::string batch_text(int language, const std::string& file, const std::string& short_name,
                       const std::vector<std::string>& fragments, const std::string& batch,
                       bool delete_after_merge);

}  // namespace wh
