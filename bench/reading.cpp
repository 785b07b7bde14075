// Reading a document: the library, and what stands beside it.
#include <expat.h>
#include <libxml/parser.h>

#include <cstdlib>
#include <cstring>
#include <pugixml.hpp>
#include <utility>
#include <vector>

#include "XMLParser.h"
#include "by_hand.h"
#include "cim_client.h"
#include "sample.h"

namespace bench {
namespace {

class Reading : public Work {
 public:
  explicit Reading(std::string text) : text_(std::move(text)) {}

 protected:
  const char* text() const { return text_.c_str(); }
  std::size_t size() const { return text_.size(); }

 private:
  std::string text_;
};

// Looks at every byte once and keeps nothing: the limit.
class Bytes : public Reading {
 public:
  using Reading::Reading;
  void run() override {
    const char* end = text() + size();
    for (const char* at = text(); at; ++count_)
      at = static_cast<const char*>(
          std::memchr(at + 1, '<', static_cast<std::size_t>(end - at - 1)));
    asm volatile("" : : "r"(count_));  // the count is wanted
  }

 private:
  std::size_t count_ = 0;
};

class Expat : public Reading {
 public:
  using Reading::Reading;
  void run() override {
    const XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(
        parser, [](void*, const XML_Char*, const XML_Char**) {}, [](void*, const XML_Char*) {});
    XML_SetCharacterDataHandler(parser, [](void*, const XML_Char*, int) {});
    if (XML_Parse(parser, text(), static_cast<int>(size()), 1) != XML_STATUS_OK) std::abort();
    XML_ParserFree(parser);
  }
};

class Pugixml : public Reading {
 public:
  using Reading::Reading;
  void run() override {
    pugi::xml_document document;
    if (!document.load_buffer(text(), size())) std::abort();
  }
};

class Libxml2 : public Reading {
 public:
  using Reading::Reading;
  void run() override {
    xmlDoc* document =
        xmlReadMemory(text(), static_cast<int>(size()), "", nullptr,
                      XML_PARSE_NONET | XML_PARSE_NOBLANKS | XML_PARSE_COMPACT | XML_PARSE_HUGE);
    if (!document) std::abort();
    xmlFreeDoc(document);
  }
};

// The platform's XML library alone.
class Nodes : public Reading {
 public:
  using Reading::Reading;
  void run() override {
    XmlParseState storage;
    XmlDocument* document = parseText(&storage, text());
    if (!document) std::abort();
    freeXMLDoc(document);
  }
};

// Documents to records, and back to nothing.
class ParseAndFree : public Reading {
 public:
  using Reading::Reading;
  void run() override { Free_CIM(parseXML(text())); }
  std::string digest() const override {
    CIM* tree = parseXML(text());
    std::string digest = digest_of(tree);
    Free_CIM(tree);
    return digest;
  }
};

class Parse : public Reading {
 public:
  using Reading::Reading;
  void run() override { tree_ = parseXML(text()); }
  void after() override {
    if (!tree_) std::abort();
    digest_ = digest_of(tree_);
    Free_CIM(std::exchange(tree_, nullptr));
  }
  std::string digest() const override { return digest_; }

 private:
  CIM* tree_ = nullptr;
  std::string digest_;
};

// The same allocations, copies and frees as the final records, and nothing else.
class Floor : public Reading {
 public:
  explicit Floor(std::string text) : Reading(std::move(text)) {
    CIM* tree = parseXML(this->text());
    replay_ = Replay(blocks_of(tree));
    Free_CIM(tree);
  }
  void run() override { replay_.run(); }

 private:
  Replay replay_;
};

}  // namespace

std::unique_ptr<Work> reading_work(std::string_view name, std::string document) {
  if (name == "bytes") return std::make_unique<Bytes>(std::move(document));
  if (name == "expat") return std::make_unique<Expat>(std::move(document));
  if (name == "pugixml") return std::make_unique<Pugixml>(std::move(document));
  if (name == "libxml2") return std::make_unique<Libxml2>(std::move(document));
  if (name == "nodes") return std::make_unique<Nodes>(std::move(document));
  if (name == "parse") return std::make_unique<Parse>(std::move(document));
  if (name == "parse+free") return std::make_unique<ParseAndFree>(std::move(document));
  if (name == "floor") return std::make_unique<Floor>(std::move(document));
  return nullptr;
}

}  // namespace bench
