// Memory for records and texts, from malloc() so that C callers can free it.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace cim {

// A zero-filled R, or null when memory runs out.
template <class R>
R* allocate() {
  return static_cast<R*>(std::calloc(1, sizeof(R)));
}

// A copy of the `length` bytes at `text`, terminated, followed by `slack` zero bytes; null
// when memory runs out.
inline char* duplicate(const char* text, std::size_t length, std::size_t slack = 0) {
  char* copy = static_cast<char*>(std::malloc(length + 1 + slack));
  if (!copy) return nullptr;
  std::memcpy(copy, text, length);
  std::memset(copy + length, 0, 1 + slack);
  return copy;
}

// A copy of `text`; null when `text` is null or memory runs out.
inline char* duplicate(const char* text) { return text ? ::strdup(text) : nullptr; }

}  // namespace cim
