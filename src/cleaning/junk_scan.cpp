// Section 8's scan: where the traces live, what counts as junk and how big
// each category is. Nothing is deleted here.
#include <windows.h>

#include <cstdint>
#include <optional>

#include "cleaning/junk_page.h"
#include "cleaning/junk_state.h"
#include "core/routines.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/processes.h"
#include "platform/rt_error.h"
#include "platform/shell.h"

namespace wh {

namespace {

// Character for character, the doubled "*.old" included.
constexpr char junk_masks[] =
    "*.gid;*.bad;*.fts;*.dmp;*.old;*.tmp;*.bak;*.old;*.prv;*.syd;*.$*;*.~*;~*.*;*.$$$;*.sik;"
    "*.chk;*.qdk;*.umb;*.~mp;*.cor;*.alt;*.log;rbbad.cab;bootlog.txt;thumbs.dbf;*.dir;*log*.txt";

std::string upper(std::string s) {
  if (!s.empty()) CharUpperBuffA(s.data(), static_cast<DWORD>(s.size()));
  return s;
}

// Folder.Size of a path; raises when the folder is missing or unreadable.
double folder_size(const std::string& path) {
  Folder f;
  wh::check(file_system().GetFolder(path, f));
  double size = 0;
  wh::check(f.Size(size));
  return size;
}

double file_length(const std::string& path) {
  File f;
  wh::check(file_system().GetFile(path, f));
  return f.Size;
}

// Dir(path, vbDirectory) <> "": true for a file of that name as well.
bool dir_exists(const std::string& path) {
  DWORD a;
  return !path.empty() && get_attributes(path, a) == rt_ok;
}

bool folder_exists(const std::string& path) { return file_system().FolderExists(path); }

// ReDim Preserve list(UBound(list) + 1): fails on a list never dimensioned.
void append(std::vector<std::string>& list, const std::string& text) {
  if (list.empty()) raise(rt_subscript);
  list.push_back(text);
}

}  // namespace

std::string JunkPage::find_browsers() {
  const FileSystemObject& fso = file_system();
  appdata_folder = special_folder(26);
  Folder programs;
  wh::check(fso.GetFolder(special_folder(38), programs));
  programs_folder = programs.Path();
  // Only browsers installed right under the program files folder are
  // found; neither string is reset, and the last match wins.
  for (const Folder& sub : programs.SubFolders()) {
    const std::string name = upper(sub.Name());
    if (name.substr(0, 5) == "OPERA")
      opera_folder = sub.Path();
    else if (name.find("FIREFOX") != std::string::npos)
      firefox_folder = sub.Path();
  }
  if (!firefox_folder.empty()) {
    // The first profile in the list is the only one ever looked at. When
    // the folder is missing, Dir3 still shows where it was.
    ignore_errors([&] { Dir3.Path(appdata_folder + "\\Mozilla\\Firefox\\Profiles"); });
    ignore_errors([&] { firefox_profile = Dir3.List(0) + "\\"; });
  }
  return firefox_profile;
}

void JunkPage::collect_trace_paths() {
  ignore_errors([&] { find_browsers(); });
  history_folder = special_folder(34);
  // One failure here skips the rest of the Windows-relative folders.
  ignore_errors([&] {
    const FileSystemObject& fso = file_system();
    Folder f;
    wh::check(fso.GetSpecialFolder(2, f));
    temp_folder = f.Path();
    wh::check(fso.GetSpecialFolder(0, f));
    const std::string windows = f.Path();
    windows_temp_folder = windows + "\\TEMP";
    downloaded_programs_folder = windows + "\\Downloaded Program Files";
    downloaded_installations_folder = windows + "\\Downloaded Installations";
    internet_logs_folder = windows + "\\Internet Logs";
    prefetch_folder = windows + "\\Prefetch";
  });
  cache_folder = special_folder(32);
  cookies_folder = special_folder(33);
  recent_folder = special_folder(8);
}

// Statement by statement with errors ignored: a folder that can't be
// measured leaves its label and the running figure as they were.
void JunkPage::junk_scan() {
  const FileSystemObject& fso = file_system();
  auto ignore = [](auto&& statement) { ignore_errors(statement); };

  // 1
  for (int i = 1; i <= 9; ++i) ocupied[i]->Caption("0 bytes");
  locked_count = 0;
  locked_bytes = 0;
  double category_size = 0;
  double total_size = 0;
  int folder_count = 0;
  int file_count = 0;

  // 2. A 32-bit view of the bin's 64-bit size, signed: above 2 GB it can
  // read negative.
  double bin_bytes = 0, bin_items = 0;
  query_recycle_bin("", bin_bytes, bin_items);
  double bin = static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint64_t>(bin_bytes)));
  ocupied[1]->Caption(form_.spatiuu(bin));
  total_size = bin;

  // 3
  ignore([&] { k1.Pattern(junk_masks); });

  // The files k1 lists in `folder`, from index `first` on.
  auto add_listed = [&](const std::string& folder, const std::string& prefix, int first,
                        auto&& excluded) {
    ignore([&] { k1.Path(folder); });
    const int count = k1.ListCount();
    for (int i = first; i < count; ++i) {
      const std::string name = k1.List(i);
      if (excluded(name)) continue;
      ignore([&] {
        const double length = k1.Length(i);  // from the listing, not a call per file
        category_size += length;
        put_item(junk_file_items, ++file_count, JunkItem{prefix + name, length});
      });
    }
  };
  auto none = [](const std::string&) { return false; };

  // 4. Fixed drives only: a floppy or a network drive is never looked at.
  for (int row = 0; row < Drive1.ListCount(); ++row) {
    const std::string entry = Drive1.List(row);
    if (entry.empty()) continue;
    const std::string root = entry.substr(0, 1) + ":\\";
    if (get_drive_type(root) != DRIVE_FIXED) continue;
    Folder drive_root;
    if (fso.GetFolder(root, drive_root) == rt_ok) {
      for (const Folder& sub : drive_root.SubFolders()) {
        if (upper(sub.Name().substr(0, 6)) != "FOUND.") continue;
        ignore([&] {
          const double size = folder_size(sub.Path());
          category_size += size;
          put_item(junk_folder_items, ++folder_count, JunkItem{sub.Path(), size});
        });
      }
    }
    add_listed(root, root, 0, none);
  }

  // 5. Index 1 on: the first file listed in the Windows folder is never
  // counted. The exclusion is case-sensitive.
  const std::string windir = environ_value("WinDir");
  add_listed(windir, windir + "\\", 1,
             [](const std::string& name) { return name == "WindowsUpdate.log"; });
  // 6 to 9
  if (dir_exists(windir + "\\minidump")) add_listed(windir + "\\minidump", windir + "\\minidump\\", 1, none);
  if (dir_exists(windir + "\\system")) add_listed(windir + "\\system", windir + "\\system\\", 0, none);
  if (dir_exists(windir + "\\system32"))
    add_listed(windir + "\\system32", windir + "\\system32\\", 0, [](const std::string& name) {
      return name.find("h323") != std::string::npos;
    });
  if (dir_exists(windir + "\\system32\\CatRoot"))
    add_listed(windir + "\\system32\\CatRoot", windir + "\\system32\\CatRoot\\", 0, none);
  // 10
  ocupied[2]->Caption(form_.spatiuu(category_size));
  total_size += category_size;

  // 11. The Windows folder's TEMP counts apart only when it is another folder.
  ignore([&] { category_size = folder_size(temp_folder); });
  if (temp_folder != windows_temp_folder && folder_exists(windows_temp_folder))
    ignore([&] { category_size += folder_size(windows_temp_folder); });
  ocupied[3]->Caption(form_.spatiuu(category_size));
  total_size += category_size;

  // 12. Without a system cache the figure of step 11 carries over.
  std::optional<Folder> measured;  // the folder object the branches share
  auto last = [&]() -> const Folder& {
    if (!measured) raise(rt_object_not_set);
    return *measured;
  };
  auto measure = [&](const std::string& path) {
    Folder f;
    wh::check(fso.GetFolder(path, f));
    measured = f;
  };
  if (folder_exists(cache_folder)) {
    ignore([&] {
      measure(cache_folder);
      category_size = folder_size(measured->Path());
    });
    cache_folders.assign(2, std::string());
    cache_folders[1] = cache_folder;
  }
  if (!opera_folder.empty()) {
    // Counted, but its element stays empty: this cache is never cleaned.
    if (dir_exists(opera_folder + "\\Cache4")) {
      ignore([&] { category_size += folder_size(opera_folder + "\\Cache4"); });
      ignore([&] { append(cache_folders, ""); });
    }
    if (dir_exists(opera_folder + "\\Profile\\Cache4")) {
      ignore([&] { measure(opera_folder + "\\Profile\\Cache4"); });
      ignore([&] { category_size += folder_size(last().Path()); });
      ignore([&] { append(cache_folders, last().Path()); });
    }
    // Tested under one spelling, opened under another: when the second is
    // missing the folder measured last is measured and stored again.
    if (dir_exists(opera_folder + "\\Profile\\Mail\\Cache")) {
      ignore([&] { measure(opera_folder + "\\Profile\\MailCache"); });
      ignore([&] { category_size += folder_size(last().Path()); });
      ignore([&] {
        append(cache_folders, "");
        cache_folders.back() = last().Path();
      });
    }
  }
  if (!firefox_folder.empty()) {
    for (const std::string& cache :
         {appdata_folder + "\\Mozilla\\Profiles\\default\\oqmc7bcc.slt\\Cache",
          firefox_profile + "Cache"}) {
      if (!folder_exists(cache)) continue;
      ignore([&] { category_size += folder_size(cache); });
      ignore([&] { append(cache_folders, cache); });
    }
  }
  ocupied[5]->Caption(form_.spatiuu(category_size));
  total_size += category_size;

  // 13, 14: the logs are measured with no test, so a missing folder leaves
  // "0 bytes".
  if (folder_exists(prefetch_folder)) {
    ignore([&] {
      double size = folder_size(prefetch_folder);
      ocupied[4]->Caption(form_.spatiuu(size));
      total_size += size;
    });
  }
  ignore([&] {
    double size = folder_size(internet_logs_folder);
    ocupied[7]->Caption(form_.spatiuu(size));
    total_size += size;
  });

  // 15
  ignore([&] { category_size = folder_size(cookies_folder); });
  if (!opera_folder.empty()) {
    ignore([&] { category_size += file_length(opera_folder + "\\cookies4.dat"); });
    ignore([&] { category_size += file_length(opera_folder + "\\Profile\\cookies4.dat"); });
  }
  if (!firefox_folder.empty()) {
    ignore([&] { category_size += file_length(firefox_profile + "cookies.txt"); });
    ignore([&] { category_size += file_length(firefox_profile + "hostperm.1"); });
  }
  ocupied[6]->Caption(form_.spatiuu(category_size));
  total_size += category_size;

  // 16, 17
  if (folder_exists(downloaded_programs_folder)) {
    ignore([&] {
      double size = folder_size(downloaded_programs_folder);
      ocupied[8]->Caption(form_.spatiuu(size));
      total_size += size;
    });
  }
  if (folder_exists(downloaded_installations_folder)) {
    ignore([&] {
      double size = folder_size(downloaded_installations_folder);
      ocupied[9]->Caption(form_.spatiuu(size));
      total_size += size;
    });
  }

  // 18. Measured, never shown: the traces have no size label.
  if (folder_exists(recent_folder)) ignore([&] { folder_size(recent_folder); });

  // 19
  total.Caption(form_.spatiuu(total_size));
}

}  // namespace wh
