// Words and conditions of queries.
#include "query/source.h"

#include "model/scalar_text.h"

namespace sandbox::query {
namespace {

// Conditions may stand within each other as deep as there are conditions.
constexpr int most_conditions = 500;

}  // namespace

Error invalid_query(int column, const std::string& text) {
  return {ErrorCode::InvalidQuery, "column " + std::to_string(column) + ": " + text};
}

// "a AND b AND c" becomes one condition of three parts.
Condition joined(Condition::Kind kind, Condition left, Condition right) {
  if (left.kind == kind && !left.parts.empty()) {
    left.parts.push_back(std::move(right));
    return left;
  }
  Condition condition;
  condition.kind = kind;
  condition.parts.push_back(std::move(left));
  condition.parts.push_back(std::move(right));
  return condition;
}

Condition comparison(std::string property, Operator comparison, Literal literal) {
  Condition condition;
  condition.kind = Condition::Kind::Compare;
  condition.property = std::move(property);
  condition.comparison = comparison;
  condition.literal = std::move(literal);
  return condition;
}

Condition on_property(Condition::Kind kind, std::string property, std::string text) {
  Condition condition;
  condition.kind = kind;
  condition.property = std::move(property);
  condition.text = std::move(text);
  return condition;
}

Operator mirrored(Operator comparison) {
  switch (comparison) {
    case Operator::Less:
      return Operator::Greater;
    case Operator::LessOrEqual:
      return Operator::GreaterOrEqual;
    case Operator::Greater:
      return Operator::Less;
    case Operator::GreaterOrEqual:
      return Operator::LessOrEqual;
    default:
      return comparison;
  }
}

void Source::advance(int length) {
  column_ = next_;
  next_ += length;
}

Parser::symbol_type Source::integer(std::string_view word) {
  const bool negative = word.starts_with('-');
  const std::string_view digits = word.substr(negative || word.starts_with('+') ? 1 : 0);
  const auto magnitude = scalar_from(digits, Type::UInt64);
  if (!magnitude) return lexical_error("expected an integer of at most 64 bits");
  return Parser::make_INTEGER({negative, std::get<std::uint64_t>(*magnitude)}, column_);
}

Parser::symbol_type Source::real(std::string_view word) {
  const auto number = scalar_from(word, Type::Real64);
  if (!number) return lexical_error("expected a real number within range");
  return Parser::make_REAL(std::get<double>(*number), column_);
}

// A quote within the text is doubled or has a backslash before it.
Parser::symbol_type Source::text(std::string_view word) {
  const char quote = word.front();
  word = word.substr(1, word.size() - 2);
  std::string text;
  while (!word.empty()) {
    if (word.size() > 1 && (word.front() == '\\' || word.front() == quote)) word.remove_prefix(1);
    text += word.front();
    word.remove_prefix(1);
  }
  return Parser::make_TEXT(std::move(text), column_);
}

Parser::symbol_type Source::lexical_error(const std::string& text) {
  fail(column_, text);
  return Parser::make_YYerror(column_);
}

bool Source::count_condition(int column) {
  if (++condition_count_ <= most_conditions) return true;
  fail(column, "expected at most " + std::to_string(most_conditions) + " conditions");
  return false;
}

void Source::fail(int column, const std::string& text) {
  if (!error_) error_ = invalid_query(column, text);
}

Outcome<Query> Source::result() const {
  if (error_) return *error_;
  return query_;
}

}  // namespace sandbox::query
