// Looking up the names that the reader knows.
#include "reader/names.h"

#include <cstring>

namespace cim {
namespace {

// Open addressing; twice as many slots as names keep the runs short.
constexpr std::size_t slot_count = 256;

constexpr std::size_t hash(const char* text) {
  std::uint32_t value = 2166136261U;  // FNV-1a
  for (; *text; ++text) value = (value ^ static_cast<unsigned char>(*text)) * 16777619U;
  return (value ^ (value >> 16U)) % slot_count;
}

consteval std::array<Name, slot_count> make_slots() {
  static_assert(known_names.size < slot_count / 2);
  std::array<Name, slot_count> slots{};
  slots.fill(unknown_name);
  for (std::size_t i = 0; i < known_names.size; ++i) {
    std::size_t slot = hash(known_names.text[i]);
    while (slots[slot] != unknown_name) slot = (slot + 1) % slot_count;
    slots[slot] = static_cast<Name>(i);
  }
  return slots;
}

constexpr std::array<Name, slot_count> slots = make_slots();

}  // namespace

Name look_up(const char* text) {
  std::size_t slot = hash(text);
  for (; slots[slot] != unknown_name; slot = (slot + 1) % slot_count)
    if (std::strcmp(known_names.text[slots[slot]], text) == 0) return slots[slot];
  return unknown_name;
}

}  // namespace cim
