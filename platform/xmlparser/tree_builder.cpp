// The document's beginning and end, and texts.
#include "tree_builder.h"

namespace xmlparser {
namespace {

constexpr NumberedText unnumbered(const char* text, std::uint32_t length) {
  return {text, length, 0};
}
constexpr NumberedText document_name = unnumbered("#document", 9);
constexpr NumberedText text_name = unnumbered("#text", 5);
constexpr NumberedText cdata_name = unnumbered("#cdata-section", 14);

bool all_white(const char* bytes, std::size_t length) {
  for (std::size_t i = 0; i < length; ++i)
    if (bytes[i] != ' ' && bytes[i] != '\n' && bytes[i] != '\t' && bytes[i] != '\r') return false;
  return true;
}

bool has_quote(const char* bytes, std::size_t length) {
  return std::memchr(bytes, '"', length) || std::memchr(bytes, '\'', length);
}

}  // namespace

void TreeBuilder::start() {
  document_ = static_cast<Document*>(arena_.allocate(sizeof(Document)));
  if (!document_) {
    fail();
    return;
  }
  *document_ = Document{};
  document_->node.nodeType = XML_DOCUMENT;
  document_->node.nodeName = document_name.text;
  parent_ = &document_->node;
}

const NumberedText* TreeBuilder::add_name(const char* bytes, std::size_t length) {
  const NumberedText* name = names_.add(arena_, bytes, length);
  if (!name) fail();
  return name;
}

// Names and types are the values of most attributes: nodes share them.
const char* TreeBuilder::kept_value(const char* value, std::size_t length) {
  constexpr std::size_t longest_shared = 64;  // bytes
  if (length == 0) return "";
  if (length > longest_shared) return arena_.copy(value, length);
  const NumberedText* kept = values_.find(value, length);
  if (!kept) {
    if (has_quote(value, length)) return arena_.copy(value, length);
    kept = values_.add(arena_, value, length);
    if (!kept) return nullptr;
  }
  value_came(kept->number);
  return kept->text;
}

// A `text` null means that memory has run out.
inline bool TreeBuilder::add_text_node(int type, const NumberedText& name, const char* text) {
  XmlNode* node = text ? add_node(type, name) : nullptr;
  if (!node) return fail();
  node->nodeValue = text;
  return true;
}

bool TreeBuilder::add_only_text(const char* bytes, std::size_t length) {
  return add_text_node(XML_TEXT, text_name, arena_.copy(bytes, length));
}

bool TreeBuilder::end_open_text() {
  if (!all_white(arena_.text(), arena_.text_length()))
    return add_text_node(XML_TEXT, text_name, arena_.finish_text());
  arena_.drop_text();
  return true;
}

// What is all that an element holds is data even where it is white.
bool TreeBuilder::end_last_text() {
  return last_child_ ? end_open_text() : add_text_node(XML_TEXT, text_name, arena_.finish_text());
}

bool TreeBuilder::add_cdata_section() {
  return add_text_node(XML_CDATA_SECTION, cdata_name, arena_.finish_text());
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
