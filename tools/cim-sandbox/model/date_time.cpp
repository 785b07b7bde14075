// The check of CIM date-times (DSP0004, section 5.2.4).
#include "model/date_time.h"

#include <cstddef>

namespace sandbox {
namespace {

constexpr std::size_t text_length = 25;
constexpr std::size_t point_position = 14;
constexpr std::size_t sign_position = 21;

bool is_digit(char letter) { return letter >= '0' && letter <= '9'; }

bool digits_or_asterisks(std::string_view field) {
  for (const char letter : field) {
    if (!is_digit(letter) && letter != '*') return false;
  }
  return true;
}

bool all_digits(std::string_view field) {
  return digits_or_asterisks(field) && field.find('*') == std::string_view::npos;
}

// True when the two digits at `position` lie within the limits, or are asterisks.
bool within(std::string_view text, std::size_t position, int lowest, int highest) {
  const std::string_view field = text.substr(position, 2);
  if (field == "**") return true;
  if (!all_digits(field)) return false;
  const int number = (field[0] - '0') * 10 + (field[1] - '0');
  return number >= lowest && number <= highest;
}

}  // namespace

bool is_date_time(std::string_view text) {
  if (text.size() != text_length || text[point_position] != '.') return false;
  if (!digits_or_asterisks(text.substr(0, point_position)) ||
      !digits_or_asterisks(text.substr(point_position + 1, 6)) ||
      !all_digits(text.substr(sign_position + 1))) {
    return false;
  }
  const bool clock = within(text, 8, 0, 23) && within(text, 10, 0, 59) && within(text, 12, 0, 59);
  if (text[sign_position] == ':') return clock && text.substr(sign_position + 1) == "000";
  const bool calendar = within(text, 4, 1, 12) && within(text, 6, 1, 31);
  return clock && calendar && (text[sign_position] == '+' || text[sign_position] == '-');
}

}  // namespace sandbox
