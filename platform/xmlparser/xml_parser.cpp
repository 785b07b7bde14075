// The exported functions, and which engine reads.
#include <cstring>

#include "XMLParser.h"
#include "error_text.h"
#ifdef XMLPARSER_HAS_EXPAT
#include "expat_reader.h"
#endif
#include "scanner.h"
#include "tree_builder.h"

namespace xmlparser {
namespace {

#ifdef XMLPARSER_PREFERS_EXPAT
bool read(const char* text, std::size_t length, TreeBuilder& tree, ErrorText& error) {
  return read_with_expat(text, length, tree, error);
}
#else
// Expat, where it is built in, reads what the scanner leaves to others.
bool read(const char* text, std::size_t length, TreeBuilder& tree, ErrorText& error) {
  const Scanned scanned = scan(text, length, tree, error);
#ifdef XMLPARSER_HAS_EXPAT
  if (scanned == Scanned::NotMine) {
    error.set("");
    return read_with_expat(text, length, tree, error);
  }
#endif
  return scanned == Scanned::Whole;
}
#endif

}  // namespace
}  // namespace xmlparser

XmlDocument* parseText(XmlParseState* state, const char* text) {
  xmlparser::ErrorText error(state);
  if (!text) {
    error.set("no text");
    return nullptr;
  }
  const std::size_t length = std::strlen(text);
  xmlparser::TreeBuilder tree(length);
  return xmlparser::read(text, length, tree, error) ? tree.take() : nullptr;
}

const char* getErrorText(const XmlParseState* state) { return xmlparser::error_text(state); }

void freeXMLDoc(XmlDocument* document) { xmlparser::release(document); }
