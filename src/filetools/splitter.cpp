#include "filetools/splitter.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>

#include "core/globals.h"
#include "core/paths.h"
#include "core/routines.h"
#include "core/text.h"
#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/rt_error.h"

namespace wh {

std::string fragment_list;
std::string split_short_name;

namespace {

// One fixed buffer for every copy: a fragment is copied in large pieces,
// with a progress report and a turn of the event loop after each.
constexpr DWORD copy_chunk = 1 << 20;
char* copy_buffer() {
  static const std::unique_ptr<char[]> buffer(new char[copy_chunk]);
  return buffer.get();
}

const char* const crlf = "\r\n";

void write_batch(const std::string& destination, const std::string& file, int language,
                 bool delete_after_merge) {
  const std::string batch = batch_path(destination, file, language);
  // An old batch file of the same name was meant to go first, but the path
  // tested is the program's folder joined with the full path, which never
  // exists: a shorter new text leaves the old one's tail behind.
  FileSystemObject& fso = file_system();
  const std::string never = app_path() + "\\" + batch;
  if (fso.FileExists(never)) check(fso.DeleteFile(never));

  std::vector<std::string> names;
  size_t at = 0;
  while (at < fragment_list.size()) {
    size_t plus = fragment_list.find('+', at);
    if (plus == std::string::npos) plus = fragment_list.size();
    if (plus > at) names.push_back(fragment_list.substr(at, plus - at));
    at = plus + 1;
  }
  const std::string text =
      batch_text(language, file, split_short_name, names, batch, delete_after_merge);
  // cmd reads a batch file in the system's OEM code page, not in ours: the
  // text goes over when every character has a place there.
  const std::string bytes = text_for_code_page(text, system_oem_code_page());
  BinaryFile out;
  check(out.open_binary(batch));
  check(out.write_at(0, bytes.data(), static_cast<DWORD>(bytes.size())));
}

int16_t split_steps(const std::string& source, std::string& destination, int32_t fragment_bytes,
                    int16_t& fragment_count, const SplitProgress& progress) {
  FileSystemObject& fso = file_system();
  fragment_list.clear();
  if (source.empty() || !fso.FileExists(source)) return split_not_found;
  destination = add_backslash(destination);
  // An empty folder counts as a missing one.
  if (Folder(destination).Files().empty()) return split_not_found;
  if (fragment_bytes == 0) return split_zero_size;

  split_short_name = path_part(short_path(source), 6);
  const size_t dot = split_short_name.rfind('.');
  const std::string base = dot == std::string::npos ? split_short_name : split_short_name.substr(0, dot);

  BinaryFile in;
  check(in.open_read(source));
  int64_t length = 0;
  check(in.length(length));
  if (static_cast<double>(length) / fragment_bytes >= 1000.0) return split_too_many;

  int number = 0;
  int32_t total = 0;  // the copied total is 32 bits: beyond 2 GiB it overflows
  std::string name;
  while (total != length) {
    ++number;
    if (number <= 999) {
      name = fragment_name(base, number);
      fragment_list += "+" + name;
    }
    // The 1000th fragment has no name of its own and goes over the 999th.
    BinaryFile out;
    check(out.open_binary(destination + name));  // not shortened
    int64_t left = std::min<int64_t>(fragment_bytes, length - total);
    int64_t at = 0;
    while (left > 0) {
      const DWORD n = static_cast<DWORD>(std::min<int64_t>(left, copy_chunk));
      DWORD got = 0;
      check(in.read_at(total, copy_buffer(), n, got));
      if (got != n) raise(rt_input_past_end);
      check(out.write_at(at, copy_buffer(), n));
      left -= n;
      at += n;
      if (static_cast<int64_t>(total) + n > std::numeric_limits<int32_t>::max()) raise(rt_overflow);
      total += static_cast<int32_t>(n);
      if (progress.pump) progress.pump();
      if (progress.percent)
        progress.percent(static_cast<int16_t>(static_cast<double>(total) / length * 100));
      if (progress.pump) progress.pump();
    }
    out.close();
    if (progress.pump) progress.pump();
  }
  in.close();

  const bool del = progress.delete_after_merge && progress.delete_after_merge();
  write_batch(destination, path_part(source, 6), language_flag, del);
  fragment_count = static_cast<int16_t>(number);
  return split_done;
}

}  // namespace

int16_t split_file(const std::string& source, std::string& destination, int32_t fragment_bytes,
                   int16_t& fragment_count, const SplitProgress& progress) {
  try {
    return split_steps(source, destination, fragment_bytes, fragment_count, progress);
  } catch (const RuntimeError&) {
    return split_failed;  // the files closed as their objects went
  }
}

double ceil_div(double numerator, double denominator) {
  auto to_long = [](double x) {
    const double r = round_even(x);
    if (r < std::numeric_limits<int32_t>::min() || r > std::numeric_limits<int32_t>::max())
      raise(rt_overflow);
    return static_cast<int32_t>(r);
  };
  const int32_t a = to_long(numerator), b = to_long(denominator);
  if (b == 0) raise(11);  // division by zero
  const int32_t q = a / b;
  if (numerator / denominator == q) return numerator;  // the slip: not q
  return q + 1.0;
}

std::string path_part(const std::string& path, int32_t mode) {
  if (mode != 6) return path;
  const size_t cut = path.find_last_of("\\:");
  return cut == std::string::npos ? path : path.substr(cut + 1);
}

std::string fragment_name(const std::string& base, int number) {
  if (number < 1 || number > 999) return {};
  const std::string digits = std::to_string(number);
  return base + (number < 10 ? ".00" : number < 100 ? ".0" : ".") + digits;
}

std::string batch_path(const std::string& destination, const std::string& file, int language) {
  return destination + (language == 1 ? "merge(" : "reface(") + file + ").bat";
}

std::string batch_text(int language, const std::string& file, const std::string& short_name,
                       const std::vector<std::string>& fragments, const std::string& batch,
                       bool delete_after_merge) {
  const bool en = language == 1;
  std::string listed, joined;
  for (size_t i = 0; i < fragments.size(); ++i) {
    listed += (i ? " " : "") + fragments[i];
    joined += (i ? "+" : "") + fragments[i];
  }
  std::string t;
  auto line = [&](const std::string& s) { t += s + crlf; };
  line("@echo off");
  line(en ? "echo Wellharrower - Unsplit the file " + file
          : "echo Wellharrower - Crearea fisierului " + file + " din bucatile componente ");
  line("echo.");
  line("FOR %%a IN ( " + listed +
       (en ? " ) DO IF NOT EXIST %%a ECHO %%a is missing!"
           : " ) DO IF NOT EXIST %%a ECHO Fiserul %%a nu exista!"));
  line("echo.");
  line("pause");
  line(en ? "echo Merging files . . ." : "echo Procesul a inceput . . .");
  line("echo.");
  line("copy /B " + joined + " " + short_name);
  line("ren " + short_name + " \"" + file + "\"");
  if (delete_after_merge) {
    for (const std::string& f : fragments) line("del " + f);
    line("del " + batch);
  }
  line("echo.");
  line(en ? "echo All done!" : "echo Gata!");
  t += "@echo on";
  return t;
}

}  // namespace wh
