// Chunks of an arena, and texts that outgrow theirs.
#include "arena.h"

#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>

namespace xmlparser {
namespace {

// Larger chunks would not be faster, and what the last one leaves unused stays small.
constexpr std::size_t largest_regular_chunk = 8 * 1024 * 1024;  // bytes

static_assert(sizeof(Chunk) % alignof(XmlNode) == 0);

// Saves most of the page faults of a large document, which cost more than the reading.  Where
// large pages have another size, or there are none, nothing is lost.
void ask_for_large_pages(Chunk* chunk, std::size_t size) {
#ifdef MADV_HUGEPAGE
  constexpr std::size_t page = 2 * 1024 * 1024;  // bytes
  const std::size_t before = page - reinterpret_cast<std::uintptr_t>(chunk) % page;
  if (size < before + page) return;
  madvise(reinterpret_cast<char*>(chunk) + before, (size - before) / page * page, MADV_HUGEPAGE);
#else
  static_cast<void>(chunk);
  static_cast<void>(size);
#endif
}

char* contents(Chunk* chunk) { return reinterpret_cast<char*>(chunk + 1); }

}  // namespace

void release(Chunk* last) {
  while (last) {
    Chunk* previous = last->previous;
    std::free(last);
    last = previous;
  }
}

// Makes a new chunk current with room for `size` bytes, which is rounded up already.
bool Arena::add_chunk(std::size_t size) {
  if (size > SIZE_MAX - sizeof(Chunk)) return false;
  std::size_t whole = size + sizeof(Chunk);
  if (whole < next_size_) whole = next_size_;
  auto* chunk = static_cast<Chunk*>(std::malloc(whole));
  if (!chunk) return false;
  ask_for_large_pages(chunk, whole);
  chunk->previous = last_;
  last_ = chunk;
  cursor_ = contents(chunk);
  end_ = reinterpret_cast<char*>(chunk) + whole;
  if (next_size_ != small_chunk && next_size_ < largest_regular_chunk) next_size_ *= 2;
  return true;
}

// Makes room for `length` more bytes of the open text.  Twice what is needed, so that a text
// that comes in many pieces is not moved for each.
bool Arena::grow_text(std::size_t length) {
  if (length > SIZE_MAX / 4 || text_length_ > SIZE_MAX / 4 - length) return false;
  const std::size_t wanted = round_up(2 * (text_length_ + length));

  if (last_ && cursor_ == contents(last_)) {  // the chunk holds this text alone
    const std::size_t whole = wanted + sizeof(Chunk);
    auto* chunk = static_cast<Chunk*>(std::realloc(last_, whole));
    if (!chunk) return false;
    last_ = chunk;
    cursor_ = contents(chunk);
    end_ = reinterpret_cast<char*>(chunk) + whole;
    return true;
  }

  const char* text = cursor_;
  if (!add_chunk(wanted)) return false;
  if (text_length_ > 0) std::memcpy(cursor_, text, text_length_);
  return true;
}

}  // namespace xmlparser
