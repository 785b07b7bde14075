// Conversion between values and their texts.
#include "model/scalar_text.h"

#include <array>
#include <charconv>
#include <cmath>

#include "model/date_time.h"
#include "model/object_path.h"
#include "model/text.h"

namespace sandbox {
namespace {

template <class Number>
void append_number(std::string& out, Number number) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  out.append(buffer.data(), end);
}

// CIM-XML wants a point in a real's mantissa (DSP0201, section 4.3.2.1).
template <class Real>
void append_real(std::string& out, Real number) {
  std::string text;
  append_number(text, number);
  const std::size_t exponent = text.find('e');
  const bool finite = std::isfinite(number);
  if (finite && text.find('.') == std::string::npos) {
    text.insert(exponent == std::string::npos ? text.size() : exponent, ".0");
  }
  out += text;
}

std::optional<Scalar> boolean_from(std::string_view text) {
  if (same_name(text, "true")) return Scalar(true);
  if (same_name(text, "false")) return Scalar(false);
  return std::nullopt;
}

std::optional<Scalar> character_from(std::string_view text) {
  const char32_t character = take_character(text);
  if (!text.empty() || character > 0xffff || !is_xml_character(character)) return std::nullopt;
  return Scalar(static_cast<char16_t>(character));
}

std::optional<Scalar> integer_from(std::string_view text, Type type) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  int base = 10;
  if (text.starts_with("0x") || text.starts_with("0X")) {
    text.remove_prefix(2);
    base = 16;
  }
  std::uint64_t magnitude = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, magnitude, base);
  if (text.empty() || read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return integer_of(negative, magnitude, type);
}

std::optional<Scalar> real_from(std::string_view text, Type type) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (text.empty() || read.ec != std::errc() || read.ptr != end) return std::nullopt;
  if (!std::isfinite(number)) return std::nullopt;
  if (type == Type::Real32) {
    const auto narrow = static_cast<float>(number);
    if (!std::isfinite(narrow)) return std::nullopt;
    number = static_cast<double>(narrow);
  }
  return Scalar(number);
}

std::optional<Scalar> reference_from(std::string_view text) {
  Outcome<ObjectPath> path = object_path_from(text);
  if (!path) return std::nullopt;
  return Scalar(std::make_shared<const ObjectPath>(std::move(*path)));
}

// Appends one alternative of a Scalar.
class Appender {
 public:
  Appender(std::string& out, Type type) : out_(out), type_(type) {}

  void operator()(std::monostate) const {}
  void operator()(bool value) const { out_ += value ? "TRUE" : "FALSE"; }
  void operator()(char16_t value) const { append_character(out_, value); }
  void operator()(std::uint64_t value) const { append_number(out_, value); }
  void operator()(std::int64_t value) const { append_number(out_, value); }
  void operator()(double value) const {
    if (type_ == Type::Real32) {
      append_real(out_, static_cast<float>(value));
    } else {
      append_real(out_, value);
    }
  }
  void operator()(const std::string& value) const { out_ += value; }
  void operator()(const Reference& value) const { out_ += to_text(*value); }
  void operator()(const EmbeddedInstance&) const {}

 private:
  std::string& out_;
  Type type_;
};

}  // namespace

void append_text(std::string& out, const Scalar& scalar, Type type) {
  std::visit(Appender(out, type), scalar);
}

std::string to_text(const Scalar& scalar, Type type) {
  std::string text;
  append_text(text, scalar, type);
  return text;
}

std::optional<Scalar> scalar_from(std::string_view text, Type type) {
  switch (type) {
    case Type::String:
      return Scalar(std::string(text));
    case Type::Char16:
      return character_from(text);
    case Type::Boolean:
      return boolean_from(trimmed(text));
    case Type::DateTime:
      if (!is_date_time(trimmed(text))) return std::nullopt;
      return Scalar(std::string(trimmed(text)));
    case Type::Reference:
      return reference_from(text);
    case Type::Real32:
    case Type::Real64:
      return real_from(trimmed(text), type);
    default:
      return integer_from(trimmed(text), type);
  }
}

std::optional<Scalar> integer_of(bool negative, std::uint64_t magnitude, Type type) {
  if (is_unsigned(type)) {
    if (magnitude > highest(type) || (negative && magnitude != 0)) return std::nullopt;
    return Scalar(magnitude);
  }
  if (!negative) {
    if (magnitude > highest(type)) return std::nullopt;
    return Scalar(static_cast<std::int64_t>(magnitude));
  }
  // The lowest value's magnitude is one more than the highest value's.
  if (magnitude > highest(type) + 1) return std::nullopt;
  return Scalar(static_cast<std::int64_t>(~magnitude + 1));
}

}  // namespace sandbox
