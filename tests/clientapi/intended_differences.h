// Where the two routes are meant to differ.
#pragma once

#include <vector>

namespace support {

// Patterns as the shell has them for where records differ, and for what each route says there;
// "(absent)" for nothing.
struct IntendedDifference {
  const char* place;
  const char* xml;
  const char* local;
  const char* reason;
};

const std::vector<IntendedDifference>& intended_differences();

}  // namespace support
