#include "monitor/cpu_usage.h"

#include <cmath>
#include <cstring>

#include "core/routines.h"
#include "core/text.h"
#include "platform/registry.h"
#include "platform/rt_error.h"
#include "platform/system_info.h"

namespace wh {

namespace {
// x64 layouts (Wine refuses the 32-bit sizes): basic information 64 bytes
// with the processor count in the byte at 56, performance 312 with the idle
// time first, time of day with the current time at 8.
constexpr ULONG basic_size = 64, basic_processors = 56;
constexpr ULONG performance_size = 312;
constexpr ULONG time_size = 32, time_now = 8;

int64_t large_integer(const unsigned char* at) {
  int64_t v;
  std::memcpy(&v, at, sizeof v);
  return v;
}

const char* const cpu_value = "KERNEL\\CPUUsage";
}  // namespace

int32_t cpu_percent(int64_t d_idle, int64_t d_sys, int processors) {
  // The raw counts sit in a scaled decimal (four places): a quotient drops
  // the scale, a lone d_idle keeps it.
  double ratio = d_sys != 0 ? static_cast<double>(d_idle) / static_cast<double>(d_sys)
                            : static_cast<double>(d_idle) / 10000.0;
  ratio = round_even(ratio * 10000.0) / 10000.0;
  double cpu = std::floor(100.0 - 100.0 * ratio / processors + 0.5);
  if (!(cpu >= -2147483648.0 && cpu <= 2147483647.0)) raise(rt_overflow);
  return static_cast<int32_t>(cpu);
}

void clsCPUUsageNT::Initialize() {
  unsigned char time[time_size] = {};
  unsigned char perf[performance_size] = {};
  if (nt_query_system_information(3, time, sizeof time) != 0) return;
  if (nt_query_system_information(2, perf, sizeof perf) != 0) return;
  previous_idle_ = large_integer(perf);
  previous_system_ = large_integer(time + time_now);
}

int32_t clsCPUUsageNT::Query() {
  unsigned char basic[basic_size] = {};
  unsigned char time[time_size] = {};
  unsigned char perf[performance_size] = {};
  if (nt_query_system_information(0, basic, sizeof basic) != 0 ||
      nt_query_system_information(3, time, sizeof time) != 0 ||
      nt_query_system_information(2, perf, sizeof perf) != 0)
    return -1;
  const int64_t idle = large_integer(perf);
  const int64_t system = large_integer(time + time_now);
  const int32_t cpu = cpu_percent(idle - previous_idle_, system - previous_system_,
                                  basic[basic_processors]);
  previous_idle_ = idle;
  previous_system_ = system;
  return cpu;
}

void clsCPUUsage::Initialize() {
  HKEY start = nullptr;
  if (reg_open_key_ex(HKEY_DYN_DATA, "PerfStats\\StartStat", KEY_ALL_ACCESS, start) != 0) return;
  DWORD value = 0;
  data_length_ = sizeof value;
  reg_query_value(start, cpu_value, &value_type_, &value, &data_length_);
  reg_close_key(start);
  reg_open_key_ex(HKEY_DYN_DATA, "PerfStats\\StatData", 131097, key_);
}

int32_t clsCPUUsage::Query() {
  // Without a key the read fails and the last value stands.
  data_length_ = sizeof last_value_;
  reg_query_value(key_, cpu_value, &value_type_, &last_value_, &data_length_);
  return static_cast<int32_t>(last_value_);
}

void clsCPUUsage::Terminate() {
  reg_close_key(key_);
  key_ = nullptr;
  HKEY stop = nullptr;
  if (reg_open_key_ex(HKEY_DYN_DATA, "PerfStats\\StopStat", KEY_ALL_ACCESS, stop) != 0) return;
  DWORD value = 0;
  data_length_ = sizeof value;
  reg_query_value(stop, cpu_value, &value_type_, &value, &data_length_);
  reg_close_key(stop);
}

std::unique_ptr<CpuMeter> make_cpu_meter() {
  if (is_nt()) return std::make_unique<clsCPUUsageNT>();
  return std::make_unique<clsCPUUsage>();
}

}  // namespace wh
