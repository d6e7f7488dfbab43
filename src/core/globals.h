#pragma once
// Module-level state of the program: one of each, alive until the end.
#include <cstdint>
#include <string>
#include <vector>

namespace wh {

// The section that shows (0 none, 1..10).
extern uint8_t ActiveSection;
// 1 English; anything else is Romanian.
extern uint8_t language_flag;
// Paths of the command line, from index 1.
extern std::vector<std::string> cmdline_paths;
// Quoted paths accepted so far; wraps, never reset.
extern uint8_t cmdline_path_count;
// -1 while the choose window waits; 0 Harrow, 1 split, 2 shred.
extern int choose_result;
// True once the first-run window's button was pressed.
extern bool first_run_done;

}  // namespace wh

namespace wh {
// 0, or 65535 when the selected uninstallers run one at a time.
extern int16_t sequential_uninstall;
}  // namespace wh
