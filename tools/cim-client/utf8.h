// UTF-8: reading characters one by one, their width on a terminal, and texts safe to show there.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace cli {

// One character at the front of a text. `valid` is false for a byte that begins no character:
// `code` is then that byte and `length` 1.
struct Character {
  char32_t code;
  std::size_t length;  // bytes
  bool valid;
};

// The first character of `text`, which must not be empty.
Character first_character(std::string_view text);

// Whether every byte belongs to a character.
bool is_utf8(std::string_view text);

// Columns that a text takes on a terminal: 2 for wide characters of East Asian scripts and
// emoji, 0 for combining marks. Only for texts made by printable().
std::size_t display_width(std::string_view text);

// The text with everything that would steer a terminal or is no UTF-8 written as "\n", "\t",
// "\x1b"; so it stays on its line.
std::string printable(std::string_view text);

// The first characters of `text` that fit in `columns`.
std::string_view fitting(std::string_view text, std::size_t columns);

// The same text in lower case, ASCII letters only: as CIM names are compared.
std::string lower_case(std::string_view text);

// Whether two CIM names are the same; their case does not matter.
bool same_name(std::string_view left, std::string_view right);

}  // namespace cli
