// The environment variables that stand in for options.
#pragma once

#include <optional>
#include <string>

#include "target.h"

namespace cli {

// The variable's text; none when it is not set or empty.
std::optional<std::string> environment(const char* name);

// CIM_CLIENT_HOST, CIM_CLIENT_PORT, CIM_CLIENT_NAMESPACE and CIM_CLIENT_USER.
TargetParts target_from_environment();

// CIM_CLIENT_URL.
TargetParts url_from_environment();

}  // namespace cli
