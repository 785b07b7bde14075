// Reading the nodes of a parsed document.
#pragma once

#include "XMLParser.h"

namespace cim {

inline bool is_character_data(const XmlNode& node) {
  return node.nodeType == XML_TEXT || node.nodeType == XML_CDATA_SECTION;
}

// The value of an attribute, "" for one without.
inline const char* value_of(const XmlNode& attribute) {
  return attribute.nodeValue ? attribute.nodeValue : "";
}

// The node after `node` in document order: its first child, else its next sibling, else that
// of its nearest ancestor that has one.  Null at the end of the document.
inline const XmlNode* next_node(const XmlNode* node) {
  if (node->firstChild) return node->firstChild;
  for (; node; node = node->parentNode)
    if (node->nextSibling) return node->nextSibling;
  return nullptr;
}

}  // namespace cim
