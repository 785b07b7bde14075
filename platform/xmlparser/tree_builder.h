// Builds the nodes of one document from what a reader of XML tells, in document order.
#pragma once

#include <cstddef>
#include <cstring>

#include "XMLParser.h"
#include "arena.h"
#include "distinct_texts.h"

namespace xmlparser {

// What XmlDocument is the first member of.
struct Document {
  XmlDocument visible;
  XmlNode node;  // "#document"
  Chunk* chunks;
};

// Knows nothing of how XML is written.  The reader calls in document order, matches opening
// and closing calls and has checked that all is well-formed.  Depth costs nothing but nodes.
// What returns bool is false when memory has run out; then nothing but out_of_memory() may be
// called.
class TreeBuilder {
 public:
  // `length`: bytes of the document's text.
  explicit TreeBuilder(std::size_t length) : arena_(length) { start(); }

  // The name that `bytes` begin with, when it is the one that comes next if the document goes on
  // as it did before; else null.  `room` bytes may be read, the one after the name among them.
  const NumberedText* find_expected_name(const char* bytes, std::size_t room) const {
    return names_.find_at_beginning(order_of_names_.expected(), bytes, room);
  }
  void name_came(const NumberedText& name) { order_of_names_.came(name.number); }

  // A name of 1 byte or more that a node is to have; null when it is new.
  const NumberedText* find_name(const char* bytes, std::size_t length) const {
    return names_.find(bytes, length);
  }
  // Keeps a new one until the next; null when memory has run out.  No text may be open.
  const NumberedText* add_name(const char* bytes, std::size_t length);

  // The length of the node's name, when `bytes` begin with it and go on after it; else 0.
  std::size_t begins_with_name(const XmlNode& node, const char* bytes, std::size_t room) const {
    if (node.nodeNameId) {
      const NumberedText* name = names_.find_at_beginning(node.nodeNameId, bytes, room);
      return name ? name->length : 0;
    }
    const std::size_t length = std::strlen(node.nodeName);
    return length < room && std::memcmp(bytes, node.nodeName, length) == 0 ? length : 0;
  }

  // At an element or a CDATA section the text before it ends: white space is not data there but
  // layout, and is dropped.
  bool end_text() { return arena_.text_length() == 0 || end_open_text(); }

  // After end_text().
  bool open_element(const NumberedText& name) {
    XmlNode* element = add_node(XML_ELEMENT, name);
    if (!element) return false;
    parent_ = element;
    last_child_ = nullptr;
    last_attribute_ = nullptr;
    return true;
  }

  // Of the element opened last, before anything else is told; the open text is its value.
  bool add_attribute(const NumberedText& name) { return add_attribute(name, arena_.finish_text()); }

  // The same for a value whose bytes are there already.  No text may be open.
  bool add_attribute(const NumberedText& name, const char* value, std::size_t length) {
    return add_attribute(name, kept_value(value, length));
  }

  // The value that `bytes` begin with, as find_expected_name().  It has no quotes.
  const NumberedText* find_expected_value(const char* bytes, std::size_t room) const {
    const Succession& order = last_attribute_ ? order_in_tag_ : order_of_tags_;
    return values_.find_at_beginning(order.expected(), bytes, room);
  }
  bool add_attribute(const NumberedText& name, const NumberedText& value) {
    value_came(value.number);
    return add_attribute(name, value.text);
  }

  bool close_element() {
    if (arena_.text_length() > 0 && !end_last_text()) return false;
    last_child_ = parent_;
    parent_ = parent_->parentNode;
    return true;
  }

  // Adds to the open text, in pieces of any size, resolved.
  bool add_characters(const char* bytes, std::size_t length) {
    return arena_.append(bytes, length) || fail();
  }
  // The same without a copy: where the next `length` bytes may be written, and how many were.
  char* room_for_characters(std::size_t length) { return arena_.room_for(length); }
  void characters_added(std::size_t length) { arena_.extend(length); }

  // All that the open element holds, whose bytes are there already; nothing has been told of it.
  bool add_only_text(const char* bytes, std::size_t length);

  // After end_text() and the section's characters.
  bool add_cdata_section();

  // The innermost open element, or the document.
  const XmlNode& parent() const { return *parent_; }
  bool inside_root() const { return parent_ != &document_->node; }
  bool nothing_inside_parent() const { return !last_child_ && arena_.text_length() == 0; }
  bool no_open_text() const { return arena_.text_length() == 0; }

  bool out_of_memory() const { return out_of_memory_; }

  // The finished document, which owns all nodes from then on; null when memory has run out.
  XmlDocument* take();

 private:
  void start();

  // A value null means that memory has run out.
  bool add_attribute(const NumberedText& name, const char* value) {
    XmlNode* attribute = value ? new_node(XML_ATTRIBUTE, name) : nullptr;
    if (!attribute) return fail();
    attribute->nodeValue = value;
    (last_attribute_ ? last_attribute_->nextSibling : parent_->attributes) = attribute;
    last_attribute_ = attribute;
    return true;
  }

  const char* kept_value(const char* value, std::size_t length);

  void value_came(std::uint32_t number) {
    if (last_attribute_) {
      order_in_tag_.came(number);
    } else {
      order_of_tags_.came(number);
      order_in_tag_.begins_with(number);
    }
  }

  // Without a place in the tree; null when memory has run out.
  XmlNode* new_node(int type, const NumberedText& name) {
    auto* node = static_cast<XmlNode*>(arena_.allocate(sizeof(XmlNode)));
    if (!node) return nullptr;
    *node = XmlNode{};
    node->nodeType = type;
    node->nodeName = name.text;
    node->nodeNameId = name.number;
    return node;
  }

  // A new last child of the open element; null when memory has run out.
  XmlNode* add_node(int type, const NumberedText& name) {
    XmlNode* node = new_node(type, name);
    if (!node) {
      fail();
      return nullptr;
    }
    node->parentNode = parent_;
    (last_child_ ? last_child_->nextSibling : parent_->firstChild) = node;
    last_child_ = node;
    return node;
  }

  bool add_text_node(int type, const NumberedText& name, const char* text);
  bool end_open_text();
  bool end_last_text();

  bool fail() {
    out_of_memory_ = true;
    return false;
  }

  Arena arena_;
  Document* document_ = nullptr;
  XmlNode* parent_ = nullptr;          // the innermost open element
  XmlNode* last_child_ = nullptr;      // of parent_
  XmlNode* last_attribute_ = nullptr;  // of parent_
  bool out_of_memory_ = false;
  Succession order_of_names_;
  Succession order_of_tags_;  // of the values of tags' first attributes
  Succession order_in_tag_;   // of the other values
  DistinctTexts names_;
  DistinctTexts values_;  // of attributes
};

void release(XmlDocument* document);

}  // namespace xmlparser
