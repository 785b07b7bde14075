// Standard error, written to directly.
#pragma once

#include <string_view>

namespace rtlog {

// Writes `text` to standard error, as far as that takes it.
void write_to_standard_error(std::string_view text);

}  // namespace rtlog
