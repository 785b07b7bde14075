// Carries faults out on an answer's bytes.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "faults/fault.h"
#include "http/script.h"

namespace sandbox::faults {

// The CIM error that is to take the answer's place, if one is.
std::optional<int> replacing_error(const std::vector<Action>& actions);

// What the connection does instead of sending `response`, head and body, in one go.
http::Script misbehave(std::string response, const std::vector<Action>& actions);

}  // namespace sandbox::faults
