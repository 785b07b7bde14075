// The element and attribute names that the reader knows, as small numbers.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "XMLParser.h"
#include "model/records.h"

namespace cim {

// A known name; the records' elements come first, in the order of Records.
using Name = std::uint8_t;

constexpr Name unknown_name = 255;  // a document's name that is not known
constexpr Name no_name = 254;       // not a name, not even an unknown one

namespace detail {

constexpr bool same_text(const char* a, const char* b) {
  for (; *a && *a == *b; ++a, ++b) continue;
  return *a == *b;
}

struct NameTable {
  std::array<const char*, 128> text{};
  std::size_t size = 0;

  constexpr void add(const char* name) {
    for (std::size_t i = 0; i < size; ++i)
      if (same_text(text[i], name)) return;
    text[size++] = name;
  }

  // The number of a name that is in the table; no constant for others.
  constexpr Name number_of(const char* name) const {
    std::size_t i = 0;
    while (!same_text(text[i], name)) ++i;
    return static_cast<Name>(i);
  }
};

// Every element of a record, HOST (an element without a record of its own), and every
// attribute of a record.
consteval NameTable make_name_table() {
  NameTable table;
  Records::for_each([&]<class R>() { table.add(describe<R>.element); });
  table.add("HOST");
  Records::for_each([&]<class R>() {
    for_each_field<R>([&](const auto& field) {
      if (field.attribute) table.add(field.attribute);
    });
  });
  return table;
}

}  // namespace detail

inline constexpr detail::NameTable known_names = detail::make_name_table();

inline constexpr auto known_name_lengths = [] {
  std::array<std::uint8_t, known_names.size> lengths{};
  for (std::size_t i = 0; i < known_names.size; ++i)
    lengths[i] = static_cast<std::uint8_t>(std::string_view(known_names.text[i]).size());
  return lengths;
}();

// The number of a known name; names that are not known do not compile.
consteval Name name_of(const char* text) { return known_names.number_of(text); }

template <Record R>
inline constexpr Name element_of = name_of(describe<R>.element);

// The number of the name `text`, or unknown_name.
Name look_up(const char* text);

// Looks names up once per document: the parser numbers the distinct names of a document.
class Names {
 public:
  Names() { known_.fill(no_name); }

  Name of(const XmlNode& node) {
    const std::uint32_t id = node.nodeNameId;
    if (id == 0 || id >= known_.size()) return look_up(node.nodeName);
    if (known_[id] == no_name) known_[id] = look_up(node.nodeName);
    return known_[id];
  }

 private:
  std::array<Name, 256> known_;  // by the parser's number; no_name: not looked up yet
};

}  // namespace cim
