// Sizes of base64 texts; Encode64() and Decode64() are declared in cim_client.h.
#pragma once

#include <cstddef>

namespace cim {

// Characters of the base64 form of `length` bytes, without a terminator.
constexpr std::size_t encoded_length(std::size_t length) { return (length + 2) / 3 * 4; }

}  // namespace cim
