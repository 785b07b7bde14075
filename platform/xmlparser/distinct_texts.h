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
  const char* text;
  std::uint32_t length;
  std::uint32_t number;  // from 1 on; 0: not kept for a second use
};

constexpr std::size_t most_distinct_texts = 256;

// Which text came after each text the last time: documents repeat themselves, so that mostly it
// comes again.
class Succession {
 public:
  // The number of the text to expect now; 0: none.
  std::uint32_t expected() const { return after_[last_]; }

  // A text came that has this number, or 0.
  void came(std::uint32_t number) {
    after_[last_] = static_cast<std::uint16_t>(number);
    last_ = number;
  }

  // The same where another succession tells what comes first.
  void begins_with(std::uint32_t number) { last_ = number; }

 private:
  std::array<std::uint16_t, most_distinct_texts + 1> after_{};
  std::uint32_t last_ = 0;
};

// Finds a text in a bounded number of steps, so that no choice of texts makes a document slow.
// A text that finds no place gets no number.  There is place for several times the names that
// CIM documents use.
class DistinctTexts {
 public:
  DistinctTexts() { entries_[0].text.length = UINT32_MAX; }

  // Null when the text, of 1 byte or more, is not kept.
  const NumberedText* find(const char* bytes, std::size_t length) const;

  // The text with that number, when `bytes`, of which `room` may be read, begin with it and go on
  // after it; else null, as for 0.
  const NumberedText* find_at_beginning(std::uint32_t number, const char* bytes,
                                        std::size_t room) const {
    const Entry& entry = entries_[number];
    const std::size_t length = entry.text.length;
    return length < room && is_equal(entry, ends_of(bytes, length), bytes) ? &entry.text : nullptr;
  }

  // Keeps a text that find() does not find, of 1 byte or more; null when memory runs out, or for
  // 4 GiB and more.  A text without a number stays where it is until the next one.
  const NumberedText* add(Arena& arena, const char* bytes, std::size_t length);

 private:
  static constexpr std::size_t longest_run = 8;

  // The first and last eight bytes, or four; all of a shorter text.
  struct Ends {
    std::uint64_t first;
    std::uint64_t last;
  };

  struct Entry {
    NumberedText text;
    Ends ends;
  };

  template <class Number>
  static Number load(const char* bytes) {
    Number number;
    std::memcpy(&number, bytes, sizeof(number));
    return number;
  }

  static Ends ends_of(const char* bytes, std::size_t length) {
    if (length >= 8) return {load<std::uint64_t>(bytes), load<std::uint64_t>(bytes + length - 8)};
    if (length >= 4) return {load<std::uint32_t>(bytes), load<std::uint32_t>(bytes + length - 4)};
    const auto middle = static_cast<std::uint64_t>(load<std::uint8_t>(bytes + length / 2));
    return {load<std::uint8_t>(bytes), middle << 8U | load<std::uint8_t>(bytes + length - 1)};
  }

  // Whether a text of the entry's length is the entry's.
  static bool is_equal(const Entry& entry, const Ends& ends, const char* bytes) {
    if (entry.ends.first != ends.first || entry.ends.last != ends.last) return false;
    const std::size_t length = entry.text.length;
    return length <= 16 || std::memcmp(entry.text.text + 8, bytes + 8, length - 16) == 0;
  }

  static std::size_t first_place(const Ends& ends, std::size_t length) {
    // Odd numbers with well-mixed bits: FNV's prime and the golden ratio's.
    std::uint64_t mixed = (ends.first + ends.last * 0x100000001B3U + length) * 0x9E3779B97F4A7C15U;
    mixed = (mixed ^ mixed >> 32U) * 0x9E3779B97F4A7C15U;
    return static_cast<std::size_t>(mixed >> 48U);
  }

  // What is used of every document stands together: a small one touches few pages.
  NumberedText unnumbered_{};
  std::uint16_t count_ = 0;
  std::array<std::uint16_t, 2 * most_distinct_texts> places_{};  // numbers of texts; 0: free

  // By number.  The first is too long for every document.
  std::array<Entry, most_distinct_texts + 1> entries_;
};

}  // namespace xmlparser
