// Memory for records and texts, from malloc() so that C callers can free it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace cim {

// A zero-filled R, or null when memory runs out.  calloc() would take longer: the C library keeps
// small blocks at hand for malloc() alone, and clears by a loop what here are a few stores.
template <class R>
R* allocate() {
  auto* record = static_cast<R*>(std::malloc(sizeof(R)));
  if (record) *record = R{};
  return record;
}

template <class Word>
void copy_two_words(char* to, const char* from, std::size_t length) {
  Word first;
  Word last;
  std::memcpy(&first, from, sizeof(Word));
  std::memcpy(&last, from + length - sizeof(Word), sizeof(Word));
  std::memcpy(to, &first, sizeof(Word));
  std::memcpy(to + length - sizeof(Word), &last, sizeof(Word));
}

// Copies `length` bytes.  Names and values of 4 to 32 bytes, which are most, go over in two
// words that overlap: half the time of a call.
inline void copy_text(char* to, const char* from, std::size_t length) {
  struct Words {
    std::uint64_t low, high;
  };
  if (length > 32 || length < 4) {
    std::memcpy(to, from, length);
  } else if (length > 16) {
    copy_two_words<Words>(to, from, length);
  } else if (length >= 8) {
    copy_two_words<std::uint64_t>(to, from, length);
  } else {
    copy_two_words<std::uint32_t>(to, from, length);
  }
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
