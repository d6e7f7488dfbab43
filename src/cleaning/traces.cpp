#include "cleaning/traces.h"

#include <windows.h>

#include <string>

#include "cleaning/junk_state.h"
#include "cleaning/url_cache.h"
#include "core/routines.h"
#include "platform/clipboard.h"
#include "platform/fso.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/url_cache.h"
#include "ui/list_box.h"

namespace wh {

namespace {

const std::string explorer_key = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";

// An applet's "Recent File List": "File1" read once decides whether all
// hundred names are tried or only the first.
void clean_file_list(const std::string& key) {
  const std::string first = reg_get_value(HKEY_CURRENT_USER, key, "File1");
  for (int n = 1; n <= 100; ++n) {
    reg_delete_value(HKEY_CURRENT_USER, key, "File" + std::to_string(n));
    if (first.empty()) break;
  }
}

}  // namespace

// One user's identifier, written in as it stands: on every other machine
// the key is missing and the category does nothing.
const std::string find_history_key =
    "S-1-5-21-1644491937-152049171-842925246-1003\\Software\\Microsoft\\Search Assistant\\ACMru";

void clean_stream_mru() {
  reg_delete_key(HKEY_CURRENT_USER, explorer_key + "StreamMRU");
  const std::string streams = explorer_key + "Streams";
  for (const std::string& name : reg_enum_keys(HKEY_CURRENT_USER, streams))
    if (name != "Desktop") reg_delete_key(HKEY_CURRENT_USER, streams + "\\" + name);
  // Fails on NT while "Desktop" stands; 9x takes the key with it.
  reg_delete_key(HKEY_CURRENT_USER, streams);
}

void clean_run_mru() { reg_delete_key(HKEY_CURRENT_USER, explorer_key + "RunMRU"); }

void clean_find_history() {
  if (is_nt()) {
    for (const std::string& name : reg_enum_keys(HKEY_USERS, find_history_key))
      reg_delete_key(HKEY_USERS, find_history_key + "\\" + name);
  } else {
    reg_delete_key(HKEY_CURRENT_USER, explorer_key + "Doc Find Spec MRU");
  }
}

void clean_clipboard() {
  ClipboardLock lock;
  empty_clipboard();
}

void clean_recent_docs() {
  add_to_recent_docs({});
  reg_delete_key(HKEY_CURRENT_USER, explorer_key + "RecentDocs");
}

void clean_browser_history(ListBox& junk_files) {
  const int first = junk_files.ListCount();
  load_url_cache_list(junk_files);
  for (int line = first; line < junk_files.ListCount(); ++line)
    delete_url_cache_entry(junk_files.List(line));
  junk_files.Clear();
  const FileSystemObject& fso = file_system();
  if (!opera_folder.empty()) {
    fso.DeleteFile(opera_folder + "\\Profile\\Sessions\\autosave*.*", true);
    fso.DeleteFile(opera_folder + "\\Profile\\Sessions\\*.tmp", true);
    fso.DeleteFile(opera_folder + "\\Profile\\opera.dir", true);
    fso.DeleteFile(opera_folder + "\\Profile\\global.dat", true);
    fso.DeleteFile(opera_folder + "\\Profile\\download.dat", true);
  }
  if (!firefox_folder.empty()) {
    // The saved logins go with the history, on purpose.
    fso.DeleteFile(firefox_profile + "history.dat");
    fso.DeleteFile(firefox_profile + "signons.txt");
    fso.DeleteFile(firefox_profile + "downloads.rdf");
  }
}

void clean_typed_urls() {
  reg_delete_key(HKEY_CURRENT_USER, "Software\\Microsoft\\Internet Explorer\\TypedURLs");
  if (!opera_folder.empty()) file_system().DeleteFile(opera_folder + "\\Profile\\vlink4.dat");
}

void clean_open_save_history() {
  const std::string open_save = explorer_key + "ComDlg32\\OpenSaveMRU";
  for (const std::string& name : reg_enum_keys(HKEY_CURRENT_USER, open_save)) {
    const std::string sub = open_save + "\\" + name;
    // Each letter of MRUList names one entry.
    const std::string order = reg_get_value(HKEY_CURRENT_USER, sub, "MRUList");
    for (char letter : order) reg_delete_value(HKEY_CURRENT_USER, sub, std::string(1, letter));
    reg_delete_value(HKEY_CURRENT_USER, sub, "MRUList");
    reg_delete_key(HKEY_CURRENT_USER, sub);
  }
  reg_delete_key(HKEY_CURRENT_USER, open_save);
  reg_delete_key(HKEY_CURRENT_USER, explorer_key + "ComDlg32\\LastVisitedMRU");
  clean_file_list("Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Wordpad\\Recent File List");
  clean_file_list("Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Paint\\Recent File List");
  // Unlike the applets' lists, each entry is read anew, from 0.
  const std::string player = "Software\\Microsoft\\MediaPlayer\\Player\\RecentURLList";
  for (int n = 0; n <= 100; ++n) {
    const std::string name = "URL" + std::to_string(n);
    const std::string text = reg_get_value(HKEY_CURRENT_USER, player, name);
    reg_delete_value(HKEY_CURRENT_USER, player, name);
    if (text.empty()) break;
  }
}

}  // namespace wh
