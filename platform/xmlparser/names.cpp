// Open addressing with short runs.
#include "names.h"

#include <cstring>

namespace xmlparser {
namespace {

constexpr std::size_t longest_run = 8;

struct Measured {
  std::size_t hash;
  std::size_t length;
};

// FNV-1a.
Measured measure(const char* text) {
  std::uint32_t hash = 2166136261U;
  const char* end = text;
  for (; *end; ++end) hash = (hash ^ static_cast<unsigned char>(*end)) * 16777619U;
  return {hash ^ (hash >> 16U), static_cast<std::size_t>(end - text)};
}

}  // namespace

NumberedName Names::find_or_add(Arena& arena, const char* text) {
  const auto [hash, length] = measure(text);
  for (std::size_t i = hash; i < hash + longest_run; ++i) {
    NumberedName& slot = slots_[i % slots_.size()];
    if (!slot.text) {
      slot.text = arena.copy(text, length);
      if (!slot.text) return {};
      slot.length = static_cast<std::uint32_t>(length);
      slot.number = ++count_;
      return slot;
    }
    if (slot.length == length && std::memcmp(slot.text, text, length) == 0) return slot;
  }
  return {arena.copy(text, length), static_cast<std::uint32_t>(length), 0};
}

}  // namespace xmlparser
