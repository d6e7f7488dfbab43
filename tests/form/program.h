#pragma once
// The real program started with a command line, stopped when it goes out of
// scope if it still runs.
#include <windows.h>

#include <string>

namespace wh::test {

inline const char* const program_exe = "C:\\wh\\Wellharrower.exe";

// Lets this thread's windows paint while the program works.
inline void pump_for(DWORD ms) {
  const DWORD start = GetTickCount();
  do {
    MSG msg;
    while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&msg);
    Sleep(20);
  } while (GetTickCount() - start < ms);
}

class Program {
public:
  // The exe with a command tail, or a whole command line of its own.
  explicit Program(const std::string& tail = "", bool whole_line = false) {
    std::string line = whole_line ? tail : std::string("\"") + program_exe + "\"" +
                                               (tail.empty() ? "" : " " + tail);
    STARTUPINFOA si{};
    si.cb = sizeof si;
    started_ = CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, "C:\\",
                              &si, &pi_);
  }
  ~Program() {
    if (!started_) return;
    if (!ends_within(0)) TerminateProcess(pi_.hProcess, 9);
    WaitForSingleObject(pi_.hProcess, 10000);
    CloseHandle(pi_.hProcess);
    CloseHandle(pi_.hThread);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  bool started() const { return started_; }
  // Until its start is over and it waits for input (a fixed sleep raced
  // with the slower starts under Wine).
  void wait_idle() const { WaitForInputIdle(pi_.hProcess, 20000); }
  bool ends_within(DWORD ms) const {
    return WaitForSingleObject(pi_.hProcess, ms) == WAIT_OBJECT_0;
  }
  // Its main window (a visible one when `shown`), looked for at once and
  // then for up to `ms`; none once it has ended.
  HWND main_window(DWORD ms, bool shown = false) const {
    for (DWORD waited = 0; started_; waited += 50) {
      for (HWND w = FindWindowExA(nullptr, nullptr, "Wellharrower", nullptr); w;
           w = FindWindowExA(nullptr, w, "Wellharrower", nullptr)) {
        DWORD pid = 0;
        GetWindowThreadProcessId(w, &pid);
        if (pid == pi_.dwProcessId && (!shown || IsWindowVisible(w))) return w;
      }
      if (waited >= ms || ends_within(0)) break;
      pump_for(50);
    }
    return nullptr;
  }

private:
  PROCESS_INFORMATION pi_{};
  bool started_ = false;
};

}  // namespace wh::test
