// Elements and their data.
#include "scanner.h"

#include <algorithm>
#include <cstdlib>

#include "blocks.h"
#include "scanning.h"

namespace xmlparser {
namespace {

constexpr const char* duplicate_attribute = "duplicate attribute";
constexpr const char* undeclared_entity = "reference to an entity that is not declared";

// Of an attribute flood that the table of names does not hold, by pointer.
bool name_is_less(const XmlNode* a, const XmlNode* b) {
  return std::strcmp(a->nodeName, b->nodeName) < 0;
}

bool name_is_equal(const XmlNode* a, const XmlNode* b) {
  return std::strcmp(a->nodeName, b->nodeName) == 0;
}

}  // namespace

void Scanner::describe_failure(ErrorText& error) const {
  if (why_ == out_of_memory) {
    error.set(out_of_memory);
    return;
  }
  unsigned long line = 1;
  unsigned long column = 1;
  for (const char* p = begin_; p < failed_at_; ++p) {
    if (*p == '\n' || (*p == '\r' && p[1] != '\n')) {
      ++line;
      column = 1;
    } else if (*p != '\r' && (static_cast<unsigned char>(*p) & 0xC0U) != 0x80) {
      ++column;
    }
  }
  error.set(line, column, why_);
}

// ---- Small parts ----

// One character of any kind.
const char* Scanner::character(const char* p, const char* why_at_end) {
  if (is_beyond_ascii(*p)) {
    const std::size_t length = length_of_character(p);
    return length > 0 ? p + length : fail(p, invalid_token);
  }
  if (*p >= ' ' || is_white(*p)) return p + 1;
  return p == end_ ? fail(token_, why_at_end) : fail(p, invalid_token);
}

// Over characters of any kind to the next `wanted`.
const char* Scanner::find(char wanted, const char* p) {
  while (p) {
    p = end_of_run(p, end_, wanted);
    if (*p == wanted) return p;
    p = character(p, unclosed_token);
  }
  return nullptr;
}

// The name that begins at `p`; null when the document is not to be read any further.
inline const NumberedText* Scanner::name(const char* p) {
  const NumberedText* found = known_name(p);
  if (!found) found = new_name(p);
  if (found) tree_.name_came(*found);
  return found;
}

// A name that is known has been looked at before.
inline const NumberedText* Scanner::known_name(const char* p) {
  const auto ends = [](char c) { return ends_ascii_name(c) && !is_beyond_ascii(c); };
  const NumberedText* expected = tree_.find_expected_name(p, static_cast<std::size_t>(end_ - p));
  if (expected && ends(p[expected->length])) return expected;
  const char* end = end_of_ascii_name(p, end_);
  return end == p || !ends(*end) ? nullptr : tree_.find_name(p, static_cast<std::size_t>(end - p));
}

const NumberedText* Scanner::new_name(const char* p) {
  const char* end = end_of_name(p);
  if (end == p) {
    fail(p == end_ ? token_ : p, p == end_ ? unclosed_token : invalid_token);
    return nullptr;
  }
  const auto length = static_cast<std::size_t>(end - p);
  if (length >= UINT32_MAX) {
    fail(p, "name too long");
    return nullptr;
  }
  const NumberedText* found = tree_.find_name(p, length);
  if (!found) found = tree_.add_name(p, length);
  if (!found) fail_for_memory();
  return found;
}

const char* Scanner::add(const char* bytes, std::size_t length, const char* next) {
  return tree_.add_characters(bytes, length) ? next : fail_for_memory();
}

// ---- Elements ----

const char* Scanner::root(const char* p) {
  if (p == end_) return fail(p, no_element);
  if (*p != '<') return fail(p, invalid_token);
  if (p[1] == '/' || p[1] == '!' || p[1] == '?') return fail(p + 1, invalid_token);
  for (;;) {
    p = markup(p);
    if (!p || !tree_.inside_root()) return p;
    p = content(p);
    if (!p) return nullptr;
  }
}

inline const char* Scanner::markup(const char* p) {
  token_ = p;
  switch (p[1]) {
    case '/':
      return end_tag(p + 2);
    case '?':
      return instruction(p + 2);
    case '!':
      if (begins_with(p + 2, "--")) return comment(p + 4);
      if (begins_with(p + 2, "[CDATA[")) return cdata_section(p + 9);
      return fail(p + 2, invalid_token);
    default:
      return start_tag(p + 1);
  }
}

inline const char* Scanner::start_tag(const char* p) {
  if (!tree_.end_text()) return fail_for_memory();
  const NumberedText* element = name(p);
  if (!element) return nullptr;
  const std::size_t length = element->length;
  p += length;
  if (!tree_.open_element(*element)) return fail_for_memory();

  if (is_white(*p)) p = attributes(p);
  if (!p) return nullptr;
  if (*p == '>') {
    // Nothing has to be built of a deep document that cannot end well.
    constexpr std::size_t deep = 64 * 1024;
    owed_ += length + std::string_view("</>").size();
    if (owed_ > deep && owed_ > static_cast<std::size_t>(end_ - p)) return fail(end_, no_element);
    return p + 1;
  }
  if (*p != '/' || p[1] != '>')
    return *p == '\0' && p == end_ ? fail(token_, unclosed_token) : fail(p, invalid_token);
  return tree_.close_element() ? p + 2 : fail_for_memory();
}

inline const char* Scanner::attributes(const char* p) {
  ++tags_;
  unnumbered_ = 0;
  do {
    p = skip_white(p);
    if (*p == '>' || *p == '/') break;
    p = attribute(p);
  } while (p && is_white(*p));
  return p && unnumbered_ > 1 ? check_unnumbered_attributes(p) : p;
}

inline const char* Scanner::attribute(const char* p) {
  const NumberedText* attribute = name(p);
  if (!attribute) return nullptr;
  if (!is_new_in_tag(*attribute)) return fail(p, duplicate_attribute);

  p = skip_white(p + attribute->length);
  if (*p != '=') return p == end_ ? fail(token_, unclosed_token) : fail(p, invalid_token);
  p = skip_white(p + 1);
  if (*p != '"' && *p != '\'')
    return p == end_ ? fail(token_, unclosed_token) : fail(p, invalid_token);
  return value(p + 1, *p, *attribute);
}

// The value of `attribute`, to behind the quote that ends it.
inline const char* Scanner::value(const char* p, char quote, const NumberedText& attribute) {
  const NumberedText* expected = tree_.find_expected_value(p, static_cast<std::size_t>(end_ - p));
  if (expected && p[expected->length] == quote)
    return tree_.add_attribute(attribute, *expected) ? p + expected->length + 1 : fail_for_memory();
  const char* end = end_of_run(p, end_, quote);
  bool added = false;
  if (*end == quote) {
    added = tree_.add_attribute(attribute, p, static_cast<std::size_t>(end - p));
  } else {
    end = data<Data::Value>(p, quote);
    if (!end) return nullptr;
    added = tree_.add_attribute(attribute);
  }
  return added ? end + 1 : fail_for_memory();
}

inline bool Scanner::is_new_in_tag(const NumberedText& name) {
  if (name.number == 0) {
    ++unnumbered_;
    return true;
  }
  std::size_t& tag = tag_of_[name.number];
  if (tag == tags_) return false;
  tag = tags_;
  return true;
}

// Sorts them: a tag may have very many.
const char* Scanner::check_unnumbered_attributes(const char* p) {
  auto** sorted = static_cast<const XmlNode**>(std::calloc(unnumbered_, sizeof(void*)));
  if (!sorted) return fail_for_memory();
  const XmlNode** sorted_end = sorted;
  for (const XmlNode* a = tree_.parent().attributes; a; a = a->nextSibling)
    if (a->nodeNameId == 0) *sorted_end++ = a;
  std::sort(sorted, sorted_end, name_is_less);
  const bool all_different = std::adjacent_find(sorted, sorted_end, name_is_equal) == sorted_end;
  std::free(sorted);
  return all_different ? p : fail(token_, duplicate_attribute);
}

inline const char* Scanner::end_tag(const char* p) {
  const auto left = static_cast<std::size_t>(end_ - p);
  const std::size_t length = tree_.begins_with_name(tree_.parent(), p, left);
  if (length == 0) return wrong_end_tag(p);
  const char* end = skip_white(p + length);
  if (*end != '>') return wrong_end_tag(p);
  owed_ -= length + std::string_view("</>").size();
  return tree_.close_element() ? end + 1 : fail_for_memory();
}

const char* Scanner::wrong_end_tag(const char* p) {
  const char* end = end_of_name(p);
  if (end == p) return p == end_ ? fail(token_, unclosed_token) : fail(p, invalid_token);
  end = skip_white(end);
  if (*end == '>') return fail(p, "mismatched tag");
  return end == end_ ? fail(token_, unclosed_token) : fail(end, invalid_token);
}

const char* Scanner::cdata_section(const char* p) {
  if (!tree_.end_text()) return fail_for_memory();
  p = data<Data::Section>(p, ']');
  if (!p) return nullptr;
  return tree_.add_cdata_section() ? p + 3 : fail_for_memory();
}

// ---- Data ----

// White space from `p` to `end` that is not data: a tag follows, and no other text.
inline bool Scanner::is_layout(const char* p, const char* end) const {
  if (*end != '<' || end[1] == '!' || end[1] == '?' || !tree_.no_open_text()) return false;
  return p == end || end[1] != '/' || !tree_.nothing_inside_parent();
}

// Character data, to the markup after it.  Mostly it is all that its element holds.
inline const char* Scanner::content(const char* p) {
  const char* end = skip_white(p);
  if (is_layout(p, end)) return end;
  end = end_of_run(p, end_, ']');
  if (*end == '<' && end[1] == '/' && tree_.nothing_inside_parent())
    return tree_.add_only_text(p, static_cast<std::size_t>(end - p)) ? end : fail_for_memory();
  return data<Data::Content>(p, ']');
}

// Adds characters to the open text.  Content ends before markup, a section at "]]>" and a value
// at its quote, which is `last`.
template <Scanner::Data kind>
const char* Scanner::data(const char* p, char last) {
  while ((p = run(p, last))) {
    if (kind == Data::Value && *p == last) return p;
    if (kind == Data::Content && *p == '<') return p;
    if (kind == Data::Value && *p == '<') return fail(p, invalid_token);
    if (kind != Data::Value && begins_with(p, "]]>"))
      return kind == Data::Section ? p : fail(p + 2, invalid_token);
    if (kind == Data::Content && p == end_) return fail(p, no_element);

    if (kind != Data::Section && *p == '&') {
      p = reference(p + 1);
    } else if (is_white(*p) && (kind == Data::Value || *p == '\r')) {
      const char* next = p + (begins_with(p, "\r\n") ? 2 : 1);
      p = add(kind == Data::Value ? " " : "\n", 1, next);
    } else {
      const char* next = p;
      do {
        next = character(next, kind == Data::Section ? "unclosed CDATA section" : unclosed_token);
        if (!next) return nullptr;
      } while (is_beyond_ascii(*next));
      p = add(p, static_cast<std::size_t>(next - p), next);
    }
    if (!p) return nullptr;
  }
  return nullptr;
}

// What stands for itself is copied while it is looked at.
const char* Scanner::run(const char* p, char last) {
  while (end_ - p >= static_cast<std::ptrdiff_t>(sizeof(Block))) {
    char* room = tree_.room_for_characters(sizeof(Block));
    if (!room) return fail_for_memory();
    std::memcpy(room, p, sizeof(Block));
    const std::size_t length = run_in_block(p, last);
    tree_.characters_added(length);
    p += length;
    if (length < sizeof(Block)) return p;
  }
  const char* end = end_of_run(p, end_, last);
  return add(p, static_cast<std::size_t>(end - p), end);
}

const char* Scanner::reference(const char* p) {
  if (*p == '#') return character_reference(p + 1);
  struct Known {
    std::string_view reference;
    const char* character;
  };
  constexpr Known known[] = {
      {"lt;", "<"}, {"gt;", ">"}, {"amp;", "&"}, {"apos;", "'"}, {"quot;", "\""}};
  for (const Known& entity : known)
    if (begins_with(p, entity.reference))
      return add(entity.character, 1, p + entity.reference.size());
  const char* end = end_of_name(p);
  return fail(end == p || *end != ';' ? end : p - 1,
              end == p || *end != ';' ? invalid_token : undeclared_entity);
}

const char* Scanner::character_reference(const char* p) {
  const char* const begin = p - 2;
  const std::uint32_t base = *p == 'x' ? 16 : 10;
  if (base == 16) ++p;
  const char* const digits = p;
  std::uint32_t code = 0;
  for (;; ++p) {
    const char c = lower_case(*p);
    std::uint32_t digit = base;
    if (c >= '0' && c <= '9') digit = static_cast<std::uint32_t>(c - '0');
    if (c >= 'a' && c <= 'f') digit = static_cast<std::uint32_t>(c - 'a') + 10;
    if (digit >= base) break;
    code = std::min(code * base + digit, 0x110000U);  // beyond all characters
  }
  if (p == digits || *p != ';') return fail(p, invalid_token);
  if (!is_character(code)) return fail(begin, "reference to invalid character number");
  char bytes[4];
  return add(bytes, write_character(code, bytes), p + 1);
}

Scanned scan(const char* text, std::size_t length, TreeBuilder& tree, ErrorText& error) {
  Scanner scanner(text, length, tree);
  if (tree.out_of_memory()) {
    error.set(out_of_memory);
    return Scanned::Refused;
  }
  if (scanner.document()) return Scanned::Whole;
  scanner.describe_failure(error);
  return scanner.not_mine() ? Scanned::NotMine : Scanned::Refused;
}

}  // namespace xmlparser
