// How much of a large test is run.
#pragma once

#include <cstdlib>

namespace support {

// `count`, or that many times less of it as CIM_CLIENT_TEST_SCALE says: under valgrind a program
// takes thirty times as long, and a wrong access shows in the first thousand steps as well.
inline int scaled(int count) {
  const char* scale = std::getenv("CIM_CLIENT_TEST_SCALE");
  const long divisor = scale == nullptr ? 1 : std::strtol(scale, nullptr, 10);
  return divisor > 1 ? static_cast<int>(count / divisor) : count;
}

}  // namespace support
