// Expat's handlers, what is refused beyond what Expat refuses, and feeding.
#include "expat_reader.h"

#include <expat.h>

#include <cstring>
#include <string_view>

namespace xmlparser {
namespace {

static_assert(sizeof(XML_Char) == 1, "texts are UTF-8");

// One pass over a text.
struct Reading {
  std::string_view text;
  TreeBuilder& tree;
  XML_Parser parser;
  const char* refusal = nullptr;  // null: nothing but Expat's own judgement

  bool has_external_subset = false;
  std::size_t declared_attributes = 0;
  std::size_t supplied_bytes = 0;  // by attribute defaults
};

Reading& reading_of(void* user_data) { return *static_cast<Reading*>(user_data); }

void refuse(Reading& reading, const char* why) {
  if (!reading.refusal) reading.refusal = why;
  XML_StopParser(reading.parser, XML_FALSE);
}

constexpr const char* out_of_memory = "out of memory";

// After each call of the tree builder.
void stop_unless(bool built, Reading& reading) {
  if (!built) refuse(reading, out_of_memory);
}

// ---- References to entities that nobody declared ----

// A document that refers to an external subset may refer to entities declared there, which is
// never read.  In content Expat tells of such a reference; in a value it leaves it out without
// a word, so the markup itself is looked at.
constexpr const char* undeclared_entity = "reference to an entity that is not declared";

// `text` lies in a terminated text.
bool begins_with_known_reference(const char* text) {
  for (const std::string_view known : {"&#", "&lt;", "&gt;", "&amp;", "&apos;", "&quot;"})
    if (std::strncmp(text, known.data(), known.size()) == 0) return true;
  return false;
}

void check_references(Reading& reading, std::string_view markup) {
  for (; !markup.empty(); markup.remove_prefix(1))
    if (markup.front() == '&' && !begins_with_known_reference(markup.data()))
      refuse(reading, undeclared_entity);
}

// Where the markup begins that the handler is called for.
const char* current_markup(const Reading& reading) {
  return reading.text.data() + XML_GetCurrentByteIndex(reading.parser);
}

void check_references_in_tag(Reading& reading) {
  if (!reading.has_external_subset) return;
  const auto length = static_cast<std::size_t>(XML_GetCurrentByteCount(reading.parser));
  check_references(reading, {current_markup(reading), length});
}

// Of an attribute declaration; Expat stands at the opening quote.
void check_references_in_default(Reading& reading) {
  if (!reading.has_external_subset) return;
  const char* literal = current_markup(reading);
  const char* end = std::strchr(literal + 1, *literal);
  if (end) check_references(reading, {literal, static_cast<std::size_t>(end - literal)});
}

void on_skipped_entity(void* user_data, const XML_Char*, int) {
  refuse(reading_of(user_data), undeclared_entity);
}

// ---- Document type declaration ----

// Few declarations and small defaults can ask for much: each element has every default, and
// Expat walks over every declaration of an element's attributes.
constexpr std::size_t most_declared_attributes = 256;

bool too_much_supplied(const Reading& reading) {
  return reading.supplied_bytes > 64 * 1024 + 4 * reading.text.size();
}

void on_doctype(void* user_data, const XML_Char*, const XML_Char* system_id, const XML_Char*, int) {
  reading_of(user_data).has_external_subset = system_id != nullptr;
}

// Told of all markup that has no handler of its own.  Each kind of entity declaration begins
// with this token, and no other token consists of it.
void on_other_markup(void* user_data, const XML_Char* markup, int length) {
  constexpr std::string_view declaration = "<!ENTITY";
  if (std::string_view(markup, static_cast<std::size_t>(length)) == declaration)
    refuse(reading_of(user_data), "entity declarations are not accepted");
}

void on_attribute_declaration(void* user_data, const XML_Char*, const XML_Char*, const XML_Char*,
                              const XML_Char* default_value, int) {
  Reading& reading = reading_of(user_data);
  if (default_value) check_references_in_default(reading);
  if (++reading.declared_attributes > most_declared_attributes)
    refuse(reading, "too many attribute declarations");
}

// ---- Content ----

// Expat may call handlers once more after the parser has been stopped.

// Null when memory has run out.
const NumberedText* name_of(Reading& reading, const XML_Char* text) {
  const std::size_t length = std::strlen(text);
  const NumberedText* known = reading.tree.find_name(text, length);
  return known ? known : reading.tree.add_name(text, length);
}

bool open_element(Reading& reading, const XML_Char* text) {
  if (!reading.tree.end_text()) return false;
  const NumberedText* name = name_of(reading, text);
  return name && reading.tree.open_element(*name);
}

bool add_attribute(Reading& reading, const XML_Char* text, const XML_Char* value) {
  const NumberedText* name = name_of(reading, text);
  return name && reading.tree.add_characters(value, std::strlen(value)) &&
         reading.tree.add_attribute(*name);
}

void on_element(void* user_data, const XML_Char* name, const XML_Char** attributes) {
  Reading& reading = reading_of(user_data);
  check_references_in_tag(reading);
  if (reading.refusal) return;
  bool built = open_element(reading, name);

  const XML_Char** written_end = attributes + XML_GetSpecifiedAttributeCount(reading.parser);
  for (const XML_Char** next = attributes; built && *next; next += 2) {
    if (next >= written_end) {
      reading.supplied_bytes += sizeof(XmlNode) + std::strlen(next[1]);
      if (too_much_supplied(reading)) {
        refuse(reading, "attribute defaults exceed the document's size");
        return;
      }
    }
    built = add_attribute(reading, next[0], next[1]);
  }
  stop_unless(built, reading);
}

void on_element_end(void* user_data, const XML_Char*) {
  Reading& reading = reading_of(user_data);
  if (!reading.refusal) stop_unless(reading.tree.close_element(), reading);
}

void on_characters(void* user_data, const XML_Char* bytes, int length) {
  Reading& reading = reading_of(user_data);
  if (reading.refusal) return;
  stop_unless(reading.tree.add_characters(bytes, static_cast<std::size_t>(length)), reading);
}

void on_cdata_section(void* user_data) {
  Reading& reading = reading_of(user_data);
  if (!reading.refusal) stop_unless(reading.tree.end_text(), reading);
}

void on_cdata_section_end(void* user_data) {
  Reading& reading = reading_of(user_data);
  if (!reading.refusal) stop_unless(reading.tree.add_cdata_section(), reading);
}

void set_handlers(Reading& reading) {
  XML_SetUserData(reading.parser, &reading);
  XML_SetElementHandler(reading.parser, on_element, on_element_end);
  XML_SetCharacterDataHandler(reading.parser, on_characters);
  XML_SetCdataSectionHandler(reading.parser, on_cdata_section, on_cdata_section_end);
  XML_SetDefaultHandler(reading.parser, on_other_markup);
  XML_SetStartDoctypeDeclHandler(reading.parser, on_doctype);
  XML_SetAttlistDeclHandler(reading.parser, on_attribute_declaration);
  XML_SetSkippedEntityHandler(reading.parser, on_skipped_entity);
  // Asks Expat to tell of undeclared parameter entities; it has no handler to open any.
  XML_SetParamEntityParsing(reading.parser, XML_PARAM_ENTITY_PARSING_ALWAYS);
}

// ---- Feeding ----

constexpr std::size_t piece = 64 * 1024;                  // bytes
constexpr std::size_t largest_piece = 512 * 1024 * 1024;  // Expat counts bytes in an int

// Expat begins an unfinished token anew with each piece, so the pieces of a long token double.
bool feed(Reading& reading) {
  std::size_t fed = 0;
  std::size_t wanted = piece;
  XML_Index reached = -1;
  while (true) {
    const std::size_t left = reading.text.size() - fed;
    const std::size_t size = left < wanted ? left : wanted;
    const XML_Status status =
        XML_Parse(reading.parser, reading.text.data() + fed, static_cast<int>(size), size == left);
    if (status != XML_STATUS_OK) return false;
    if (size == left) return true;
    fed += size;

    const XML_Index now = XML_GetCurrentByteIndex(reading.parser);
    const bool advanced = now != reached;
    reached = now;
    if (advanced)
      wanted = piece;
    else if (wanted < largest_piece)
      wanted *= 2;
  }
}

void describe_failure(const Reading& reading, ErrorText& error) {
  const XML_Error code = XML_GetErrorCode(reading.parser);
  const char* what = reading.refusal ? reading.refusal : XML_ErrorString(code);
  if (what == out_of_memory || (!reading.refusal && code == XML_ERROR_NO_MEMORY)) {
    error.set(out_of_memory);
    return;
  }
  error.set(XML_GetCurrentLineNumber(reading.parser),
            XML_GetCurrentColumnNumber(reading.parser) + 1, what);
}

// A parser, released at the end of its scope.
struct Parser {
  XML_Parser handle = XML_ParserCreate(nullptr);
  Parser() = default;
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;
  ~Parser() { XML_ParserFree(handle); }
};

}  // namespace

bool read_with_expat(const char* text, std::size_t length, TreeBuilder& tree, ErrorText& error) {
  const Parser parser;
  if (!parser.handle || tree.out_of_memory()) {
    error.set(out_of_memory);
    return false;
  }
  Reading reading{{text, length}, tree, parser.handle};
  set_handlers(reading);
  if (feed(reading)) return true;
  describe_failure(reading, error);
  return false;
}

}  // namespace xmlparser
