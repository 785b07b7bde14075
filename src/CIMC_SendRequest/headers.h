// Room for the header block; CIMC_CreateStdHttpHeaders() is declared in cim_client.h.
#pragma once

#include <cstddef>

namespace cim {

// Bytes that hold the whole header block for these credentials, and a terminator.
std::size_t header_block_room(const char* user, const char* password);

}  // namespace cim
