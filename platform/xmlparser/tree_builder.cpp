// Nodes, linked as they come.
#include "tree_builder.h"

#include <cstring>

namespace xmlparser {
namespace {

constexpr NumberedName unnumbered(const char* text, std::uint32_t length) {
  return {text, length, 0};
}
constexpr NumberedName document_name = unnumbered("#document", 9);
constexpr NumberedName text_name = unnumbered("#text", 5);
constexpr NumberedName cdata_name = unnumbered("#cdata-section", 14);

bool all_white(const char* bytes, std::size_t length) {
  for (std::size_t i = 0; i < length; ++i)
    if (bytes[i] != ' ' && bytes[i] != '\n' && bytes[i] != '\t' && bytes[i] != '\r') return false;
  return true;
}

void fill(XmlNode& node, int type, NumberedName name) {
  node = XmlNode{};
  node.nodeType = type;
  node.nodeName = name.text;
  node.nodeNameId = name.number;
  node.nodeNameLength = name.length;
}

}  // namespace

void TreeBuilder::start() {
  document_ = static_cast<Document*>(arena_.allocate(sizeof(Document)));
  if (!document_) {
    fail();
    return;
  }
  *document_ = Document{};
  fill(document_->node, XML_DOCUMENT, document_name);
  parent_ = &document_->node;
}

bool TreeBuilder::fail() {
  out_of_memory_ = true;
  return false;
}

// A new last child of the open element; null when memory has run out.
XmlNode* TreeBuilder::add_node(int type, NumberedName name) {
  auto* node = static_cast<XmlNode*>(arena_.allocate(sizeof(XmlNode)));
  if (!node) {
    fail();
    return nullptr;
  }
  fill(*node, type, name);
  node->parentNode = parent_;
  (last_child_ ? last_child_->nextSibling : parent_->firstChild) = node;
  last_child_ = node;
  return node;
}

// Turns the open text into a node.
bool TreeBuilder::add_text_node(int type, NumberedName name) {
  const std::size_t length = arena_.text_length();
  const char* text = arena_.finish_text();
  text_is_white_ = true;
  if (!text) return fail();
  XmlNode* node = add_node(type, name);
  if (!node) return false;
  node->nodeValue = text;
  node->nodeValueLength = length;
  return true;
}

// At an element or a CDATA section, white space before it is not data but layout.
bool TreeBuilder::end_text() {
  if (arena_.text_length() == 0) return true;
  if (!text_is_white_) return add_text_node(XML_TEXT, text_name);
  arena_.drop_text();
  return true;
}

bool TreeBuilder::open_element(const char* name) {
  if (out_of_memory_ || !end_text()) return false;
  const NumberedName known = names_.find_or_add(arena_, name);
  if (!known.text) return fail();
  XmlNode* element = add_node(XML_ELEMENT, known);
  if (!element) return false;
  parent_ = element;
  last_child_ = nullptr;
  last_attribute_ = nullptr;
  return true;
}

bool TreeBuilder::add_attribute(const char* name, const char* value) {
  if (out_of_memory_) return false;
  const NumberedName known = names_.find_or_add(arena_, name);
  const std::size_t length = std::strlen(value);
  const char* kept = known.text ? arena_.copy(value, length) : nullptr;
  auto* attribute = kept ? static_cast<XmlNode*>(arena_.allocate(sizeof(XmlNode))) : nullptr;
  if (!attribute) return fail();

  fill(*attribute, XML_ATTRIBUTE, known);
  attribute->nodeValue = kept;
  attribute->nodeValueLength = length;
  (last_attribute_ ? last_attribute_->nextSibling : parent_->attributes) = attribute;
  last_attribute_ = attribute;
  return true;
}

bool TreeBuilder::close_element() {
  if (out_of_memory_) return false;
  const bool text_is_all = last_child_ == nullptr && arena_.text_length() > 0;
  if (!(text_is_all ? add_text_node(XML_TEXT, text_name) : end_text())) return false;
  last_child_ = parent_;
  parent_ = parent_->parentNode;
  return true;
}

bool TreeBuilder::add_characters(const char* bytes, std::size_t length) {
  if (out_of_memory_) return false;
  text_is_white_ = text_is_white_ && all_white(bytes, length);
  return arena_.append(bytes, length) || fail();
}

bool TreeBuilder::open_cdata_section() { return !out_of_memory_ && end_text(); }

bool TreeBuilder::close_cdata_section() {
  return !out_of_memory_ && add_text_node(XML_CDATA_SECTION, cdata_name);
}

XmlDocument* TreeBuilder::take() {
  if (out_of_memory_) return nullptr;
  document_->visible.root = document_->node.firstChild;
  document_->chunks = arena_.take();
  return &document_->visible;
}

void release(XmlDocument* document) {
  if (document) release(reinterpret_cast<Document*>(document)->chunks);
}

}  // namespace xmlparser
