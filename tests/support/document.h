// A document put together in code, for what is handed single nodes:
// element("PROPERTY", {{"NAME", "x"}}, {text("y")}).
#pragma once

#include <deque>
#include <initializer_list>
#include <string>
#include <utility>

#include "XMLParser.h"

namespace support {

// Owns the nodes of one document.
class Document {
 public:
  using Attributes = std::initializer_list<std::pair<const char*, const char*>>;

  XmlNode* element(const char* name, Attributes attributes = {},
                   std::initializer_list<XmlNode*> children = {}) {
    XmlNode* node = make(XML_ELEMENT, name, nullptr);
    XmlNode** place = &node->attributes;
    for (const auto& [key, value] : attributes) {
      *place = make(XML_ATTRIBUTE, key, value);
      place = &(*place)->nextSibling;
    }
    place = &node->firstChild;
    for (XmlNode* child : children) {
      child->parentNode = node;
      *place = child;
      place = &child->nextSibling;
    }
    return node;
  }

  XmlNode* text(const char* value) { return make(XML_TEXT, "#text", value); }
  XmlNode* cdata(const char* value) { return make(XML_CDATA_SECTION, "#cdata-section", value); }

 private:
  // Nodes without numbers and lengths: a parser may leave them out.
  XmlNode* make(int type, const char* name, const char* value) {
    XmlNode& node = nodes_.emplace_back();
    node.nodeType = type;
    node.nodeName = texts_.emplace_back(name).c_str();
    node.nodeValue = value ? texts_.emplace_back(value).c_str() : nullptr;
    return &node;
  }

  std::deque<std::string> texts_;
  std::deque<XmlNode> nodes_;
};

}  // namespace support
