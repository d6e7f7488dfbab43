#include "platform/processes.h"

#include <tlhelp32.h>

#include <vector>

#include "platform/fso.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"

namespace wh {

int process_snapshot(std::vector<ProcessEntry>& out) {
  out.clear();
  FileHandle snap(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  if (!snap) return rt_from_win32(GetLastError());
  PROCESSENTRY32 pe{};
  pe.dwSize = sizeof pe;
  for (BOOL ok = Process32First(snap.get(), &pe); ok; ok = Process32Next(snap.get(), &pe))
    out.push_back(ProcessEntry{pe.szExeFile, pe.th32ProcessID, pe.th32ParentProcessID,
                               pe.cntThreads});
  return rt_ok;
}

int terminate_process(DWORD pid, UINT exit_code) {
  // 0x1F0FFF is the all-access mask of the NT4-era headers; newer systems
  // accept it as a subset of theirs.
  KernelHandle p(OpenProcess(0x1F0FFF, FALSE, pid));
  if (!p) return rt_from_win32(GetLastError());
  return TerminateProcess(p.get(), exit_code) ? rt_ok : rt_from_win32(GetLastError());
}

int terminate_process_wait(DWORD pid, UINT exit_code, DWORD wait_ms) {
  KernelHandle p(OpenProcess(0x1F0FFF, FALSE, pid));
  if (!p) return rt_from_win32(GetLastError());
  if (!TerminateProcess(p.get(), exit_code)) return rt_from_win32(GetLastError());
  WaitForSingleObject(p.get(), wait_ms);
  return rt_ok;
}

int create_process(const std::string& cmdline, bool wait, ProcessResult& result, int show) {
  result = ProcessResult{};
  STARTUPINFOA si{};
  si.cb = sizeof si;
  if (show >= 0) {
    si.dwFlags = STARTF_USESHOWWINDOW;
    si.wShowWindow = static_cast<WORD>(show);
  }
  PROCESS_INFORMATION pi{};
  // CreateProcessA may write into the command line, so it gets a copy.
  std::vector<char> line(cmdline.begin(), cmdline.end());
  line.push_back('\0');
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, NORMAL_PRIORITY_CLASS,
                      nullptr, nullptr, &si, &pi))
    return rt_from_win32(GetLastError());
  KernelHandle process(pi.hProcess);
  KernelHandle thread(pi.hThread);
  result.pid = pi.dwProcessId;
  if (wait) {
    WaitForSingleObject(process.get(), INFINITE);
    DWORD code = 0;
    if (GetExitCodeProcess(process.get(), &code)) result.exit_code = code;
  }
  return rt_ok;
}

std::vector<WindowEntry> top_level_windows() {
  std::vector<WindowEntry> out;
  for (HWND w = GetWindow(GetDesktopWindow(), GW_CHILD); w; w = GetWindow(w, GW_HWNDNEXT)) {
    WindowEntry e;
    e.hwnd = w;
    e.title = get_window_text(w);
    e.visible = IsWindowVisible(w) != 0;
    e.owner = GetWindow(w, GW_OWNER);
    e.pid = window_process_id(w);
    e.style = GetWindowLongPtrA(w, GWL_STYLE);
    e.ex_style = GetWindowLongPtrA(w, GWL_EXSTYLE);
    out.push_back(std::move(e));
  }
  return out;
}

std::string get_window_text(HWND hwnd) {
  int n = GetWindowTextLengthA(hwnd);
  if (n <= 0) return {};
  // The length of another process's Unicode title may count characters:
  // room for them in UTF-8.
  const int room = static_cast<int>(utf8::bytes_for(static_cast<size_t>(n))) + 1;
  std::string text(static_cast<size_t>(room), '\0');
  int got = GetWindowTextA(hwnd, text.data(), room);
  text.resize(got > 0 ? static_cast<size_t>(got) : 0);
  return text;
}

DWORD window_process_id(HWND hwnd) {
  DWORD pid = 0;
  GetWindowThreadProcessId(hwnd, &pid);
  return pid;
}

LONG_PTR get_window_long(HWND hwnd, int index) { return GetWindowLongPtrA(hwnd, index); }

LRESULT send_message(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  return SendMessageA(hwnd, msg, wparam, lparam);
}

SingleInstance::SingleInstance(const std::string& name) {
  SetLastError(ERROR_SUCCESS);  // a new mutex need not clear an old error
  mutex_.reset(CreateMutexA(nullptr, FALSE, name.c_str()));
  DWORD e = GetLastError();
  // Access denied means the mutex exists under another user's security.
  previous_ = e == ERROR_ALREADY_EXISTS || (!mutex_ && e == ERROR_ACCESS_DENIED);
}

std::string command_tail_of(const std::string& s) {
  size_t i = 0;
  if (!s.empty() && s[0] == '"') {
    size_t close = s.find('"', 1);
    if (close == std::string::npos) return {};
    i = close + 1;
  } else {
    while (i < s.size() && s[i] != ' ' && s[i] != '\t') ++i;
  }
  if (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
  return s.substr(i);
}

std::string command_tail() {
  const char* line = GetCommandLineA();
  return line ? command_tail_of(line) : std::string();
}

bool version_is_nt() {
  OSVERSIONINFOA v{};
  v.dwOSVersionInfoSize = 148;  // sizeof(OSVERSIONINFOA), the record every caller knew
  if (!GetVersionExA(&v)) return false;
  return v.dwPlatformId == 2;  // VER_PLATFORM_WIN32_NT
}

std::string environ_value(const std::string& name) {
  std::string value(256, '\0');
  DWORD n = GetEnvironmentVariableA(name.c_str(), value.data(), static_cast<DWORD>(value.size()));
  if (n >= value.size()) {  // too small: n is the size needed, its NUL included
    value.resize(n);
    n = GetEnvironmentVariableA(name.c_str(), value.data(), n);
  }
  value.resize(n < value.size() ? n : 0);
  return value;
}

int Module::load(const std::string& path) {
  h_.reset(LoadLibraryA(path.c_str()));
  if (h_) return rt_ok;
  DWORD e = GetLastError();
  return e == ERROR_MOD_NOT_FOUND ? rt_file_not_found : rt_from_win32(e);
}

FARPROC Module::proc(const char* name) const {
  return h_ ? GetProcAddress(h_.get(), name) : nullptr;
}

int activate_window(const std::string& title, HWND& window) {
  window = ::FindWindowA(nullptr, title.c_str());
  if (!window) return 5;
  ::SetForegroundWindow(window);
  return 0;
}

void send_alt_f4(HWND window) {
  // Keyboard input goes to whatever is foreground, and under Wine the
  // activation of another process's window lands a moment later (keys
  // sent at once closed our own window): the keystrokes are posted to the
  // window itself, ALT held (KF_ALTDOWN in the key data).
  const LPARAM alt = static_cast<LPARAM>(KF_ALTDOWN) << 16;
  ::PostMessageA(window, WM_SYSKEYDOWN, VK_MENU, alt | 1);
  ::PostMessageA(window, WM_SYSKEYDOWN, VK_F4, alt | 1);
  ::PostMessageA(window, WM_SYSKEYUP, VK_F4, alt | 1 | (LPARAM{3} << 30));
  ::PostMessageA(window, WM_KEYUP, VK_MENU, 1 | (LPARAM{3} << 30));
}

}  // namespace wh
