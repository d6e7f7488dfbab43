#include "core/delete_or_schedule.h"

#include <windows.h>

#include <cstring>

#include "core/routines.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/processes.h"
#include "platform/rt_error.h"

namespace wh {

namespace {
constexpr char crlf[] = "\r\n";
// The old file is read through a fixed buffer of this size.
constexpr DWORD ini_buffer = 32768;

void write_new(const std::string& ini, const std::string& text) {
  BinaryFile f;
  check(f.open_binary(ini));
  check(f.write_at(0, text.data(), static_cast<DWORD>(text.size())));
}
}  // namespace

void delete_or_schedule(std::string& path) {
  ignore_errors([&] {
    std::string s = short_path(path);
    if (!s.empty()) path = s;
  });
  if (environ_value("OS") == "Windows_NT") {
    move_file_ex(path, "", MOVEFILE_DELAY_UNTIL_REBOOT);
    return;
  }
  // The 9x family reads its list of boot-time operations from WinInit.ini.
  const std::string ini = environ_value("WinDir") + "\\WinInit.ini";
  const std::string entry = "NUL=" + path + crlf;
  if (!file_system().FileExists(ini)) {
    ignore_errors([&] { write_new(ini, std::string("[Rename]") + crlf + entry); });
    return;
  }
  std::string text;
  std::string buffer(ini_buffer, '\0');
  ignore_errors([&] {
    BinaryFile f;
    check(f.open_read(ini));
    DWORD got = 0;
    check(f.read_at(0, buffer.data(), ini_buffer, got));
  });
  ignore_errors([&] { check(file_system().DeleteFile(ini, true)); });
  // Cut at the first zero byte. A full buffer has none: the cut fails and
  // the text stays empty, so a file of 32,768 bytes or more loses its lines.
  ignore_errors([&] {
    size_t zero = buffer.find('\0');
    if (zero == std::string::npos) raise(rt_invalid_call);
    text = buffer.substr(0, zero);
  });
  const bool ends_in_crlf = text.size() >= 2 && text.compare(text.size() - 2, 2, crlf) == 0;
  ignore_errors([&] { write_new(ini, text + (ends_in_crlf ? "" : crlf) + entry); });
}

}  // namespace wh
