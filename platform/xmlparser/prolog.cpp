// The XML declaration and the document type; comments and processing instructions, which make no
// node.
#include <algorithm>

#include "scanning.h"

namespace xmlparser {
namespace {

constexpr const char* bad_declaration = "XML declaration not well-formed";

bool equal_in_any_case(std::string_view text, std::string_view lower) {
  const auto equal = [](char a, char b) { return lower_case(a) == b; };
  return std::equal(text.begin(), text.end(), lower.begin(), lower.end(), equal);
}

bool is_letter_or_digit(char c) {
  return (c >= '0' && c <= '9') || (lower_case(c) >= 'a' && lower_case(c) <= 'z');
}

}  // namespace

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

}  // namespace xmlparser
