// XML escaping.
#include "escape.h"

#include "exit_status.h"
#include "utf8.h"

namespace cli {
namespace {

// XML 1.0, section 2.2.
constexpr bool fits_in_xml(char32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  return code != 0xFFFE && code != 0xFFFF;
}

// The reference for a character that cannot stand for itself; empty when it can. Line ends and
// tabs would be turned into blanks inside an attribute.
constexpr std::string_view reference(char32_t code) {
  switch (code) {
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '&':
      return "&amp;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    default:
      return {};
  }
}

}  // namespace

std::string escaped(std::string_view text, std::string_view what) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const Character character = first_character(text);
    const std::string_view bytes = text.substr(0, character.length);
    if (!character.valid) throw usage_failure(std::string(what) + " is not UTF-8");
    if (!fits_in_xml(character.code))
      throw usage_failure(std::string(what) + " holds " + printable(bytes) +
                          ", which XML cannot carry");
    const std::string_view instead = reference(character.code);
    result += instead.empty() ? bytes : instead;
    text.remove_prefix(character.length);
  }
  return result;
}

}  // namespace cli
