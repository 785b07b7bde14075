// The memory of one document: chunks that double, or small ones, given back all at once.
#pragma once

#include <cstddef>
#include <cstring>

#include "XMLParser.h"

namespace xmlparser {

// Stands at the beginning of its own memory.
struct Chunk {
  Chunk* previous;
};

void release(Chunk* last);

// Hands out memory that is released with all the rest, and assembles one text at a time,
// the open text, which grows in place as long as its chunk has room.
class Arena {
 public:
  // `length`: bytes of the document's text.
  explicit Arena(std::size_t length)
      : next_size_(length < small_document ? small_chunk : first_chunk) {}
  Arena(const Arena&) = delete;
  Arena& operator=(const Arena&) = delete;
  ~Arena() { release(last_); }

  // `size` bytes, uninitialised, aligned for nodes; null when memory runs out.  No text may
  // be open.
  void* allocate(std::size_t size) {
    const std::size_t rounded = round_up(size);
    if (room() < rounded && !add_chunk(rounded)) return nullptr;
    void* memory = cursor_;
    cursor_ += rounded;
    return memory;
  }

  // Where the open text goes on, with room for `length` bytes; null when memory runs out.
  char* room_for(std::size_t length) {
    if (room() - text_length_ < length && !grow_text(length)) return nullptr;
    return cursor_ + text_length_;
  }

  // Makes `length` bytes that were written to the room part of the open text.
  void extend(std::size_t length) { text_length_ += length; }

  // Adds to the open text; false when memory runs out, and the text is as it was.
  bool append(const char* bytes, std::size_t length) {
    if (length == 0) return true;
    char* room = room_for(length);
    if (!room) return false;
    std::memcpy(room, bytes, length);
    extend(length);
    return true;
  }

  const char* text() const { return cursor_; }
  std::size_t text_length() const { return text_length_; }

  // Terminates the open text and hands it over; null when memory runs out.  Without an
  // append() before it the text is "".
  const char* finish_text() {
    if (text_length_ == 0) return "";
    char* room = room_for(1);
    if (!room) return nullptr;
    *room = '\0';
    const std::size_t size = text_length_ + 1;
    text_length_ = 0;
    return static_cast<const char*>(allocate(size));
  }

  void drop_text() { text_length_ = 0; }

  // A terminated copy of `length` bytes; null when memory runs out.  No text may be open.
  const char* copy(const char* bytes, std::size_t length) {
    return append(bytes, length) ? finish_text() : nullptr;
  }

  // Hands the chunks over to the caller, who passes them to release().
  Chunk* take() {
    Chunk* chunks = last_;
    last_ = nullptr;
    cursor_ = end_ = nullptr;
    return chunks;
  }

 private:
  // For a block of 1 KB or more the C library first merges all small blocks that were freed before,
  // which takes longer than reading a small document.
  static constexpr std::size_t small_document = 8 * 1024;  // bytes
  static constexpr std::size_t small_chunk = 1000;
  static constexpr std::size_t first_chunk = 16 * 1024;

  static constexpr std::size_t round_up(std::size_t size) {
    return (size + alignof(XmlNode) - 1) & ~(alignof(XmlNode) - 1);
  }

  std::size_t room() const { return static_cast<std::size_t>(end_ - cursor_); }
  bool add_chunk(std::size_t size);
  bool grow_text(std::size_t length);

  Chunk* last_ = nullptr;
  char* cursor_ = nullptr;  // where the open text begins; aligned for nodes, as is the end
  char* end_ = nullptr;
  std::size_t text_length_ = 0;
  std::size_t next_size_;  // bytes; of the next chunk
};

}  // namespace xmlparser
