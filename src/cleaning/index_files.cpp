#include "cleaning/index_files.h"

#include <windows.h>

#include "cleaning/junk_state.h"
#include "core/delete_or_schedule.h"
#include "core/kill_process.h"
#include "core/routines.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/rt_error.h"
#include "platform/shell.h"

namespace wh {

namespace {

std::string upper(std::string text) {
  CharUpperBuffA(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

void schedule(std::string path) { delete_or_schedule(path); }

}  // namespace

void shred_index_dat(const std::string& folder, uint8_t passes, const ShredFile& shred) {
  Folder here;
  if (file_system().GetFolder(folder, here) != 0) return;
  // The whole history goes, not only its index files.
  for (const File& f : here.Files()) {
    if (upper(f.Name) == "INDEX.DAT")
      ignore_errors([&] {
        if (shred) shred(f.Path, passes);
      });
    else
      file_system().DeleteFile(f.Path, true);
  }
  for (const Folder& sub : here.SubFolders()) shred_index_dat(sub.Path(), passes, shred);
}

void clean_index_files(const ShredFile& shred, bool window_hidden) {
  // A shred that meets a locked file changes nothing: the schedule still runs.
  auto shred1 = [&](const std::string& path) { ignore_errors([&] {
      if (shred) shred(path, 1);
    }); };
  shred1(cache_folder + "\\Content.IE5\\index.dat");
  schedule(cache_folder + "\\Content.IE5\\index.dat");
  shred1(temp_folder + "\\Temporary Internet Files\\Content.IE5\\index.dat");
  schedule(temp_folder + "\\Temporary Internet Files\\Content.IE5\\index.dat");
  shred_index_dat(history_folder, 1, shred);
  schedule(history_folder + "\\History.IE5\\index.dat");
  // Two spellings: the scheduled one lacks its backslash, as it always has.
  shred1(temp_folder + "\\History\\History.IE5\\index.dat");
  schedule(temp_folder + "History\\History.IE5\\index.dat");
  shred1(cookies_folder + "\\index.dat");
  schedule(cookies_folder + "\\index.dat");
  shred1(temp_folder + "\\cookies\\index.dat");
  schedule(temp_folder + "\\cookies\\index.dat");

  // Explorer holds the files open.
  kill_process_by_name("explorer");
  Sleep(300);
  if (!is_nt()) {
    shell_execute(nullptr, "", "explorer.exe", "", "", SW_SHOWMINIMIZED);
    return;
  }
  // The relaunch line is written and removed again; nothing runs it.
  const std::string line =
      app_path() + "\\Wellharrower.exe " + "start " + (window_hidden ? "X" : "");
  BinaryFile file;
  check(file.open_binary("c:\\temp"));
  ignore_errors([&] {
    file.set_length(0);
    const std::string text = line + "\r\n";
    file.write_at(0, text.data(), static_cast<DWORD>(text.size()));
    file.close();
  });
  file.close();
  file_system().DeleteFile("c:\\temp");
}

}  // namespace wh
