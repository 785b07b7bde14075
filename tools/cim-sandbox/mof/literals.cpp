// Type checks of literals.
#include "mof/literals.h"

#include "model/fitting.h"
#include "model/scalar_text.h"

namespace sandbox::mof {
namespace {

std::string expected(const DataType& type) {
  DataType one = type;
  one.is_array = false;
  return "expected " + describe(one);
}

// A literal as a scalar of `type`, when it is neither an alias nor an instance.
class Reading {
 public:
  explicit Reading(const DataType& type) : type_(type) {}

  std::optional<Scalar> operator()(Null) const { return Scalar(); }
  std::optional<Scalar> operator()(bool value) const { return fitting(Scalar(value)); }
  std::optional<Scalar> operator()(char16_t value) const { return fitting(Scalar(value)); }
  std::optional<Scalar> operator()(double value) const { return fitting(Scalar(value)); }
  std::optional<Scalar> operator()(const Integer& value) const {
    if (is_integer(type_.type)) return integer_of(value.negative, value.magnitude, type_.type);
    if (!is_real(type_.type)) return std::nullopt;
    const auto magnitude = static_cast<double>(value.magnitude);
    return fitting(Scalar(value.negative ? -magnitude : magnitude));
  }
  // Only what is written as a string is read from a string: "5" is no integer.
  std::optional<Scalar> operator()(const std::string& value) const {
    if (is_numeric(type_.type) || type_.type == Type::Boolean || type_.type == Type::Char16) {
      return std::nullopt;
    }
    return fitting(Scalar(value));
  }
  std::optional<Scalar> operator()(const Alias&) const { return std::nullopt; }
  std::optional<Scalar> operator()(const std::shared_ptr<InstanceSyntax>&) const {
    return std::nullopt;
  }

 private:
  std::optional<Scalar> fitting(const Scalar& scalar) const {
    Outcome<Scalar> fitted = fit_scalar(scalar, type_);
    if (!fitted) return std::nullopt;
    return std::move(*fitted);
  }

  const DataType& type_;
};

bool names_object(const Literal& literal) {
  return std::holds_alternative<Alias>(literal.value) ||
         std::holds_alternative<std::shared_ptr<InstanceSyntax>>(literal.value);
}

Checked<Scalar> scalar_of(const Literal& literal, const DataType& type,
                          const ObjectReader& read_object) {
  if (names_object(literal) && read_object) return read_object(literal);
  if (auto scalar = std::visit(Reading(type), literal.value)) return std::move(*scalar);
  return Problem{literal.place, expected(type)};
}

}  // namespace

Checked<Value> value_of(const Initializer& initializer, const DataType& type,
                        const ObjectReader& read_object) {
  const bool null =
      !initializer.is_array && std::holds_alternative<Null>(initializer.literals.front().value);
  if (null) return Value();
  if (initializer.is_array != type.is_array) {
    return Problem{initializer.place, type.is_array
                                          ? "expected \"{\" and the elements of an array of " +
                                                std::string(name_of(type.type))
                                          : expected(type) + ", not an array"};
  }
  if (type.array_size != 0 && initializer.literals.size() > type.array_size) {
    return Problem{initializer.place,
                   "expected at most " + std::to_string(type.array_size) + " elements"};
  }
  std::vector<Scalar> scalars;
  scalars.reserve(initializer.literals.size());
  for (const Literal& literal : initializer.literals) {
    Checked<Scalar> scalar = scalar_of(literal, type, read_object);
    if (auto* problem = std::get_if<Problem>(&scalar)) return std::move(*problem);
    scalars.push_back(std::move(std::get<Scalar>(scalar)));
  }
  if (type.is_array) return Value(std::move(scalars));
  return Value(std::move(scalars.front()));
}

DataType suggested_type(const std::optional<Initializer>& initializer) {
  DataType type{Type::Boolean, false, 0, {}};
  if (!initializer) return type;
  type.is_array = initializer->is_array;
  type.type = Type::String;
  if (initializer->literals.empty()) return type;
  const auto& first = initializer->literals.front().value;
  if (std::holds_alternative<bool>(first)) type.type = Type::Boolean;
  if (std::holds_alternative<Integer>(first)) type.type = Type::SInt64;
  if (std::holds_alternative<double>(first)) type.type = Type::Real64;
  if (std::holds_alternative<char16_t>(first)) type.type = Type::Char16;
  return type;
}

}  // namespace sandbox::mof
