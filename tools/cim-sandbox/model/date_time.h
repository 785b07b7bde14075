// The 25-character CIM date-times and intervals.
#pragma once

#include <string_view>

namespace sandbox {

// True for "20240131235959.000000+060" and "00000001020304.000000:000": digits where digits belong
// (or asterisks, which mean "unknown", up to the end of the time), and fields within their limits.
bool is_date_time(std::string_view text);

}  // namespace sandbox
