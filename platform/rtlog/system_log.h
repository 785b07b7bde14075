// The system log.
#pragma once

#include <string_view>

#include "settings.h"

namespace rtlog {

// Writes each line of `text` as a message of its own, long ones in parts.  `place` says where the
// text comes from: "module/category file:line".
void write_to_system_log(Level level, std::string_view place, std::string_view text);

}  // namespace rtlog
