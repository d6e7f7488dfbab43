#pragma once
// CPU load in percent: one meter for the NT family (NtQuerySystemInformation)
// and one for the 9x family (the HKEY_DYN_DATA statistics), behind the same
// three operations. `make_cpu_meter` picks by is_nt.
#include <windows.h>

#include <cstdint>
#include <memory>

namespace wh {

class CpuMeter {
public:
  virtual ~CpuMeter() = default;
  virtual void Initialize() = 0;
  virtual int32_t Query() = 0;  // percent; -1 on failure
  virtual void Terminate() = 0;
};

// The NT figure from two samples: idle time (summed over all processors)
// and system time, both raw 100 ns counts. The ratio lives in a decimal
// with four places; a d_sys of 0 leaves it d_idle (in that decimal's
// scale) and divides nothing. Raises 6 when the result leaves 32 bits.
int32_t cpu_percent(int64_t d_idle, int64_t d_sys, int processors);

class clsCPUUsageNT : public CpuMeter {
public:
  void Initialize() override;
  int32_t Query() override;
  void Terminate() override {}

private:
  int64_t previous_idle_ = 0;    // raw 8 bytes, as copied
  int64_t previous_system_ = 0;
};

class clsCPUUsage : public CpuMeter {
public:
  void Initialize() override;
  int32_t Query() override;
  void Terminate() override;

private:
  HKEY key_ = nullptr;
  DWORD data_length_ = 4;
  DWORD last_value_ = 0;
  DWORD value_type_ = 0;
};

std::unique_ptr<CpuMeter> make_cpu_meter();

}  // namespace wh
