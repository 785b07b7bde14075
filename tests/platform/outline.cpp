// Nodes as text.
#include "platform/outline.h"

namespace {

std::string escaped(const char* text) {
  if (!text) return "(null)";
  std::string result;
  for (const char* c = text; *c; ++c) {
    if (*c == '\n')
      result += "\\n";
    else if (*c == '\t')
      result += "\\t";
    else if (*c == '\r')
      result += "\\r";
    else
      result += *c;
  }
  return result;
}

std::string attributes_of(const XmlNode& element) {
  std::string result;
  for (const XmlNode* a = element.attributes; a; a = a->nextSibling)
    result += std::string(" @") + a->nodeName + "=\"" + escaped(a->nodeValue) + '"';
  return result;
}

std::string children_of(const XmlNode& element) {
  if (!element.firstChild) return "";
  std::string result;
  for (const XmlNode* child = element.firstChild; child; child = child->nextSibling)
    result += (result.empty() ? " {" : " ") + outline(*child);
  return result + '}';
}

}  // namespace

std::string outline(const XmlNode& node) {
  switch (node.nodeType) {
    case XML_TEXT:
      return '"' + escaped(node.nodeValue) + '"';
    case XML_CDATA_SECTION:
      return "![" + escaped(node.nodeValue) + ']';
    case XML_ELEMENT:
      return node.nodeName + attributes_of(node) + children_of(node);
    default:
      return "unexpected node type " + std::to_string(node.nodeType);
  }
}

std::string outline_of(const char* text) {
  XmlParseState state;
  XmlDocument* document = parseText(&state, text);
  if (!document) return std::string("refused: ") + getErrorText(&state);
  std::string result = outline(*document->root);
  freeXMLDoc(document);
  return result;
}
