// One MOF file while it is read: its words for the parser, and what the parser finds.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "mof/grammar.h"
#include "mof/syntax.h"

namespace sandbox::mof {

// Takes the constructs of a file, in their order.
class Receiver {
 public:
  virtual ~Receiver() = default;
  virtual std::optional<Problem> take(ClassSyntax syntax) = 0;
  virtual std::optional<Problem> take(InstanceSyntax syntax) = 0;
  virtual std::optional<Problem> take(QualifierDeclarationSyntax syntax) = 0;
  virtual std::optional<Problem> take(PragmaSyntax syntax) = 0;
};

// Reads `content`, the text of the file that `file` names, up to its end or its first problem.
// `file` must outlive every place that is handed out.
std::optional<Problem> read_source(const std::string& file, std::string_view content,
                                   Receiver& receiver);

// What the generated lexer and parser call.
class Source {
 public:
  Source(const std::string& file, Receiver& receiver) : receiver_(receiver) {
    place_.file = &file;
    next_ = place_;
    text_place_ = place_;
  }

  // The lexer's part.  `advance` notes a word's place and where the next one begins.
  void advance(const char* word, std::size_t length);
  const Place& place() const { return place_; }
  const Place& next_place() const { return next_; }
  const Place& text_place() const { return text_place_; }
  void begin_text();
  void append_text(const char* text, std::size_t length) { text_.append(text, length); }
  bool append_escape(std::string_view escape);
  Parser::symbol_type end_text();
  Parser::symbol_type word(const char* word);
  Parser::symbol_type integer(std::string_view word, int base);
  Parser::symbol_type real(std::string_view word);
  Parser::symbol_type character(std::string_view word);
  Parser::symbol_type unknown_character(std::string_view word);
  Parser::symbol_type lexical_error(const Place& place, std::string text);

  // The parser's part.  The first problem stays; later ones are consequences.
  template <class Syntax>
  void take(Syntax syntax) {
    if (!problem_) problem_ = receiver_.take(std::move(syntax));
  }
  bool take_array_size(const Integer& size, const Place& place, DataType& type);
  bool enter_instance(const Place& place);
  void leave_instance() { --instance_depth_; }
  void fail(const Place& place, std::string text);
  void fail_at_token(const Place& place, const std::vector<std::string>& expected,
                     std::string_view found);
  bool failed() const { return problem_.has_value(); }
  const std::optional<Problem>& problem() const { return problem_; }

 private:
  std::optional<char32_t> escaped(std::string_view escape);
  std::string shown_token(std::string_view nature) const;

  Receiver& receiver_;
  Place place_;
  Place next_;
  std::string word_;
  std::string text_;
  Place text_place_;
  int instance_depth_ = 0;
  std::optional<Problem> problem_;
};

}  // namespace sandbox::mof
