// Checking values against CIM types.
#include "cim_types.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "cim_client.h"
#include "exit_status.h"
#include "utf8.h"

namespace cli {
namespace {

constexpr bool is_digit(char letter) { return letter >= '0' && letter <= '9'; }

// An integer type by its bounds. The magnitude of the lowest value is held without its sign.
struct IntegerType {
  std::string_view name;
  std::uint64_t lowest;  // 0, or the magnitude of the lowest negative value
  std::uint64_t highest;
};

// clang-format off
constexpr std::array integer_types = {
    IntegerType{"uint8", 0, 0xFF},
    IntegerType{"uint16", 0, 0xFFFF},
    IntegerType{"uint32", 0, 0xFFFFFFFF},
    IntegerType{"uint64", 0, 0xFFFFFFFFFFFFFFFF},
    IntegerType{"sint8", 0x80, 0x7F},
    IntegerType{"sint16", 0x8000, 0x7FFF},
    IntegerType{"sint32", 0x80000000, 0x7FFFFFFF},
    IntegerType{"sint64", 0x8000000000000000, 0x7FFFFFFFFFFFFFFF},
};
// clang-format on

[[noreturn]] void refuse(std::string_view text, std::string_view what, const std::string& reason) {
  throw usage_failure(printable(what) + ": \"" + printable(text) + "\" " + reason);
}

// Reads digits in decimal, or in hexadecimal behind "0x".
std::optional<std::uint64_t> magnitude(std::string_view digits) {
  const bool hexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
  if (hexadecimal) digits.remove_prefix(2);
  std::uint64_t number = 0;
  const auto [end, problem] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number, hexadecimal ? 16 : 10);
  if (problem == std::errc::result_out_of_range) return std::nullopt;  // more than any type holds
  if (problem != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return number;
}

bool looks_like_integer(std::string_view digits) {
  if (digits.starts_with("0x") || digits.starts_with("0X"))
    return digits.size() > 2 &&
           digits.substr(2).find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
  return !digits.empty() && digits.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string checked_integer(std::string_view text, const IntegerType& type, std::string_view what) {
  std::string_view digits = text;
  const bool negative = digits.starts_with('-');
  if (negative || digits.starts_with('+')) digits.remove_prefix(1);
  if (!looks_like_integer(digits))
    refuse(text, what, "is no integer, as " + std::string(type.name) + " needs");
  const std::optional<std::uint64_t> number = magnitude(digits);
  const std::uint64_t bound = negative ? type.lowest : type.highest;
  if (!number || *number > bound)
    refuse(text, what,
           "does not fit " + std::string(type.name) + " (" + (type.lowest > 0 ? "-" : "") +
               std::to_string(type.lowest) + " to " + std::to_string(type.highest) + ")");
  return (negative && *number > 0 ? "-" : "") + std::to_string(*number);
}

// Gives a number the point that the CIM-XML form of a real has.
std::string with_point(std::string_view text) {
  std::string result(text);
  if (result.find('.') != std::string::npos) return result;
  const std::size_t exponent = std::min(result.find_first_of("eE"), result.size());
  return result.insert(exponent, ".0");
}

std::string checked_real(std::string_view text, std::string_view type, std::string_view what) {
  std::string_view digits = text;
  if (digits.starts_with('+')) digits.remove_prefix(1);
  double number = 0;
  const auto [end, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool whole = problem == std::errc() && end == digits.data() + digits.size();
  if (problem == std::errc::result_out_of_range ||
      (whole && same_name(type, "real32") && std::isfinite(number) &&
       std::fabs(number) > static_cast<double>(std::numeric_limits<float>::max())))
    refuse(text, what, "does not fit " + std::string(type));
  if (!whole || !std::isfinite(number))
    refuse(text, what, "is no number, as " + std::string(type) + " needs");
  return with_point(digits);
}

std::string checked_boolean(std::string_view text, std::string_view what) {
  if (same_name(text, "true")) return "TRUE";
  if (same_name(text, "false")) return "FALSE";
  refuse(text, what, "is no boolean; true and false are");
}

// char16 is a character of UCS-2.
std::string checked_character(std::string_view text, std::string_view what) {
  constexpr char32_t highest = 0xFFFF;
  if (text.empty()) refuse(text, what, "is no character");
  const Character character = first_character(text);
  if (!character.valid || character.length != text.size() || character.code > highest)
    refuse(text, what, "is not one character, as char16 needs");
  return std::string(text);
}

// Whether `text` has the shape of `pattern`: "0" stands for a digit, "s" for a sign, every other
// letter for itself. With asterisks a field is left open.
bool has_shape(std::string_view text, std::string_view pattern, bool asterisks) {
  if (text.size() != pattern.size()) return false;
  for (std::size_t index = 0; index < text.size(); ++index) {
    const char letter = text[index];
    const bool digit = is_digit(letter) || (asterisks && letter == '*');
    const bool fits = pattern[index] == '0'   ? digit
                      : pattern[index] == 's' ? letter == '+' || letter == '-'
                                              : letter == pattern[index];
    if (!fits) return false;
  }
  return true;
}

std::int32_t number_at(std::string_view text, std::size_t position, std::size_t length) {
  std::int32_t number = 0;
  std::from_chars(text.data() + position, text.data() + position + length, number);
  return number;
}

// The offset at the end of an ISO 8601 text in minutes: "Z", "+01:00"; none when it is neither.
std::optional<std::int32_t> offset_of(std::string_view text) {
  if (text == "Z" || text == "z") return 0;
  if (!has_shape(text, "s00:00", false)) return std::nullopt;
  const std::int32_t minutes = number_at(text, 1, 2) * 60 + number_at(text, 4, 2);
  return text.front() == '-' ? -minutes : minutes;
}

bool in_calendar(const CIMDateTime& time) {
  return time.month >= 1 && time.month <= 12 && time.day >= 1 && time.day <= 31 &&
         time.hour <= 23 && time.minute <= 59 && time.second <= 59;
}

std::string from_iso(std::string_view text) {
  constexpr std::string_view shape = "0000-00-00T00:00:00";
  if (text.size() <= shape.size() || !has_shape(text.substr(0, shape.size()), shape, false))
    return {};
  const std::optional<std::int32_t> offset = offset_of(text.substr(shape.size()));
  if (!offset) return {};
  CIMDateTime time = {};
  time.year = number_at(text, 0, 4);
  time.month = number_at(text, 5, 2);
  time.day = number_at(text, 8, 2);
  time.hour = number_at(text, 11, 2);
  time.minute = number_at(text, 14, 2);
  time.second = number_at(text, 17, 2);
  time.utcOffset = *offset;
  if (!in_calendar(time)) return {};
  std::array<char, 64> buffer = {};
  CIMC_ConvertDateTimeToString(&time, buffer.data());
  return buffer.data();
}

}  // namespace

std::string date_time_text(std::string_view text) {
  if (has_shape(text, "00000000000000.000000s000", true) ||
      has_shape(text, "00000000000000.000000:000", true))
    return std::string(text);
  return from_iso(text);
}

std::string checked_value(std::string_view text, std::string_view type, std::string_view what) {
  for (const IntegerType& integer : integer_types) {
    if (same_name(integer.name, type)) return checked_integer(text, integer, what);
  }
  if (same_name(type, "real32") || same_name(type, "real64")) return checked_real(text, type, what);
  if (same_name(type, "boolean")) return checked_boolean(text, what);
  if (same_name(type, "char16")) return checked_character(text, what);
  if (!same_name(type, "datetime")) return std::string(text);
  std::string date_time = date_time_text(text);
  if (date_time.empty())
    refuse(text, what,
           "is no date-time; 20240131235959.000000+060, 2024-01-31T23:59:59+01:00 and the "
           "interval 00000001020304.000000:000 are");
  return date_time;
}

}  // namespace cli
