// Reading XML with libxml2's push parser.
#include "cimxml/element.h"

#include <libxml/parser.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "model/text.h"

namespace sandbox::cimxml {
namespace {

constexpr std::size_t deepest_element = 64;  // CIM-XML requests need about fifteen
constexpr std::size_t most_elements = 1U << 18U;
constexpr std::size_t piece_size = 1U << 20U;  // bytes handed to the parser at once

std::string_view view_of(const xmlChar* text) {
  return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

std::string joined_name(const xmlChar* prefix, const xmlChar* name) {
  std::string joined(view_of(prefix));
  if (!joined.empty()) joined += ':';
  return joined += view_of(name);
}

// Grows the tree from the parser's events.
class TreeBuilder {
 public:
  explicit TreeBuilder(xmlParserCtxtPtr parser) : parser_(parser) {}
  void set_parser(xmlParserCtxtPtr parser) { parser_ = parser; }

  void start(std::string name, int attribute_count, const xmlChar** attributes) {
    if (open_.size() >= deepest_element) return stop("elements are nested too deeply");
    if (++element_count_ > most_elements) return stop("there are too many elements");
    Element element{std::move(name), {}, {}, {}};
    // libxml2 hands each attribute over as local name, prefix, URI, begin and end of the value.
    for (int i = 0; i < attribute_count; ++i, attributes += 5) {
      const auto length = static_cast<std::size_t>(attributes[4] - attributes[3]);
      element.attributes.emplace_back(
          joined_name(attributes[1], attributes[0]),
          std::string(reinterpret_cast<const char*>(attributes[3]), length));
    }
    open_.push_back(std::move(element));
  }

  void text(const xmlChar* text, int length) {
    if (open_.empty()) return;
    open_.back().text.append(reinterpret_cast<const char*>(text), static_cast<std::size_t>(length));
  }

  void end() {
    if (open_.empty()) return;
    Element element = std::move(open_.back());
    open_.pop_back();
    if (open_.empty()) {
      root_ = std::move(element);
    } else {
      open_.back().children.push_back(std::move(element));
    }
  }

  void stop(std::string reason) {
    if (reason_.empty()) reason_ = std::move(reason);
    xmlStopParser(parser_);
  }

  const std::string& reason() const { return reason_; }
  Element take_root() { return std::move(root_); }

 private:
  xmlParserCtxtPtr parser_;
  std::vector<Element> open_;
  Element root_;
  std::size_t element_count_ = 0;
  std::string reason_;
};

TreeBuilder& builder(void* context) { return *static_cast<TreeBuilder*>(context); }

xmlSAXHandler make_handler() {
  xmlSAXHandler handler{};
  handler.initialized = XML_SAX2_MAGIC;
  handler.startElementNs = [](void* context, const xmlChar* name, const xmlChar* prefix,
                              const xmlChar*, int, const xmlChar**, int attribute_count, int,
                              const xmlChar** attributes) {
    builder(context).start(joined_name(prefix, name), attribute_count, attributes);
  };
  handler.endElementNs = [](void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
    builder(context).end();
  };
  handler.characters = [](void* context, const xmlChar* text, int length) {
    builder(context).text(text, length);
  };
  handler.ignorableWhitespace = handler.characters;
  handler.cdataBlock = handler.characters;
  handler.entityDecl = [](void* context, const xmlChar*, int, const xmlChar*, const xmlChar*,
                          xmlChar*) { builder(context).stop("entities may not be declared"); };
  handler.serror = [](void*, xmlErrorPtr) {};  // the parser keeps its last error by itself
  return handler;
}

struct FreeParser {
  void operator()(xmlParserCtxtPtr parser) const {
    xmlFreeDoc(parser->myDoc);  // made for a document type, and nobody else's
    xmlFreeParserCtxt(parser);
  }
};

std::string last_error(xmlParserCtxtPtr parser) {
  const xmlError* error = xmlCtxtGetLastError(parser);
  if (!error || !error->message) return "the document is not well-formed";
  return "line " + std::to_string(error->line) + ": " + std::string(trimmed(error->message));
}

}  // namespace

const std::string* Element::attribute(std::string_view attribute_name) const {
  for (const auto& [key, value] : attributes) {
    if (key == attribute_name) return &value;
  }
  return nullptr;
}

const Element* Element::child(std::string_view child_name) const {
  const auto found = std::find_if(children.begin(), children.end(),
                                  [child_name](const Element& e) { return e.name == child_name; });
  return found == children.end() ? nullptr : &*found;
}

Element* Element::child(std::string_view child_name) {
  return const_cast<Element*>(std::as_const(*this).child(child_name));
}

std::variant<Element, Malformed> parse_document(std::string_view document) {
  static xmlSAXHandler handler = make_handler();
  document = trimmed(document);
  TreeBuilder tree(nullptr);
  const std::unique_ptr<xmlParserCtxt, FreeParser> parser(
      xmlCreatePushParserCtxt(&handler, &tree, nullptr, 0, nullptr));
  if (!parser) return Malformed{"out of memory"};
  tree.set_parser(parser.get());
  xmlCtxtUseOptions(parser.get(), XML_PARSE_NONET | XML_PARSE_HUGE);
  int status = 0;
  while (!document.empty() && status == 0 && tree.reason().empty()) {
    const std::string_view piece = document.substr(0, piece_size);
    document.remove_prefix(piece.size());
    status = xmlParseChunk(parser.get(), piece.data(), static_cast<int>(piece.size()), 0);
  }
  if (tree.reason().empty()) xmlParseChunk(parser.get(), nullptr, 0, 1);
  if (!tree.reason().empty()) return Malformed{tree.reason()};
  if (parser->wellFormed == 0) return Malformed{last_error(parser.get())};
  return tree.take_root();
}

}  // namespace sandbox::cimxml
