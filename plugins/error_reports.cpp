// ErrorReports: the reports of Windows Error Reporting, sent or waiting,
// the machine's (%ProgramData%) and the user's (%LOCALAPPDATA%):
// Microsoft\Windows\WER\ReportArchive and ReportQueue are emptied, and stay.
#include <windows.h>
#include <shlobj.h>

#include "common/plugin.h"
#include "common/walk.h"

namespace pack {

namespace {

std::vector<std::wstring> report_folders() {
  std::vector<std::wstring> folders;
  for (int root : {CSIDL_COMMON_APPDATA, CSIDL_LOCAL_APPDATA}) {
    const std::wstring base = known_folder(root);
    if (base.empty()) continue;
    for (const wchar_t* store : {L"ReportArchive", L"ReportQueue"})
      folders.push_back(join(join(base, L"Microsoft\\Windows\\WER"), store));
  }
  return folders;
}

}  // namespace

std::wstring description(Language language) {
  const bool en = language == Language::english;
  size_t reports = 0;
  unsigned long long bytes = 0;
  for (const std::wstring& folder : report_folders()) {
    reports += subfolders(folder).size();
    bytes += tally(folder).bytes;
  }
  return en ? L"  Error reports|kept by Windows|after crashes|" +
                  count_line(reports, L"report", L"reports", bytes)
            : L"  Rapoarte erori|pastrate de Windows|dupa blocari|" +
                  count_line(reports, L"raport", L"rapoarte", bytes);
}

void run() {
  for (const std::wstring& folder : report_folders()) clear_tree(folder, true, Locked::skip);
}

}  // namespace pack
