#pragma once
// Processes, windows, the single-instance mutex, the command line, the OS
// family and loadable modules. Error results are run-time numbers.
#include <windows.h>

#include <string>
#include <vector>

#include "platform/handles.h"

namespace wh {

struct ProcessEntry {
  std::string exe;  // file name as Toolhelp gives it (no folder on NT)
  DWORD pid = 0;
  DWORD parent_pid = 0;
  DWORD threads = 0;
};
// CreateToolhelp32Snapshot + Process32First/Next, in snapshot order.
int process_snapshot(std::vector<ProcessEntry>& out);

// OpenProcess(PROCESS_ALL_ACCESS) + TerminateProcess.
int terminate_process(DWORD pid, UINT exit_code = 0);
// The same, then waits up to `wait_ms` for the process to be gone:
// TerminateProcess only starts the end, and its exe stays in use until then.
int terminate_process_wait(DWORD pid, UINT exit_code, DWORD wait_ms);

struct ProcessResult {
  DWORD pid = 0;
  DWORD exit_code = STILL_ACTIVE;  // set only when waited for
};
// CreateProcessA with no application name, the command line as given,
// handles inherited, normal priority. With `wait`, blocks without limit
// (no message pumping) and fetches the exit code. `show` < 0 leaves the
// start-up record empty, so the child picks its own window state.
int create_process(const std::string& cmdline, bool wait, ProcessResult& result,
                   int show = -1);

struct WindowEntry {
  HWND hwnd = nullptr;
  std::string title;
  bool visible = false;
  HWND owner = nullptr;
  DWORD pid = 0;
  LONG_PTR style = 0;
  LONG_PTR ex_style = 0;
};
// Top-level windows along the GetWindow(GW_HWNDNEXT) chain, in z-order.
std::vector<WindowEntry> top_level_windows();
// GetWindowTextLengthA + GetWindowTextA.
std::string get_window_text(HWND hwnd);
DWORD window_process_id(HWND hwnd);
LONG_PTR get_window_long(HWND hwnd, int index);
LRESULT send_message(HWND hwnd, UINT msg, WPARAM wparam = 0, LPARAM lparam = 0);
// Activating a window by its title (FindWindowA, any letter case, then
// SetForegroundWindow): 5 when no window has that title.
int activate_window(const std::string& title, HWND& window);
// ALT+F4 as keystrokes to that window; its default handling closes it.
void send_alt_f4(HWND window);

// A named mutex held for the life of the object (the program keeps one for
// the life of the process).
class SingleInstance {
public:
  explicit SingleInstance(const std::string& name);
  // True when the mutex existed already: another instance runs.
  bool previous_instance() const { return previous_; }

private:
  KernelHandle mutex_;
  bool previous_ = false;
};

// What stands behind the program's own name on a command line: argv[0]
// ends at its closing quote, or at the first blank when unquoted; then one
// blank is dropped. The rest comes as it is.
std::string command_tail_of(const std::string& command_line);
// The same for this process (GetCommandLineA).
std::string command_tail();

// GetVersionExA with the record size 148; true for platform id 2.
bool version_is_nt();

// A variable of this process's environment; empty when it is not set.
std::string environ_value(const std::string& name);

// LoadLibraryA, freed by the destructor.
class Module {
public:
  Module() = default;
  explicit Module(const std::string& path) { load(path); }
  int load(const std::string& path);
  bool loaded() const { return h_.valid(); }
  HMODULE handle() const { return h_.get(); }
  // GetProcAddress; nullptr when missing.
  FARPROC proc(const char* name) const;
  template <class F>
  F proc_as(const char* name) const {
    return reinterpret_cast<F>(reinterpret_cast<void*>(proc(name)));
  }

private:
  ModuleHandle h_;
};

}  // namespace wh
