#include "platform/environment.h"

#include <windows.h>

namespace wh {

std::string environment_variable(const std::string& name) {
  const DWORD n = ::GetEnvironmentVariableA(name.c_str(), nullptr, 0);
  if (n == 0) return {};
  std::string value(n, '\0');
  const DWORD got = ::GetEnvironmentVariableA(name.c_str(), value.data(), n);
  value.resize(got < n ? got : 0);
  return value;
}

}  // namespace wh
