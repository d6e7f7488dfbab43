#pragma once
#include <string>

namespace wh {

// GetEnvironmentVariableA; empty when it is not set.
std::string environment_variable(const std::string& name);

}  // namespace wh
