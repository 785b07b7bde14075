// Type checks of given values.
#include "model/fitting.h"

#include <cmath>

#include "model/object_path.h"
#include "model/scalar_text.h"

namespace sandbox {
namespace {

Error mismatch(std::string text) { return {ErrorCode::TypeMismatch, std::move(text)}; }

Error not_of_type(const Scalar& given, const DataType& type) {
  DataType one = type;
  one.is_array = false;
  const auto* text = std::get_if<std::string>(&given);
  const std::string what = text ? '"' + *text + '"' : "the value";
  return mismatch(what + " is no " + describe(one));
}

// A number of one CIM type as a number of another.
std::optional<Scalar> fit_number(const Scalar& given, Type type) {
  if (const auto* number = std::get_if<std::uint64_t>(&given)) {
    if (is_real(type)) return Scalar(static_cast<double>(*number));
    return integer_of(false, *number, type);
  }
  if (const auto* number = std::get_if<std::int64_t>(&given)) {
    if (is_real(type)) return Scalar(static_cast<double>(*number));
    const auto bits = static_cast<std::uint64_t>(*number);
    return *number < 0 ? integer_of(true, ~bits + 1, type) : integer_of(false, bits, type);
  }
  if (const auto* number = std::get_if<double>(&given); number && is_real(type)) {
    if (type == Type::Real64) return Scalar(*number);
    const auto narrow = static_cast<float>(*number);
    if (std::isfinite(narrow)) return Scalar(static_cast<double>(narrow));
  }
  return std::nullopt;
}

}  // namespace

Outcome<Scalar> fit_scalar(const Scalar& given, const DataType& type) {
  if (is_null(given)) return given;
  if (const auto* text = std::get_if<std::string>(&given)) {
    if (type.type == Type::String) return given;
    if (auto scalar = scalar_from(*text, type.type)) return std::move(*scalar);
    return not_of_type(given, type);
  }
  const bool fits_as_it_is =
      (type.type == Type::Boolean && std::holds_alternative<bool>(given)) ||
      (type.type == Type::Char16 && std::holds_alternative<char16_t>(given)) ||
      (type.type == Type::Reference && std::holds_alternative<Reference>(given)) ||
      (type.type == Type::String && std::holds_alternative<EmbeddedInstance>(given));
  if (fits_as_it_is) return given;
  if (is_numeric(type.type)) {
    if (auto number = fit_number(given, type.type)) return std::move(*number);
  }
  return not_of_type(given, type);
}

Outcome<Value> fit_value(const Value& given, const DataType& type) {
  if (given.null()) return given;
  if (given.is_array() != type.is_array) {
    return mismatch(type.is_array ? "an array is needed" : "an array is too much");
  }
  if (!type.is_array) {
    Outcome<Scalar> scalar = fit_scalar(given.scalar(), type);
    if (!scalar) return scalar.error();
    return Value(std::move(*scalar));
  }
  if (type.array_size != 0 && given.elements().size() > type.array_size) {
    return mismatch("more than " + std::to_string(type.array_size) + " elements");
  }
  std::vector<Scalar> elements;
  elements.reserve(given.elements().size());
  for (const Scalar& element : given.elements()) {
    Outcome<Scalar> scalar = fit_scalar(element, type);
    if (!scalar) return scalar.error();
    elements.push_back(std::move(*scalar));
  }
  return Value(std::move(elements));
}

}  // namespace sandbox
