// The descriptors that the process has open.
#include "support/open_descriptors.h"

#include <filesystem>
#include <iterator>

namespace support {

std::size_t open_descriptors() {
  const std::filesystem::directory_iterator entries("/proc/self/fd");
  const auto count = std::distance(begin(entries), end(entries));
  return static_cast<std::size_t>(count) - 1;  // but for the one that lists them
}

}  // namespace support
