// Case-insensitive names and UTF-8.
#include "model/text.h"

#include <algorithm>

namespace sandbox {
namespace {

char lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool is_letter(char letter) {
  const char small = lower(letter);
  return (small >= 'a' && small <= 'z') || letter == '_' ||
         static_cast<unsigned char>(letter) >= 0x80;
}

bool is_digit(char letter) { return letter >= '0' && letter <= '9'; }

// The number of bytes that a first byte announces; 0 for one that cannot be first.
std::size_t sequence_length(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xc2 && first < 0xe0) return 2;
  if (first >= 0xe0 && first < 0xf0) return 3;
  if (first >= 0xf0 && first < 0xf5) return 4;
  return 0;
}

}  // namespace

std::string lower_case(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lower);
  return result;
}

bool same_name(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return lower(a) == lower(b); });
}

bool NameLess::operator()(std::string_view left, std::string_view right) const {
  return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                      [](char a, char b) { return lower(a) < lower(b); });
}

std::size_t NameHash::operator()(std::string_view name) const {
  std::size_t hash = 14695981039346656037U;  // FNV-1a
  for (const char letter : name) {
    hash = (hash ^ static_cast<unsigned char>(lower(letter))) * 1099511628211U;
  }
  return hash;
}

bool is_name(std::string_view text) {
  return !text.empty() && is_letter(text.front()) &&
         std::all_of(text.begin(), text.end(),
                     [](char letter) { return is_letter(letter) || is_digit(letter); });
}

char32_t take_character(std::string_view& text) {
  if (text.empty()) return no_character;
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t length = sequence_length(first);
  if (length == 0 || length > text.size()) return no_character;
  char32_t character = length == 1 ? first : first & (0xffU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    if ((next & 0xc0U) != 0x80) return no_character;
    character = (character << 6U) | (next & 0x3fU);
  }
  const bool too_long = (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
  const bool surrogate = character >= 0xd800 && character < 0xe000;
  if (too_long || surrogate || character > 0x10ffff) return no_character;
  text.remove_prefix(length);
  return character;
}

void append_character(std::string& text, char32_t character) {
  const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xc0U | (character >> 6U));
    put(0x80U | (character & 0x3fU));
  } else if (character < 0x10000) {
    put(0xe0U | (character >> 12U));
    put(0x80U | ((character >> 6U) & 0x3fU));
    put(0x80U | (character & 0x3fU));
  } else {
    put(0xf0U | (character >> 18U));
    put(0x80U | ((character >> 12U) & 0x3fU));
    put(0x80U | ((character >> 6U) & 0x3fU));
    put(0x80U | (character & 0x3fU));
  }
}

bool is_xml_character(char32_t character) {
  return character == '\t' || character == '\n' || character == '\r' ||
         (character >= 0x20 && character < 0xd800) || (character >= 0xe000 && character < 0xfffe) ||
         (character >= 0x10000 && character <= 0x10ffff);
}

bool is_xml_text(std::string_view text) {
  while (!text.empty()) {
    if (!is_xml_character(take_character(text))) return false;
  }
  return true;
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace sandbox
