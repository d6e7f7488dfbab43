#pragma once
// The texts of the system monitor: size texts, the LCD panel's four figure
// lines in both languages and the tray tip. Pure: no controls.
#include <cstdint>
#include <string>

namespace wh {

// "512 B", "3 KB", "1.99M", "5M", "23.47G": two decimals cut behind the
// ".", never rounded; a value with no "." stays whole. KB is the value
// rounded to 32 bits, divided by 1024. The panel's lines and the drive line
// each had their own copy of this routine with the same rules.
std::string monitor_size_text(double bytes);
inline std::string drive_size_text(double bytes) { return monitor_size_text(bytes); }

// The CPU figure as text: "" for a failed query (-1), else the number + "%".
std::string cpu_text(int32_t percent);

struct PanelLines {
  std::string cpu, ram, total, load;  // LCD rows 2 to 5
};
// language 1 English, else Romanian. Below 1 MB free the size gives way to
// a warning.
PanelLines panel_lines(int language, const std::string& cpu, double avail_phys,
                       double total_phys, uint32_t memory_load);

// drives + "  RAM:" + free + "  CPU : " + cpu
std::string tray_tip_text(const std::string& drives, double avail_phys, const std::string& cpu);

}  // namespace wh
