// Builds the nodes of one document from what a reader of XML tells, in document order.
#pragma once

#include <cstddef>

#include "XMLParser.h"
#include "arena.h"
#include "names.h"

namespace xmlparser {

// What XmlDocument is the first member of.
struct Document {
  XmlDocument visible;
  XmlNode node;  // "#document"
  Chunk* chunks;
};

// Knows nothing of how XML is written.  The reader calls in document order, matches opening
// and closing calls and has checked that all is well-formed.  Depth costs nothing but nodes.
// Every call returns false when memory has run out; the calls after it do nothing.
class TreeBuilder {
 public:
  TreeBuilder() { start(); }

  bool open_element(const char* name);
  // Of the element opened last, before anything else is told.
  bool add_attribute(const char* name, const char* value);
  bool close_element();

  // Character data, in pieces of any size, resolved.
  bool add_characters(const char* bytes, std::size_t length);

  bool open_cdata_section();
  bool close_cdata_section();

  bool out_of_memory() const { return out_of_memory_; }

  // The finished document, which owns all nodes from then on; null when memory has run out.
  XmlDocument* take();

 private:
  void start();
  XmlNode* add_node(int type, NumberedName name);
  bool add_text_node(int type, NumberedName name);
  bool end_text();
  bool fail();

  Arena arena_;
  Names names_;
  Document* document_ = nullptr;
  XmlNode* parent_ = nullptr;          // the innermost open element
  XmlNode* last_child_ = nullptr;      // of parent_
  XmlNode* last_attribute_ = nullptr;  // of parent_
  bool text_is_white_ = true;          // the open text
  bool out_of_memory_ = false;
};

void release(XmlDocument* document);

}  // namespace xmlparser
