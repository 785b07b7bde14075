// UTF-8 decoding and the widths of characters.
#include "utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace cli {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Combining marks, joiners and variation selectors (Unicode 15, general categories Mn and Cf,
// the blocks met in practice).
constexpr std::array no_width = {
    Range{0x0300, 0x036F}, Range{0x0483, 0x0489},   Range{0x0591, 0x05BD}, Range{0x0610, 0x061A},
    Range{0x064B, 0x065F}, Range{0x0E31, 0x0E31},   Range{0x0E34, 0x0E3A}, Range{0x0E47, 0x0E4E},
    Range{0x1AB0, 0x1AFF}, Range{0x1DC0, 0x1DFF},   Range{0x200B, 0x200F}, Range{0x202A, 0x202E},
    Range{0x2060, 0x2064}, Range{0x20D0, 0x20FF},   Range{0xFE00, 0xFE0F}, Range{0xFE20, 0xFE2F},
    Range{0xFEFF, 0xFEFF}, Range{0xE0100, 0xE01EF},
};

// Wide and full-width characters (Unicode 15, EastAsianWidth W and F, whole blocks).
constexpr std::array two_columns = {
    Range{0x1100, 0x115F},   Range{0x2E80, 0x303E},   Range{0x3041, 0x33FF},
    Range{0x3400, 0x4DBF},   Range{0x4E00, 0x9FFF},   Range{0xA000, 0xA4CF},
    Range{0xA960, 0xA97F},   Range{0xAC00, 0xD7A3},   Range{0xF900, 0xFAFF},
    Range{0xFE30, 0xFE6F},   Range{0xFF00, 0xFF60},   Range{0xFFE0, 0xFFE6},
    Range{0x1F300, 0x1F64F}, Range{0x1F680, 0x1F6FF}, Range{0x1F900, 0x1FAFF},
    Range{0x20000, 0x3FFFD},
};

template <std::size_t Size>
bool holds(const std::array<Range, Size>& ranges, char32_t code) {
  return std::any_of(ranges.begin(), ranges.end(), [code](const Range& range) {
    return code >= range.first && code <= range.last;
  });
}

constexpr unsigned char byte(char letter) { return static_cast<unsigned char>(letter); }

constexpr bool continues(char letter) { return (byte(letter) & 0xC0U) == 0x80U; }

constexpr char lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// How many bytes a character has that begins with `lead`; 0 when none begins so.
constexpr std::size_t length_from(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

// Whether a code of `length` bytes is the shortest form of a character that may be sent.
constexpr bool allowed(char32_t code, std::size_t length) {
  if (length == 3) return code >= 0x800 && (code < 0xD800 || code > 0xDFFF);
  if (length == 4) return code >= 0x10000 && code <= 0x10FFFF;
  return true;
}

// C0 and C1 controls, DEL, and the marks that turn the writing direction around.
constexpr bool steers(char32_t code) {
  return code < 0x20 || (code >= 0x7F && code <= 0x9F) || (code >= 0x202A && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

std::string byte_escape(unsigned char value) {
  constexpr std::string_view digits = "0123456789abcdef";
  return {'\\', 'x', digits[value >> 4U], digits[value & 0xFU]};
}

std::string shown(std::string_view character, const Character& read) {
  if (read.valid && !steers(read.code)) return std::string(character);
  if (read.code == '\n') return "\\n";
  if (read.code == '\t') return "\\t";
  if (read.code == '\r') return "\\r";
  std::string text;
  for (const char letter : character) text += byte_escape(byte(letter));
  return text;
}

}  // namespace

Character first_character(std::string_view text) {
  const unsigned char lead = byte(text.front());
  const Character broken{lead, 1, false};
  const std::size_t length = length_from(lead);
  if (length == 0 || length > text.size()) return broken;
  if (length == 1) return {lead, 1, true};
  char32_t code = lead & (0x7FU >> length);
  for (std::size_t index = 1; index < length; ++index) {
    if (!continues(text[index])) return broken;
    code = (code << 6U) | (byte(text[index]) & 0x3FU);
  }
  if (!allowed(code, length)) return broken;
  return {code, length, true};
}

bool is_utf8(std::string_view text) {
  while (!text.empty()) {
    const Character character = first_character(text);
    if (!character.valid) return false;
    text.remove_prefix(character.length);
  }
  return true;
}

std::size_t display_width(std::string_view text) {
  std::size_t columns = 0;
  while (!text.empty()) {
    const Character character = first_character(text);
    text.remove_prefix(character.length);
    if (holds(no_width, character.code)) continue;
    columns += holds(two_columns, character.code) ? 2U : 1U;
  }
  return columns;
}

std::string printable(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const Character character = first_character(text);
    result += shown(text.substr(0, character.length), character);
    text.remove_prefix(character.length);
  }
  return result;
}

std::string_view fitting(std::string_view text, std::size_t columns) {
  std::size_t length = 0;
  std::size_t used = 0;
  while (length < text.size()) {
    const std::string_view rest = text.substr(length);
    const std::size_t bytes = first_character(rest).length;
    const std::size_t width = display_width(rest.substr(0, bytes));
    if (used + width > columns) break;
    used += width;
    length += bytes;
  }
  return text.substr(0, length);
}

std::string lower_case(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lower);
  return result;
}

bool same_name(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char one, char other) { return lower(one) == lower(other); });
}

}  // namespace cli
