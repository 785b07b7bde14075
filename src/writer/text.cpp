// Growing, and handing the text over.
#include "writer/text.h"

#include <charconv>
#include <cstdlib>

namespace cim {

namespace {

constexpr std::size_t first_capacity = 512;  // bytes; holds most elements

}  // namespace

Text::Text(char* start) : bytes_(start), end_(start), limit_(start) {
  if (start) end_ = limit_ = start + std::strlen(start);
}

Text::~Text() { std::free(bytes_); }

// Doubles the text or goes to what is needed, so that a text of any length is copied a
// bounded number of times.
char* Text::grow(char* end, std::size_t count) {
  const auto used = static_cast<std::size_t>(end - bytes_);
  const std::size_t needed = used + count + 1;
  std::size_t capacity = 2 * static_cast<std::size_t>(limit_ - bytes_);
  if (capacity < needed) capacity = needed;
  if (capacity < first_capacity) capacity = first_capacity;

  char* moved = failed_ ? nullptr : static_cast<char*>(std::realloc(bytes_, capacity));
  if (!moved) {
    failed_ = true;
    limit_ = end;  // no later piece fits, however short
    return nullptr;
  }
  bytes_ = moved;
  limit_ = moved + capacity - 1;
  return moved + used;
}

char* Text::hand_over() {
  if (!bytes_) end_ = grow(end_, 0);
  if (end_) *end_ = '\0';
  char* bytes = bytes_;
  bytes_ = end_ = limit_ = nullptr;
  return bytes;
}

char* write_text(Text& out, char* end, const char* text) {
  const std::size_t length = std::strlen(text);
  char* place = out.room(end, length);
  if (!place) return end;
  copy_text(place, text, length);
  return place + length;
}

char* write_number(Text& out, char* end, std::int32_t number) {
  char digits[11];  // as many as "-2147483648" has
  const auto length =
      static_cast<std::size_t>(std::to_chars(digits, digits + sizeof digits, number).ptr - digits);
  char* place = out.room(end, length);
  if (!place) return end;
  std::memcpy(place, digits, length);
  return place + length;
}

}  // namespace cim
