// One query while it is read: what the generated lexer and parser call.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "model/outcome.h"
#include "query/grammar.h"
#include "query/syntax.h"

namespace sandbox::query {

inline constexpr std::size_t longest_query = 64U << 10U;  // bytes

// "column 12: expected ..."
Error invalid_query(int column, const std::string& text);

// Reads a query; the error is an InvalidQuery that says what was expected where.
Outcome<Query> parse(std::string_view text);

Condition joined(Condition::Kind kind, Condition left, Condition right);
Condition comparison(std::string property, Operator comparison, Literal literal);
Condition on_property(Condition::Kind kind, std::string property, std::string text);
// The operator after both sides have changed places.
Operator mirrored(Operator comparison);

class Source {
 public:
  // The lexer's part.
  void advance(int length);
  int column() const { return column_; }
  int next_column() const { return next_; }
  Parser::symbol_type integer(std::string_view word);
  Parser::symbol_type real(std::string_view word);
  Parser::symbol_type text(std::string_view word);
  Parser::symbol_type lexical_error(const std::string& text);

  // The parser's part.
  bool count_condition(int column);
  void take(Query query) { query_ = std::move(query); }
  void fail(int column, const std::string& text);

  Outcome<Query> result() const;

 private:
  int column_ = 1;
  int next_ = 1;
  int condition_count_ = 0;
  std::optional<Error> error_;
  Query query_;
};

}  // namespace sandbox::query
