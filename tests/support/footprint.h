// How much memory the process takes, and whether that says anything.
#pragma once

#include <cstddef>

namespace support {

// True when a sanitizer watches the process or an emulator runs it: their own memory is part of the
// process's, so that sizes say nothing of the library.
bool is_watched();

// Bytes that libc has given away, those that it keeps at hand for the thread included.
long bytes_in_use();

// KiB of the process at its peak since forget_peak().
std::size_t peak();
void forget_peak();

}  // namespace support
