// Checking and evaluating conditions.
#include "query/evaluation.h"

#include <algorithm>
#include <compare>

#include "model/scalar_text.h"
#include "model/text.h"

namespace sandbox::query {
namespace {

// Two names that every instance has beside its properties: itself, and its class's name.
bool is_this(std::string_view name) { return same_name(name, "__THIS"); }
bool is_class_name(std::string_view name) { return same_name(name, "__CLASS"); }

Error invalid(std::string text) { return {ErrorCode::InvalidQuery, std::move(text)}; }

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

bool is_comparable(Type type, const Literal& literal) {
  if (std::holds_alternative<std::monostate>(literal)) return true;
  if (std::holds_alternative<bool>(literal)) return type == Type::Boolean;
  if (std::holds_alternative<std::string>(literal)) {
    return !is_numeric(type) && type != Type::Boolean;
  }
  return is_numeric(type);
}

bool asks_for_order(Operator comparison) {
  return comparison != Operator::Equal && comparison != Operator::NotEqual;
}

std::optional<Error> check_comparison(const Condition& condition, const DataType& type) {
  if (!is_comparable(type.type, condition.literal)) {
    return invalid("property " + quoted(condition.property) + " is " + describe(type) +
                   ": it cannot be compared with that value");
  }
  const bool no_order = type.type == Type::Boolean || type.type == Type::Reference ||
                        std::holds_alternative<std::monostate>(condition.literal);
  if (asks_for_order(condition.comparison) && no_order) {
    return invalid("property " + quoted(condition.property) + " can only be = or <> that value");
  }
  return std::nullopt;
}

std::optional<Error> check_on_property(const Condition& condition, const Class& of_class) {
  using Kind = Condition::Kind;
  if (is_this(condition.property)) {
    if (condition.kind == Kind::IsA) return std::nullopt;
    return invalid("__THIS can only be asked with ISA");
  }
  static const DataType text_type{Type::String, false, 0, {}};
  const Property* property = of_class.find_property(condition.property);
  const bool is_name = is_class_name(condition.property);
  if (!property && !is_name) {
    return invalid("class " + quoted(of_class.name) + " has no property " +
                   quoted(condition.property));
  }
  if (condition.kind == Kind::IsNull) return std::nullopt;
  const DataType& type = is_name ? text_type : property->type;
  const bool is_instance = property && property->is_embedded;
  if (condition.kind == Kind::IsA) {
    if (!type.is_array && (is_instance || type.type == Type::Reference)) return std::nullopt;
    return invalid("property " + quoted(condition.property) + " is neither instance nor reference");
  }
  if (type.is_array || is_instance) {
    return invalid("property " + quoted(condition.property) + " cannot be compared");
  }
  if (condition.kind == Kind::Compare) return check_comparison(condition, type);
  if (type.type == Type::String) return std::nullopt;
  return invalid("property " + quoted(condition.property) + " is no string: LIKE does not apply");
}

std::optional<Error> check_condition(const Condition& condition, const Class& of_class) {
  if (condition.parts.empty()) return check_on_property(condition, of_class);
  for (const Condition& part : condition.parts) {
    if (auto error = check_condition(part, of_class)) return error;
  }
  return std::nullopt;
}

std::partial_ordering order(const Number& left, const Number& right) {
  const auto sign = [](const Number& number) { return number.negative && number.magnitude != 0; };
  if (sign(left) != sign(right)) {
    return sign(left) ? std::partial_ordering::less : std::partial_ordering::greater;
  }
  return sign(left) ? right.magnitude <=> left.magnitude : left.magnitude <=> right.magnitude;
}

double as_double(const Number& number) {
  const auto magnitude = static_cast<double>(number.magnitude);
  return number.negative ? -magnitude : magnitude;
}

std::partial_ordering order_text(std::string_view left, std::string_view right) {
  return left.compare(right) <=> 0;
}

// How a value stands to a literal that was checked to be comparable.
std::partial_ordering order(const Scalar& value, Type type, const Literal& literal) {
  if (const auto* flag = std::get_if<bool>(&literal)) return std::get<bool>(value) <=> *flag;
  if (const auto* text = std::get_if<std::string>(&literal)) {
    if (const auto* path = std::get_if<Reference>(&value)) {
      const bool same = to_text(**path) == *text;
      return same ? std::partial_ordering::equivalent : std::partial_ordering::unordered;
    }
    return order_text(to_text(value, type), *text);
  }
  const auto* real = std::get_if<double>(&literal);
  if (const auto* number = std::get_if<double>(&value)) {
    return *number <=> (real ? *real : as_double(std::get<Number>(literal)));
  }
  Number number;
  if (const auto* positive = std::get_if<std::uint64_t>(&value)) {
    number.magnitude = *positive;
  } else {
    const auto signed_value = std::get<std::int64_t>(value);
    const auto bits = static_cast<std::uint64_t>(signed_value);
    number = signed_value < 0 ? Number{true, ~bits + 1} : Number{false, bits};
  }
  return real ? as_double(number) <=> *real : order(number, std::get<Number>(literal));
}

bool satisfies(std::partial_ordering order, Operator comparison) {
  switch (comparison) {
    case Operator::Equal:
      return std::is_eq(order);
    case Operator::NotEqual:
      return std::is_neq(order);
    case Operator::Less:
      return std::is_lt(order);
    case Operator::LessOrEqual:
      return std::is_lteq(order);
    case Operator::Greater:
      return std::is_gt(order);
    case Operator::GreaterOrEqual:
      return std::is_gteq(order);
  }
  return false;
}

// "%" stands for any text, "_" for one character.
bool is_like(std::string_view text, std::string_view pattern) {
  std::string_view text_at_star;
  std::optional<std::string_view> pattern_at_star;  // what follows the last "%"
  while (!text.empty() || !pattern.empty()) {
    if (pattern.starts_with('%')) {
      pattern.remove_prefix(1);
      pattern_at_star = pattern;
      text_at_star = text;
      continue;
    }
    if (!text.empty() && !pattern.empty()) {
      std::string_view text_rest = text;
      std::string_view pattern_rest = pattern;
      const char32_t character = take_character(text_rest);
      const char32_t wanted = take_character(pattern_rest);
      if (character != no_character && (wanted == U'_' || wanted == character)) {
        text = text_rest;
        pattern = pattern_rest;
        continue;
      }
    }
    if (!pattern_at_star) return false;
    // The last "%" takes one character more.
    if (take_character(text_at_star) == no_character) return false;
    text = text_at_star;
    pattern = *pattern_at_star;
  }
  return true;
}

bool meets_comparison(const Instance& instance, const Condition& condition) {
  Scalar value = Scalar(instance.of_class->name);
  Type type = Type::String;
  if (!is_class_name(condition.property)) {
    const std::size_t position = instance.of_class->position_of(condition.property);
    const Value& held = instance.values[position];
    value = held.is_array() ? Scalar() : held.scalar();
    type = instance.of_class->properties[position].type.type;
  }
  if (condition.kind == Condition::Kind::Like) {
    return !is_null(value) && is_like(std::get<std::string>(value), condition.text);
  }
  if (std::holds_alternative<std::monostate>(condition.literal)) {
    return is_null(value) == (condition.comparison == Operator::Equal);
  }
  if (is_null(value)) return false;
  return satisfies(order(value, type, condition.literal), condition.comparison);
}

bool meets_class(const Instance& instance, const Condition& condition, const ClassTable& classes) {
  if (is_this(condition.property)) return instance.of_class->is_a(condition.text);
  const Value* value = instance.find(condition.property);
  if (const auto* embedded = std::get_if<EmbeddedInstance>(&value->scalar())) {
    return (*embedded)->of_class->is_a(condition.text);
  }
  const auto* reference = std::get_if<Reference>(&value->scalar());
  const Class* of_class = reference ? classes.find((*reference)->class_name) : nullptr;
  return of_class && of_class->is_a(condition.text);
}

}  // namespace

std::optional<Error> check(const Query& query, const Class& of_class) {
  for (const std::string& property : query.properties) {
    if (!of_class.find_property(property)) {
      return invalid("class " + quoted(of_class.name) + " has no property " + quoted(property));
    }
  }
  return query.condition ? check_condition(*query.condition, of_class) : std::nullopt;
}

bool meets(const Instance& instance, const Condition& condition, const ClassTable& classes) {
  const auto met = [&](const Condition& part) { return meets(instance, part, classes); };
  switch (condition.kind) {
    case Condition::Kind::And:
      return std::all_of(condition.parts.begin(), condition.parts.end(), met);
    case Condition::Kind::Or:
      return std::any_of(condition.parts.begin(), condition.parts.end(), met);
    case Condition::Kind::Not:
      return !met(condition.parts.front());
    case Condition::Kind::IsNull: {
      const Value* value = instance.find(condition.property);
      return value && value->null();
    }
    case Condition::Kind::IsA:
      return meets_class(instance, condition, classes);
    default:
      return meets_comparison(instance, condition);
  }
}

}  // namespace sandbox::query
