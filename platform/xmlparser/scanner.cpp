// The grammar of XML 1.0, without the inside of document type declarations.
#include "scanner.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "blocks.h"
#include "characters.h"

namespace xmlparser {
namespace {

constexpr const char* invalid_token = "not well-formed (invalid token)";
constexpr const char* unclosed_token = "unclosed token";
constexpr const char* no_element = "no element found";
constexpr const char* duplicate_attribute = "duplicate attribute";
constexpr const char* bad_declaration = "XML declaration not well-formed";
constexpr const char* undeclared_entity = "reference to an entity that is not declared";
constexpr const char* out_of_memory = "out of memory";

// The text ends with a NUL, so this looks no further than its end.
bool begins_with(const char* p, std::string_view expected) {
  for (const char c : expected)
    if (*p++ != c) return false;
  return true;
}

const char* skip_white(const char* p) {
  while (is_white(*p)) ++p;
  return p;
}

char lower_case(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool equal_in_any_case(std::string_view text, std::string_view lower) {
  const auto equal = [](char a, char b) { return lower_case(a) == b; };
  return std::equal(text.begin(), text.end(), lower.begin(), lower.end(), equal);
}

bool is_letter_or_digit(char c) {
  return (c >= '0' && c <= '9') || (lower_case(c) >= 'a' && lower_case(c) <= 'z');
}

// Of an attribute flood that the table of names does not hold, by pointer.
bool name_is_less(const XmlNode* a, const XmlNode* b) {
  return std::strcmp(a->nodeName, b->nodeName) < 0;
}

bool name_is_equal(const XmlNode* a, const XmlNode* b) {
  return std::strcmp(a->nodeName, b->nodeName) == 0;
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
  const char* markup(const char* p);
  const char* start_tag(const char* p);
  const char* attributes(const char* p);
  const char* attribute(const char* p);
  const char* end_tag(const char* p);
  const char* wrong_end_tag(const char* p);
  const char* cdata_section(const char* p);
  const char* content(const char* p);
  bool is_layout(const char* p, const char* end) const;

  template <Data kind>
  const char* data(const char* p, char last);
  const char* run(const char* p, char last);
  const char* reference(const char* p);
  const char* character_reference(const char* p);
  const char* add(const char* bytes, std::size_t length, const char* next);

  const char* name(const char* p, NumberedName& name);
  const char* new_name(const char* p, NumberedName& name);
  const char* character(const char* p, const char* why_at_end);
  const char* find(char wanted, const char* p);

  bool is_new_in_tag(const NumberedName& name);
  const char* check_unnumbered_attributes(const char* p);

  const char* const begin_;
  const char* const end_;
  TreeBuilder& tree_;

  const char* token_ = nullptr;               // the markup that is being read
  std::size_t owed_ = 0;                      // bytes of the end tags that have to come
  std::size_t tags_ = 0;                      // with attributes, so far
  std::size_t unnumbered_ = 0;                // attributes of this tag whose names have no number
  std::size_t tag_of_[Names::most + 1] = {};  // by number, the last tag with such an attribute

  const char* failed_at_ = nullptr;
  const char* why_ = nullptr;
  bool not_mine_ = false;
};

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

// A name that is known has been looked at before.
inline const char* Scanner::name(const char* p, NumberedName& name) {
  const char* end = end_of_ascii_name(p, end_);
  if (end != p && !is_beyond_ascii(*end)) {
    const NumberedName* known = tree_.find_name(p, static_cast<std::size_t>(end - p));
    if (known) {
      name = *known;
      return end;
    }
  }
  return new_name(p, name);
}

const char* Scanner::new_name(const char* p, NumberedName& name) {
  const char* end = end_of_name(p);
  if (end == p) return p == end_ ? fail(token_, unclosed_token) : fail(p, invalid_token);
  const auto length = static_cast<std::size_t>(end - p);
  if (length > UINT32_MAX) return fail(p, "name too long");
  const NumberedName* known = tree_.find_name(p, length);
  name = known ? *known : tree_.add_name(p, length);
  return name.text ? end : fail_for_memory();
}

const char* Scanner::add(const char* bytes, std::size_t length, const char* next) {
  return tree_.add_characters(bytes, length) ? next : fail_for_memory();
}

// ---- Prolog ----

const char* Scanner::document() {
  const char* p = begin_;
  if (begins_with(p, "\xEF\xBB\xBF")) p += 3;
  token_ = p;
  if (begins_with(p, "<?xml") && is_white(p[5])) p = xml_declaration(p + 5);
  if (p) p = miscellaneous(p);
  if (p && begins_with(p, "<!DOCTYPE")) {
    p = document_type(p + 9);
    if (p) p = miscellaneous(p);
  }
  if (p) p = root(p);
  if (p) p = miscellaneous(p);
  if (p && p != end_) return fail(p, "junk after document element");
  return p;
}

const char* Scanner::miscellaneous(const char* p) {
  while (p) {
    token_ = p = skip_white(p);
    if (begins_with(p, "<!--"))
      p = comment(p + 4);
    else if (begins_with(p, "<?"))
      p = instruction(p + 2);
    else
      return p;
  }
  return nullptr;
}

const char* Scanner::xml_declaration(const char* p) {
  std::string_view value;
  p = pseudo_attribute(p, "version", value);
  if (!p) return nullptr;
  if (value.data() == nullptr) return fail(p, bad_declaration);

  p = pseudo_attribute(p, "encoding", value);
  if (p && value.data()) p = encoding(p, value);
  if (!p) return nullptr;

  p = pseudo_attribute(p, "standalone", value);
  if (!p) return nullptr;
  if (value.data() && value != "yes" && value != "no") return fail(p, bad_declaration);

  p = skip_white(p);
  return begins_with(p, "?>") ? p + 2 : fail(p, bad_declaration);
}

// Leaves `value` null and all to its reader when another name comes, or none.
const char* Scanner::pseudo_attribute(const char* p, std::string_view name,
                                      std::string_view& value) {
  value = {};
  const char* next = skip_white(p);
  if (next == p || !begins_with(next, name)) return p;
  p = skip_white(next + name.size());
  if (*p != '=') return fail(p, bad_declaration);
  p = skip_white(p + 1);
  const char quote = *p;
  if (quote != '"' && quote != '\'') return fail(p, bad_declaration);
  const char* begin = ++p;
  while (is_letter_or_digit(*p) || *p == '.' || *p == '-' || *p == '_') ++p;
  if (*p != quote) return fail(p, bad_declaration);
  value = {begin, static_cast<std::size_t>(p - begin)};
  return p + 1;
}

const char* Scanner::encoding(const char* p, std::string_view name) {
  if (equal_in_any_case(name, "utf-8")) return p;
  if (!equal_in_any_case(name, "us-ascii"))
    return leave(name.data(), "encodings other than UTF-8 and US-ASCII are not read");
  const char* beyond = std::find_if(p, end_, is_beyond_ascii);
  return beyond == end_ ? p : fail(beyond, invalid_token);
}

const char* Scanner::document_type(const char* p) {
  if (!is_white(*p)) return fail(p, invalid_token);
  p = skip_white(p);
  const char* end = end_of_name(p);
  if (end == p) return fail(p, invalid_token);
  p = skip_white(end);
  if (p != end && *p != '>' && *p != '[') p = external_identifier(p);
  if (!p) return nullptr;
  if (*p == '[') return leave(p, "declarations in the document type are not accepted");
  return *p == '>' ? p + 1 : fail(p, invalid_token);
}

const char* Scanner::external_identifier(const char* p) {
  const bool is_public = begins_with(p, "PUBLIC");
  if (!is_public && !begins_with(p, "SYSTEM")) return fail(p, "syntax error");
  p += 6;
  if (!is_white(*p)) return fail(p, invalid_token);
  p = skip_white(p);
  if (is_public) {
    p = public_literal(p);
    if (!p) return nullptr;
    if (!is_white(*p)) return fail(p, invalid_token);
    p = skip_white(p);
  }
  p = literal(p);
  return p ? skip_white(p) : nullptr;
}

const char* Scanner::public_literal(const char* p) {
  const char* end = literal(p);
  if (!end) return nullptr;
  for (++p; p < end - 1; ++p) {
    const bool good = is_letter_or_digit(*p) || (is_white(*p) && *p != '\t') ||
                      std::string_view("-'()+,./:=?;!*#@$_%").find(*p) != std::string_view::npos;
    if (!good) return fail(p, "illegal character(s) in public id");
  }
  return end;
}

const char* Scanner::literal(const char* p) {
  if (*p != '"' && *p != '\'') return fail(p, invalid_token);
  token_ = p;
  p = find(*p, p + 1);
  return p ? p + 1 : nullptr;
}

// ---- What makes no node ----

const char* Scanner::comment(const char* p) {
  while ((p = find('-', p))) {
    if (p[1] != '-')
      ++p;
    else
      return p[2] == '>' ? p + 3 : fail(p + 2, invalid_token);
  }
  return nullptr;
}

const char* Scanner::instruction(const char* p) {
  const char* end = end_of_name(p);
  if (end == p) return fail(p, invalid_token);
  const std::string_view target(p, static_cast<std::size_t>(end - p));
  if (target == "xml") return fail(token_, "XML or text declaration not at start of entity");
  if (equal_in_any_case(target, "xml")) return fail(p, invalid_token);
  if (!is_white(*end) && !begins_with(end, "?>")) return fail(end, invalid_token);
  for (p = end; (p = find('?', p)); ++p)
    if (p[1] == '>') return p + 2;
  return nullptr;
}

// ---- Elements ----

const char* Scanner::root(const char* p) {
  if (p == end_) return fail(p, no_element);
  token_ = p;
  if (*p != '<') return fail(p, invalid_token);
  p = start_tag(p + 1);
  while (p && tree_.inside_root()) {
    p = content(p);
    if (p) p = markup(p);
  }
  return p;
}

const char* Scanner::markup(const char* p) {
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

const char* Scanner::start_tag(const char* p) {
  NumberedName element{};
  if (!tree_.end_text()) return fail_for_memory();
  p = name(p, element);
  if (!p) return nullptr;
  if (!tree_.open_element(element)) return fail_for_memory();

  if (is_white(*p)) p = attributes(p);
  if (!p) return nullptr;
  if (*p == '>') {
    // Nothing has to be built of a deep document that cannot end well.
    constexpr std::size_t deep = 64 * 1024;
    owed_ += element.length + std::string_view("</>").size();
    if (owed_ > deep && owed_ > static_cast<std::size_t>(end_ - p)) return fail(end_, no_element);
    return p + 1;
  }
  if (*p != '/' || p[1] != '>')
    return *p == '\0' && p == end_ ? fail(token_, unclosed_token) : fail(p, invalid_token);
  return tree_.close_element() ? p + 2 : fail_for_memory();
}

const char* Scanner::attributes(const char* p) {
  ++tags_;
  unnumbered_ = 0;
  do {
    p = skip_white(p);
    if (*p == '>' || *p == '/') break;
    p = attribute(p);
  } while (p && is_white(*p));
  return p && unnumbered_ > 1 ? check_unnumbered_attributes(p) : p;
}

const char* Scanner::attribute(const char* p) {
  NumberedName attribute{};
  const char* begin = p;
  p = name(p, attribute);
  if (!p) return nullptr;
  if (!is_new_in_tag(attribute)) return fail(begin, duplicate_attribute);

  p = skip_white(p);
  if (*p != '=') return p == end_ ? fail(token_, unclosed_token) : fail(p, invalid_token);
  p = skip_white(p + 1);
  if (*p != '"' && *p != '\'')
    return p == end_ ? fail(token_, unclosed_token) : fail(p, invalid_token);
  p = data<Data::Value>(p + 1, *p);
  if (!p) return nullptr;
  return tree_.add_attribute(attribute) ? p + 1 : fail_for_memory();
}

bool Scanner::is_new_in_tag(const NumberedName& name) {
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

const char* Scanner::end_tag(const char* p) {
  const XmlNode& element = tree_.parent();
  const std::size_t length = tree_.name_length(element);
  if (static_cast<std::size_t>(end_ - p) <= length || std::memcmp(p, element.nodeName, length) != 0)
    return wrong_end_tag(p);
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
bool Scanner::is_layout(const char* p, const char* end) const {
  if (*end != '<' || end[1] == '!' || end[1] == '?' || !tree_.no_open_text()) return false;
  return p == end || end[1] != '/' || !tree_.nothing_inside_parent();
}

// Character data, to the markup after it.
const char* Scanner::content(const char* p) {
  const char* end = skip_white(p);
  return is_layout(p, end) ? end : data<Data::Content>(p, ']');
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

}  // namespace

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
