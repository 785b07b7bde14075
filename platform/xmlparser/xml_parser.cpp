// The exported functions.
#include <cstring>

#include "XMLParser.h"
#include "error_text.h"
#include "expat_reader.h"
#include "tree_builder.h"

XmlDocument* parseText(XmlParseState* state, const char* text) {
  xmlparser::ErrorText error(state);
  if (!text) {
    error.set("no text");
    return nullptr;
  }
  xmlparser::TreeBuilder tree;
  return xmlparser::read(text, std::strlen(text), tree, error) ? tree.take() : nullptr;
}

const char* getErrorText(const XmlParseState* state) { return xmlparser::error_text(state); }

void freeXMLDoc(XmlDocument* document) { xmlparser::release(document); }
