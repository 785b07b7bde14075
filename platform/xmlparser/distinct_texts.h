// Distinct texts of one document, each kept once and numbered: its names, and the values of its
// attributes, of which most stand there again and again.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "arena.h"

namespace xmlparser {

struct NumberedText {
  const char* text;  // null: memory ran out
  std::uint32_t length;
  std::uint32_t number;  // from 1 on; 0: kept for this one use
};

// Finds a text in a bounded number of steps, so that no choice of texts makes a document slow.
// A text that finds no place gets no number.  There is place for several times the names that
// CIM documents use.
class DistinctTexts {
 public:
  static constexpr std::size_t most = 256;

  // Null when the text, of 1 byte or more, is not kept.
  const NumberedText* find(const char* bytes, std::size_t length) const {
    const Fingerprint print = fingerprint_of(bytes, length);
    for (std::size_t step = 0; step < longest_run; ++step) {
      const std::uint16_t number = places_[(print.place + step) % places_.size()];
      if (number == 0) return nullptr;
      const Entry& entry = entries_[number - 1U];
      if (entry.first == print.first && entry.last == print.last && entry.text.length == length &&
          middle_is_equal(entry.text.text, bytes, length))
        return &entry.text;
    }
    return nullptr;
  }

  // Of the text with that number.
  std::size_t length_of(std::uint32_t number) const { return entries_[number - 1U].text.length; }

  // Keeps a text that find() does not find, of 1 byte or more.
  NumberedText add(Arena& arena, const char* bytes, std::size_t length);

 private:
  static constexpr std::size_t longest_run = 8;

  // The first and last eight bytes, or four; all of a shorter text.
  struct Fingerprint {
    std::uint64_t first;
    std::uint64_t last;
    std::size_t place;
  };

  struct Entry {
    NumberedText text;
    std::uint64_t first;
    std::uint64_t last;
  };

  template <class Number>
  static Number load(const char* bytes) {
    Number number;
    std::memcpy(&number, bytes, sizeof(number));
    return number;
  }

  static Fingerprint fingerprint_of(const char* bytes, std::size_t length) {
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    if (length >= 8) {
      first = load<std::uint64_t>(bytes);
      last = load<std::uint64_t>(bytes + length - 8);
    } else if (length >= 4) {
      first = load<std::uint32_t>(bytes);
      last = load<std::uint32_t>(bytes + length - 4);
    } else {
      first = load<std::uint8_t>(bytes);
      last = static_cast<std::uint64_t>(load<std::uint8_t>(bytes + length / 2)) << 8U |
             load<std::uint8_t>(bytes + length - 1);
    }
    // Odd numbers with well-mixed bits: FNV's prime and the golden ratio's.
    std::uint64_t mixed = (first + last * 0x100000001B3U + length) * 0x9E3779B97F4A7C15U;
    mixed = (mixed ^ mixed >> 32U) * 0x9E3779B97F4A7C15U;
    return {first, last, static_cast<std::size_t>(mixed >> 48U)};
  }

  static bool middle_is_equal(const char* a, const char* b, std::size_t length) {
    return length <= 16 || std::memcmp(a + 8, b + 8, length - 16) == 0;
  }

  std::array<std::uint16_t, 2 * most> places_{};  // numbers of texts; 0: free
  std::array<Entry, most> entries_;               // of which count_ are filled
  std::uint16_t count_ = 0;
};

}  // namespace xmlparser
