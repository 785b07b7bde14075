// A received XML document as a tree of elements.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace sandbox::cimxml {

struct Element {
  std::string name;
  std::vector<std::pair<std::string, std::string>> attributes;
  std::string text;  // character data, CDATA included, directly within the element
  std::vector<Element> children;

  // Null when there is none of that name.
  const std::string* attribute(std::string_view attribute_name) const;
  const Element* child(std::string_view child_name) const;
  Element* child(std::string_view child_name);
};

struct Malformed {
  std::string text;
};

// Reads a whole document; white space before it does not matter.  Entities cannot be declared,
// nothing outside the document is opened, and depth and number of elements are limited.
std::variant<Element, Malformed> parse_document(std::string_view document);

}  // namespace sandbox::cimxml
