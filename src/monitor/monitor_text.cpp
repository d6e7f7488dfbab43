#include "monitor/monitor_text.h"

#include "core/text.h"

namespace wh {

namespace {
// The value as text, cut two characters behind its "." (the text has the
// user's decimal symbol, so with a comma nothing is cut: kept as it was).
std::string cut_decimals(double value) {
  std::string s = number_text(value, locale_decimal());
  const size_t dot = s.find('.');
  if (dot != std::string::npos && s.size() > dot + 3) s.resize(dot + 3);
  return s;
}
constexpr double one_mb = 1048576;
}  // namespace

std::string monitor_size_text(double bytes) {
  if (bytes < 1024) return number_text(bytes, locale_decimal()) + " B";
  if (bytes < one_mb) {
    const auto whole = static_cast<int32_t>(round_even(bytes));
    return std::to_string(whole / 1024) + " KB";
  }
  if (bytes < 1073741824) return cut_decimals(bytes / one_mb) + "M";
  return cut_decimals(bytes / 1073741824) + "G";
}

std::string cpu_text(int32_t percent) {
  if (percent == -1) return {};
  return trim(std::to_string(percent) + "%");
}

PanelLines panel_lines(int language, const std::string& cpu, double avail_phys,
                       double total_phys, uint32_t memory_load) {
  const bool low = avail_phys < one_mb;
  const std::string load = std::to_string(memory_load);
  // The number decides the padding, not its "%": 100 takes one blank less
  // than 5 or 99, so that 99 and 100 make lines of one length.
  const bool three = cpu.size() - (!cpu.empty() && cpu.back() == '%') >= 3;
  PanelLines l;
  if (language == 1) {
    l.cpu = "CPU       : " + cpu + (three ? "   " : "    ");
    l.ram = "RAM free  :  " + (low ? std::string(" <1MB !") : monitor_size_text(avail_phys));
    l.total = "    total :  " + monitor_size_text(total_phys);
    l.load = "MEM load  : " + load + "%    ";
  } else {
    l.cpu = "CPU        : " + cpu + (three ? "  " : "   ");
    l.ram = "RAM liber  :" + (low ? std::string(" <1MB!") : monitor_size_text(avail_phys));
    l.total = "    total  :" + monitor_size_text(total_phys);
    l.load = "MEM incarct: " + load + "%   ";
  }
  return l;
}

std::string tray_tip_text(const std::string& drives, double avail_phys, const std::string& cpu) {
  return drives + "  RAM:" + monitor_size_text(avail_phys) + "  CPU : " + cpu;
}

}  // namespace wh
