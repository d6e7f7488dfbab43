#include "core/globals.h"

namespace wh {

uint8_t ActiveSection = 0;
uint8_t language_flag = 0;
std::vector<std::string> cmdline_paths;
uint8_t cmdline_path_count = 0;
int choose_result = -1;
bool first_run_done = false;

}  // namespace wh

namespace wh {
int16_t sequential_uninstall = 0;
}  // namespace wh
