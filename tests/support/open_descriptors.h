// The descriptors that the process has open.
#pragma once

#include <cstddef>

namespace support {

// How many descriptors are open.
std::size_t open_descriptors();

}  // namespace support
