// From host names to addresses: the library takes dotted IPv4 addresses alone.
#pragma once

#include <string>

namespace cli {

// The IPv4 address of `host` in dotted form, such as "127.0.0.1". Throws a failure (no answer)
// that says why there is none.
std::string resolve(const std::string& host);

}  // namespace cli
