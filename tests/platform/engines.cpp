// The engines behind parseText(), called as it calls them.
#include "platform/engines.h"

#include <cstring>
#include <string_view>

#include "expat_reader.h"
#include "scanner.h"
#include "tree_builder.h"

namespace engines {
namespace {

// The list: what the scanner says, and what must be in a text for it to be right.
struct LeftToExpat {
  Left what;
  std::string_view error;  // after line and column
};

constexpr LeftToExpat list[] = {
    {Left::Encoding, "encodings other than UTF-8 and US-ASCII are not read"},
    {Left::Declarations, "declarations in the document type are not accepted"},
};

Left left_by(std::string_view error) {
  for (const LeftToExpat& entry : list)
    if (error.size() > entry.error.size() &&
        error.substr(error.size() - entry.error.size()) == entry.error)
      return entry.what;
  return Left::Nothing;
}

// Nobody may be sent to Expat who asks for nothing that only Expat has.
bool is_explained(Left left, std::string_view text) {
  const bool begins_with_mark = text.substr(0, 3) == "\xEF\xBB\xBF";
  if (left == Left::Encoding)
    return text.substr(begins_with_mark ? 3 : 0, 5) == "<?xml" &&
           text.substr(0, text.find("?>")).find("encoding") != std::string_view::npos;
  const std::size_t type = text.find("<!DOCTYPE");
  return left == Left::Declarations && type != std::string_view::npos &&
         text.find('[', type) != std::string_view::npos;
}

std::string describe(const char* what, const XmlNode* a, const XmlNode* b) {
  const auto shown = [](const XmlNode* node) -> std::string {
    if (!node) return "nothing";
    return std::string(node->nodeName) + " (" + (node->nodeValue ? node->nodeValue : "") + ")";
  };
  return std::string(what) + ": " + shown(a) + " and " + shown(b);
}

bool equal(const char* a, const char* b) { return a && b ? std::strcmp(a, b) == 0 : a == b; }

// Of two nodes, without those that they lead to.
bool fields_are_equal(const XmlNode& a, const XmlNode& b) {
  return a.nodeType == b.nodeType && equal(a.nodeName, b.nodeName) &&
         equal(a.nodeValue, b.nodeValue) && a.nodeNameId == b.nodeNameId;
}

std::string difference_of_attributes(const XmlNode& first, const XmlNode& second) {
  const XmlNode* a = first.attributes;
  const XmlNode* b = second.attributes;
  for (; a && b; a = a->nextSibling, b = b->nextSibling)
    if (!fields_are_equal(*a, *b) || a->parentNode || b->parentNode || a->firstChild ||
        b->firstChild || a->attributes || b->attributes)
      return describe("attributes", a, b);
  return a || b ? describe("attributes", a, b) : "";
}

std::string verdict(const Reading& reading) {
  return reading.root() ? "accepts" : "refuses (" + reading.error() + ")";
}

}  // namespace

Reading::~Reading() { freeXMLDoc(document_); }

Reading scanned(const char* text) {
  XmlParseState state;
  xmlparser::ErrorText error(&state);
  const std::size_t length = std::strlen(text);
  xmlparser::TreeBuilder tree(length);
  const xmlparser::Scanned result = xmlparser::scan(text, length, tree, error);
  if (result == xmlparser::Scanned::Whole) return Reading(tree.take());
  std::string why = xmlparser::error_text(&state);
  const Left left = result == xmlparser::Scanned::NotMine ? left_by(why) : Left::Nothing;
  return {left, std::move(why)};
}

Reading read_by_expat(const char* text) {
  XmlParseState state;
  xmlparser::ErrorText error(&state);
  const std::size_t length = std::strlen(text);
  xmlparser::TreeBuilder tree(length);
  if (xmlparser::read_with_expat(text, length, tree, error)) return Reading(tree.take());
  return {Left::Nothing, xmlparser::error_text(&state)};
}

std::string difference(const XmlNode* a, const XmlNode* b) {
  const XmlNode* const root = a;
  while (true) {
    if (!fields_are_equal(*a, *b)) return describe("nodes", a, b);
    std::string attributes = difference_of_attributes(*a, *b);
    if (!attributes.empty()) return attributes;
    if (!equal(a->parentNode->nodeName, b->parentNode->nodeName))
      return describe("parents", a->parentNode, b->parentNode);
    if (!a->firstChild != !b->firstChild) return describe("first children of", a, b);

    if (a->firstChild) {
      if (a->firstChild->parentNode != a || b->firstChild->parentNode != b)
        return describe("children of others", a, b);
      a = a->firstChild;
      b = b->firstChild;
      continue;
    }
    while (a != root && !a->nextSibling) {
      if (b->nextSibling) return describe("next siblings of", a, b);
      a = a->parentNode;
      b = b->parentNode;
    }
    if (!a->nextSibling != !b->nextSibling) return describe("next siblings of", a, b);
    if (a == root) return "";
    if (a->nextSibling->parentNode != a->parentNode || b->nextSibling->parentNode != b->parentNode)
      return describe("siblings under others", a, b);
    a = a->nextSibling;
    b = b->nextSibling;
  }
}

std::string disagreement(const char* text) {
  const Reading own = scanned(text);
  if (own.left() != Left::Nothing)
    return is_explained(own.left(), text) ? "" : "left to Expat without need: " + own.error();
  const Reading other = read_by_expat(text);
  if (!own.root() != !other.root())
    return "the scanner " + verdict(own) + ", Expat " + verdict(other);
  return own.root() ? difference(own.root(), other.root()) : "";
}

}  // namespace engines
