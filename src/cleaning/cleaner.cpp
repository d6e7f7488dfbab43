#include "cleaning/cleaner.h"

#include <vector>

#include "cleaning/junk_state.h"
#include "core/delete_or_schedule.h"
#include "platform/fso.h"
#include "platform/rt_error.h"
#include "platform/shell.h"

namespace wh {

namespace {
// A file that is open elsewhere or denied: counted and scheduled.
void note_locked(std::string path, bool size_first) {
  const FileSystemObject& fso = file_system();
  auto add_size = [&] {
    File f;
    check(fso.GetFile(path, f));
    locked_bytes += f.Size;
  };
  ignore_errors([&] {
    if (locked_count == INT16_MAX) raise(rt_overflow);
    ++locked_count;
  });
  if (size_first) ignore_errors(add_size);
  ignore_errors([&] { delete_or_schedule(path); });
  if (!size_first) ignore_errors(add_size);
}
}  // namespace

void JunkCleaner::clean_tree(const std::string& path) {
  const FileSystemObject& fso = file_system();
  Folder folder;
  // A folder that is missing leaves every following statement failing.
  if (fso.GetFolder(path, folder) != rt_ok) return;
  // File1 is one list for every level: each level is read whole before the
  // walk goes down. Setting its path reads the folder afresh (a second
  // Refresh would only list every file again).
  if (ignore_errors([&] { File1_.Path(folder.Path()); }) == rt_ok) {
    const int count = File1_.ListCount();
    for (int i = 0; i < count; ++i) {
      const std::string file = folder.Path() + "\\" + File1_.List(i);
      if (fso.DeleteFile(file, true) == rt_permission_denied) note_locked(file, false);
    }
  }
  std::vector<Folder> subfolders;
  folder.SubFolders(subfolders);
  for (const Folder& sub : subfolders) clean_tree(sub.Path());
  // Unforced: the starting folder goes too when it is left empty and free.
  fso.DeleteFolder(folder.Path(), false);
}

void JunkCleaner::empty_recycle_bin() {
  wh::empty_recycle_bin(owner_, "", SHERB_NOCONFIRMATION);
  update_recycle_bin_icon();
}

void JunkCleaner::clean_junk_items() {
  const FileSystemObject& fso = file_system();
  // Whole FOUND.* folders, with no pass file by file.
  for (size_t i = 1; i < junk_folder_items.size(); ++i)
    fso.DeleteFolder(junk_folder_items[i].path, true);
  for (size_t i = 1; i < junk_file_items.size(); ++i) {
    const std::string& path = junk_file_items[i].path;
    if (fso.DeleteFile(path, true) == rt_permission_denied) note_locked(path, true);
  }
}

void JunkCleaner::clean_temp() {
  clean_tree(temp_folder);
  clean_tree(windows_temp_folder);
}

void JunkCleaner::clean_prefetch() { clean_tree(prefetch_folder); }

void JunkCleaner::clean_internet_cache() {
  // The whole folder first; what that refuses is taken file by file.
  for (size_t i = 1; i < cache_folders.size(); ++i) {
    const std::string folder = cache_folders[i];
    file_system().DeleteFolder(folder, false);
    clean_tree(folder);
  }
}

void JunkCleaner::clean_cookies() {
  const FileSystemObject& fso = file_system();
  clean_tree(cookies_folder);
  if (!opera_folder.empty()) {
    if (fso.FileExists(opera_folder + "\\cookies4.dat"))
      fso.DeleteFile(opera_folder + "\\cookies4.dat", true);
    if (fso.FileExists(opera_folder + "\\profile\\cookies4.dat"))
      fso.DeleteFile(opera_folder + "\\profile\\cookies4.dat", true);
  }
  if (!firefox_folder.empty()) {
    fso.DeleteFile(firefox_profile + "cookies.txt", true);
    // The per-site permissions go with the cookies.
    fso.DeleteFile(firefox_profile + "hostperm.1", true);
  }
}

void JunkCleaner::clean_internet_logs() { clean_tree(internet_logs_folder); }
void JunkCleaner::clean_downloaded_programs() { clean_tree(downloaded_programs_folder); }
void JunkCleaner::clean_downloaded_installations() {
  clean_tree(downloaded_installations_folder);
}

}  // namespace wh
