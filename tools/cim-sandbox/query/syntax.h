// What a query says, as the grammar finds it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace sandbox::query {

struct Number {
  bool negative = false;
  std::uint64_t magnitude = 0;
};

// std::monostate is NULL.
using Literal = std::variant<std::monostate, bool, Number, double, std::string>;

enum class Operator { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

// A condition and what it is made of: parts for And, Or and Not, the rest for comparisons.
struct Condition {
  enum class Kind { And, Or, Not, Compare, Like, IsNull, IsA };

  Kind kind = Kind::And;
  std::vector<Condition> parts;
  std::string property;
  Operator comparison = Operator::Equal;
  Literal literal;   // of Compare
  std::string text;  // the pattern of Like, the class of IsA
};

struct Query {
  std::vector<std::string> properties;  // empty: all
  std::string class_name;
  std::optional<Condition> condition;
};

}  // namespace sandbox::query
