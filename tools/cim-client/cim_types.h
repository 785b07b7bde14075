// The CIM types, and values that people type for them.
#pragma once

#include <string>
#include <string_view>

namespace cli {

// The text that is sent for a value of a CIM type (case does not matter): numbers in decimal,
// booleans as TRUE and FALSE, date-times in their 25 characters. Throws a usage failure that
// says why `text` is no such value; `what` names what it is for. A type that is not known takes
// every text.
std::string checked_value(std::string_view text, std::string_view type, std::string_view what);

// Reads a date-time: the 25 characters of DSP0004, or ISO 8601 as in "2024-01-31T23:59:59Z" and
// "2024-01-31T23:59:59+01:00". Empty when it is neither.
std::string date_time_text(std::string_view text);

}  // namespace cli
