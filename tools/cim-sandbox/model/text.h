// Texts as CIM sees them: names that differ only in case are the same name, and every text is
// UTF-8 that an XML document can carry.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace sandbox {

// Only ASCII letters change: CIM names hold no others that matter.
std::string lower_case(std::string_view text);
bool same_name(std::string_view left, std::string_view right);

// Name order and name hash for containers keyed by CIM names.
struct NameLess {
  using is_transparent = void;
  bool operator()(std::string_view left, std::string_view right) const;
};
struct NameHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view name) const;
};
struct NameEqual {
  using is_transparent = void;
  bool operator()(std::string_view left, std::string_view right) const {
    return same_name(left, right);
  }
};

// The first letter or "_", then letters, digits and "_"; bytes beyond ASCII count as letters.
bool is_name(std::string_view text);

// The next character of UTF-8 `text`, taken from its front; its bytes are removed.
// An impossible sequence, a surrogate or an empty text gives `no_character`.
inline constexpr char32_t no_character = 0xffffffff;
char32_t take_character(std::string_view& text);
void append_character(std::string& text, char32_t character);

// The characters that XML 1.0 admits (section 2.2, production Char).
bool is_xml_character(char32_t character);
bool is_xml_text(std::string_view text);

// `text` without white space at either end.
std::string_view trimmed(std::string_view text);

}  // namespace sandbox
