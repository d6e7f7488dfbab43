#include "filetools/floppy_tool.h"

#include "core/routines.h"
#include "core/tasks.h"
#include "platform/files.h"
#include "platform/processes.h"

namespace wh {

bool format_done = false;

std::string killa_path() { return app_path() + "\\killa.exe"; }

void run_killa() {
  resource_to_file(killa_path(), 101, "EXE");
  ProcessResult started;
  create_process(killa_path(), false, started, 6);  // result not looked at
}

bool killa_watch() {
  if (!task_list) task_list = std::make_unique<clsApplicazioni>();
  task_list->RefreshTaskList(nullptr, false);
  for (const clsApplicazioni::Window& w : task_list->windows) {
    if (w.title.find("Inactive") == std::string::npos || w.title.find("KILLA") == std::string::npos)
      continue;
    // The image stays in use until the process is really gone, and the
    // callers delete it next: wait for the end a little.
    terminate_process_wait(window_process_id(w.hwnd), 0, 5000);
    format_done = true;
    return true;
  }
  return false;
}

}  // namespace wh
