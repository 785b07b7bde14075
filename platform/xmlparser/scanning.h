// What the scanner is made of: elements and data are read in scanner.cpp, what stands before and
// beside them in prolog.cpp.
#pragma once

#include <cstddef>
#include <string_view>

#include "characters.h"
#include "error_text.h"
#include "tree_builder.h"

namespace xmlparser {

inline constexpr const char* invalid_token = "not well-formed (invalid token)";
inline constexpr const char* unclosed_token = "unclosed token";
inline constexpr const char* no_element = "no element found";
inline constexpr const char* out_of_memory = "out of memory";

// The text ends with a NUL, so this looks no further than its end.
inline bool begins_with(const char* p, std::string_view expected) {
  for (const char c : expected)
    if (*p++ != c) return false;
  return true;
}

inline const char* skip_white(const char* p) {
  while (is_white(*p)) ++p;
  return p;
}

inline char lower_case(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Each function reads what its name says.  It takes where that begins, past the characters that
// told it, and returns where it ends; null when the document is not to be read any further.
class Scanner {
 public:
  Scanner(const char* text, std::size_t length, TreeBuilder& tree)
      : begin_(text), end_(text + length), tree_(tree) {}

  const char* document();

  // Why document() returned null.
  bool not_mine() const { return not_mine_; }
  void describe_failure(ErrorText& error) const;

 private:
  enum class Data { Content, Section, Value };

  const char* fail(const char* where, const char* why) {
    failed_at_ = where;
    why_ = why;
    return nullptr;
  }
  const char* fail_for_memory() { return fail(end_, out_of_memory); }
  const char* leave(const char* where, const char* why) {
    not_mine_ = true;
    return fail(where, why);
  }

  const char* xml_declaration(const char* p);
  const char* pseudo_attribute(const char* p, std::string_view name, std::string_view& value);
  const char* encoding(const char* p, std::string_view name);
  const char* miscellaneous(const char* p);
  const char* document_type(const char* p);
  const char* external_identifier(const char* p);
  const char* public_literal(const char* p);
  const char* literal(const char* p);
  const char* comment(const char* p);
  const char* instruction(const char* p);

  const char* root(const char* p);

  // What every tag takes is one function with root(): calls would take an eighth of the time.
  [[gnu::always_inline]] const char* markup(const char* p);
  [[gnu::always_inline]] const char* start_tag(const char* p);
  [[gnu::always_inline]] const char* attributes(const char* p);
  [[gnu::always_inline]] const char* attribute(const char* p);
  [[gnu::always_inline]] const char* value(const char* p, char quote,
                                           const NumberedText& attribute);
  [[gnu::always_inline]] const char* end_tag(const char* p);
  [[gnu::always_inline]] const char* content(const char* p);
  [[gnu::always_inline]] bool is_layout(const char* p, const char* end) const;
  [[gnu::always_inline]] const NumberedText* name(const char* p);
  [[gnu::always_inline]] const NumberedText* known_name(const char* p);
  [[gnu::always_inline]] bool is_new_in_tag(const NumberedText& name);

  const NumberedText* new_name(const char* p);
  const char* check_unnumbered_attributes(const char* p);
  const char* wrong_end_tag(const char* p);
  const char* cdata_section(const char* p);

  template <Data kind>
  const char* data(const char* p, char last);
  const char* run(const char* p, char last);
  const char* reference(const char* p);
  const char* character_reference(const char* p);
  const char* add(const char* bytes, std::size_t length, const char* next);
  const char* character(const char* p, const char* why_at_end);
  const char* find(char wanted, const char* p);

  const char* const begin_;
  const char* const end_;
  TreeBuilder& tree_;

  const char* token_ = nullptr;  // the markup that is being read
  std::size_t owed_ = 0;         // bytes of the end tags that have to come
  std::size_t tags_ = 0;         // with attributes, so far
  std::size_t unnumbered_ = 0;   // attributes of this tag whose names have no number

  // By an attribute's number, the last tag that has it.
  std::size_t tag_of_[most_distinct_texts + 1] = {};

  const char* failed_at_ = nullptr;
  const char* why_ = nullptr;
  bool not_mine_ = false;
};

}  // namespace xmlparser
