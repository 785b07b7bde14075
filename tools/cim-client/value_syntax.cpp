// Taking typed values apart.
#include "value_syntax.h"

#include "exit_status.h"
#include "utf8.h"

namespace cli {
namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// The text between the quotes that `text` consists of; none when it is not one quoted text.
std::optional<std::string> unquoted(std::string_view text) {
  if (text.size() < 2 || text.front() != '"') return std::nullopt;
  std::string result;
  for (std::size_t index = 1; index < text.size(); ++index) {
    const char letter = text[index];
    if (letter == '"') return index + 1 == text.size() ? std::optional(result) : std::nullopt;
    if (letter == '\\' && index + 1 < text.size())
      result += unescaped(text[++index]);
    else
      result += letter;
  }
  return std::nullopt;
}

// Where the part at the front of `text` ends: at the first comma outside quotes and brackets, or
// at its end. npos when they do not match.
std::size_t part_end(std::string_view text) {
  std::string open;  // closers that are still owed
  for (std::size_t index = 0; index < text.size(); ++index) {
    const char letter = text[index];
    if (!open.empty() && open.back() == '"') {
      if (letter == '\\')
        ++index;
      else if (letter == '"')
        open.pop_back();
      continue;
    }
    if (letter == '"')
      open += '"';
    else if (letter == '[')
      open += ']';
    else if (letter == '{')
      open += '}';
    else if (letter == ']' || letter == '}') {
      if (open.empty() || open.back() != letter) return std::string_view::npos;
      open.pop_back();
    } else if (letter == ',' && open.empty()) {
      return index;
    }
  }
  return open.empty() ? text.size() : std::string_view::npos;
}

// Splits at commas; `whole` is what the failure shows.
std::vector<std::string> parts_of(std::string_view text, std::string_view whole) {
  std::vector<std::string> parts;
  text = trimmed(text);
  while (!text.empty()) {
    const std::size_t end = part_end(text);
    const std::string_view part =
        end == std::string_view::npos ? std::string_view() : trimmed(text.substr(0, end));
    const bool comma_last = end == text.size() - 1;
    if (part.empty() || comma_last)
      throw usage_failure("quotes, brackets or commas do not match in " + printable(whole));
    parts.emplace_back(part);
    text = end == text.size() ? std::string_view() : trimmed(text.substr(end + 1));
  }
  return parts;
}

}  // namespace

char unescaped(char letter) {
  switch (letter) {
    case 'n':
      return '\n';
    case 't':
      return '\t';
    case 'r':
      return '\r';
    default:
      return letter;
  }
}

Assignment parse_assignment(std::string_view text) {
  const std::size_t sign = text.find('=');
  if (sign == std::string_view::npos || sign == 0)
    throw usage_failure("\"" + printable(text) + "\" is no NAME=VALUE");
  return {std::string(trimmed(text.substr(0, sign))), std::string(text.substr(sign + 1))};
}

std::optional<std::string> scalar_of(std::string_view text) {
  if (text == "null") return std::nullopt;
  std::optional<std::string> inside = unquoted(text);
  return inside ? std::move(*inside) : std::string(text);
}

std::vector<std::string> elements_of(std::string_view text) {
  const std::string_view inner = trimmed(text);
  if (inner.empty() || inner.front() != '[') return {std::string(text)};
  if (inner.back() != ']')
    throw usage_failure("the closing bracket is missing in " + printable(text));
  return parts_of(inner.substr(1, inner.size() - 2), text);
}

EmbeddedText embedded_of(std::string_view text) {
  const std::string_view inner = trimmed(text);
  const std::size_t brace = inner.find('{');
  if (brace == std::string_view::npos || brace == 0 || inner.back() != '}')
    throw usage_failure(printable(text) +
                        " is no embedded instance; CLASS{NAME=VALUE, NAME=VALUE} is");
  EmbeddedText result;
  result.class_name = std::string(trimmed(inner.substr(0, brace)));
  const std::string_view members = inner.substr(brace + 1, inner.size() - brace - 2);
  for (const std::string& member : parts_of(members, text))
    result.members.push_back(parse_assignment(member));
  return result;
}

}  // namespace cli
