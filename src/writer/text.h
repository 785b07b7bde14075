// A growing text, and the pieces from which the writer puts elements together.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "base/memory.h"

namespace cim {

// A text on the heap that grows at its end.
//
// Once memory has run out nothing more is appended, even if memory comes back: what stands
// there is a true beginning of the document, never a document with a hole.
class Text {
 public:
  // Continues `start`, a malloc()ed text or null, and owns it from here on.
  explicit Text(char* start);
  ~Text();
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  // Makes room for `count` more bytes.  False when memory runs out.
  bool reserve(std::size_t count) {
    char* place = room(end_, count);
    if (place) end_ = place;
    return place;
  }

  // Writes the pieces one after the other: literals, texts, records, lists, and the pieces
  // declared below and in elements.h.  A null text or record writes nothing.
  //
  // The end travels from piece to piece in a register.  Kept in the object it would be
  // stored and loaded again around every piece; so all of it is inlined, by force: literals
  // then cost one comparison and a few stores.
  template <class... Piece>
  [[gnu::always_inline]] void put(const Piece&... piece) {
    char* end = end_;
    ((end = write_piece(*this, end, piece)), ...);
    end_ = end;
  }

  // Whether memory has run out.
  bool failed() const { return failed_; }

  // Hands the text, terminated, over to the caller, who frees it: "" when nothing was
  // written, null only when there was no memory at all.  This object is empty afterwards.
  char* hand_over();

  // ---- For pieces ----
  // A piece is a function write_piece(Text& out, char* end, piece): it writes at `end`, the
  // end of the text so far, and returns the new end.

  // Where `count` bytes fit behind `end`, which may move; null when memory has run out.
  char* room(char* end, std::size_t count) {
    return count <= static_cast<std::size_t>(limit_ - end) ? end : grow(end, count);
  }

  char* position() const { return end_; }
  void set_position(char* end) { end_ = end; }

 private:
  char* grow(char* end, std::size_t count);

  char* bytes_;
  char* end_;    // as of the last put(); not terminated
  char* limit_;  // the byte kept for the terminator
  bool failed_ = false;
};

// A literal.
template <std::size_t size>
[[gnu::always_inline]] inline char* write_piece(Text& out, char* end, const char (&literal)[size]) {
  char* place = out.room(end, size - 1);
  if (!place) return end;
  std::memcpy(place, literal, size - 1);
  return place + size - 1;
}

char* write_text(Text& out, char* end, const char* text);

// A text of a record.
template <class T>
requires std::is_same_v<T, char*>
[[gnu::always_inline]] inline char* write_piece(Text& out, char* end, T text) {
  return text ? write_text(out, end, text) : end;
}

// opener"text": nothing when the text is null.
template <std::size_t size>
struct Optional {
  const char (&opener)[size];
  const char* text;
};
template <std::size_t size>
Optional<size> optional(const char (&opener)[size], const char* text) {
  return {opener, text};
}
template <std::size_t size>
[[gnu::always_inline]] inline char* write_piece(Text& out, char* end, const Optional<size>& piece) {
  if (!piece.text) return end;
  const std::size_t length = std::strlen(piece.text);
  char* place = out.room(end, size - 1 + length + 2);
  if (!place) return end;
  std::memcpy(place, piece.opener, size - 1);
  place += size - 1;
  *place++ = '"';
  copy_text(place, piece.text, length);
  place += length;
  *place++ = '"';
  return place;
}

// "text": nothing, not even the quotes, when the text is null.
inline Optional<1> quoted(const char* text) { return optional("", text); }

// One literal when the flag is 1, the other when it is 0, nothing for any other value.
template <std::size_t size_1, std::size_t size_0>
struct Flag {
  const char (&when_1)[size_1];
  const char (&when_0)[size_0];
  std::int16_t value;
};
template <std::size_t size_1, std::size_t size_0>
Flag<size_1, size_0> flag(const char (&when_1)[size_1], const char (&when_0)[size_0],
                          std::int16_t value) {
  return {when_1, when_0, value};
}
template <std::size_t size>
Flag<size, 1> when_true(const char (&literal)[size], std::int16_t value) {
  return {literal, "", value};
}
template <std::size_t size_1, std::size_t size_0>
[[gnu::always_inline]] inline char* write_piece(Text& out, char* end,
                                                const Flag<size_1, size_0>& piece) {
  if (piece.value == 1) return write_piece(out, end, piece.when_1);
  if (piece.value == 0) return write_piece(out, end, piece.when_0);
  return end;
}

// opener and the number in decimal, when it is greater than 0.
template <std::size_t size>
struct WhenPositive {
  const char (&opener)[size];
  std::int32_t number;
};
template <std::size_t size>
WhenPositive<size> when_positive(const char (&opener)[size], std::int32_t number) {
  return {opener, number};
}
char* write_number(Text& out, char* end, std::int32_t number);
template <std::size_t size>
[[gnu::always_inline]] inline char* write_piece(Text& out, char* end,
                                                const WhenPositive<size>& piece) {
  if (piece.number <= 0) return end;
  return write_number(out, write_piece(out, end, piece.opener), piece.number);
}

}  // namespace cim
