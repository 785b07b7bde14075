// The distinct names of one document, each kept once and numbered.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "arena.h"

namespace xmlparser {

struct NumberedName {
  const char* text = nullptr;  // null: memory ran out
  std::uint32_t length = 0;
  std::uint32_t number = 0;  // from 1 on; 0: kept for this one use
};

// Finds a name in a bounded number of steps, so that no choice of names makes a document slow.
// A name that finds no place gets no number.  There is place for several times the names that
// CIM documents use.
class Names {
 public:
  NumberedName find_or_add(Arena& arena, const char* text);

 private:
  std::array<NumberedName, 512> slots_{};
  std::uint32_t count_ = 0;
};

}  // namespace xmlparser
