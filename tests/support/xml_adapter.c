/*
 * A second libXMLParser.so.1: an adapter between the client library and another XML library, here
 * Expat, whose events become the nodes of XMLParser.h.  It takes the other one's place when
 * LD_LIBRARY_PATH names its folder.
 *
 * It does what XMLParser.h asks of an adapter and no more: nodes have no name numbers and no
 * lengths.  A document that declares an entity is refused.
 *
 * When the environment variable ADAPTED_XML names a file, each document's root element is
 * appended to it, so that a test can see who has read it.
 */
#include <expat.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "XMLParser.h"

/* A node, its neighbours, the room that its value has, and the node made before it. */
struct Node {
  struct XmlNode xml; /* first, so that a node of the client is a node of the adapter */
  struct Node* last_child;
  struct Node* previous_sibling;
  size_t length;
  size_t room;
  struct Node* made_before;
};

/* What the client holds; it sees the first member only. */
struct Document {
  struct XmlDocument xml;
  struct Node* made_last; /* chain of every node, for release */
};

/* A parse that is going on. */
struct Reading {
  XML_Parser parser;
  struct Document* document;
  struct Node* open;  /* the innermost element, or the document node */
  struct Node* cdata; /* the CDATA section that is open, or null */
  const char* refusal;
};

static void refuse(struct Reading* reading, const char* why) {
  if (!reading->refusal) reading->refusal = why;
  XML_StopParser(reading->parser, XML_FALSE);
}

static char* copy_of(const char* text) {
  const size_t size = strlen(text) + 1;
  char* copy = malloc(size);
  return copy ? memcpy(copy, text, size) : NULL;
}

/* A node that belongs to the document and has no place in it yet; null when memory runs out. */
static struct Node* make_node(struct Reading* reading, int type, const char* name) {
  struct Node* node = calloc(1, sizeof *node);
  if (!node) {
    refuse(reading, "out of memory");
    return NULL;
  }
  node->made_before = reading->document->made_last;
  reading->document->made_last = node;
  node->xml.nodeType = type;
  node->xml.nodeName = copy_of(name);
  if (!node->xml.nodeName) refuse(reading, "out of memory");
  return node;
}

/* Adds characters to the value of a text or a CDATA section. */
static void extend(struct Reading* reading, struct Node* node, const char* text, size_t length) {
  if (node->length + length + 1 > node->room) {
    const size_t room = 2 * (node->length + length + 1);
    char* value = realloc((char*)node->xml.nodeValue, room);
    if (!value) {
      refuse(reading, "out of memory");
      return;
    }
    node->xml.nodeValue = value;
    node->room = room;
  }
  char* end = (char*)node->xml.nodeValue + node->length;
  memcpy(end, text, length);
  end[length] = '\0';
  node->length += length;
}

static void append_child(struct Node* parent, struct Node* child) {
  child->xml.parentNode = &parent->xml;
  child->previous_sibling = parent->last_child;
  if (parent->last_child)
    parent->last_child->xml.nextSibling = &child->xml;
  else
    parent->xml.firstChild = &child->xml;
  parent->last_child = child;
}

static int is_white_space(const char* text) { return text[strspn(text, " \t\r\n")] == '\0'; }

/* White space beside elements is layout: it makes no node.  Called when an element or a CDATA
 * section follows, and when the parent ends. */
static void drop_layout(struct Node* parent) {
  struct Node* last = parent->last_child;
  if (!last || last->xml.nodeType != XML_TEXT || !is_white_space(last->xml.nodeValue)) return;
  parent->last_child = last->previous_sibling;
  if (parent->last_child)
    parent->last_child->xml.nextSibling = NULL;
  else
    parent->xml.firstChild = NULL;
}

static void on_attribute(struct Reading* reading, struct Node* element, const char* name,
                         const char* value, struct XmlNode*** end) {
  struct Node* attribute = make_node(reading, XML_ATTRIBUTE, name);
  if (!attribute) return;
  extend(reading, attribute, value, strlen(value));
  if (!*end) *end = &element->xml.attributes;
  **end = &attribute->xml;
  *end = &attribute->xml.nextSibling;
}

static void XMLCALL on_element(void* data, const char* name, const char** attributes) {
  struct Reading* reading = data;
  struct Node* element = make_node(reading, XML_ELEMENT, name);
  if (!element) return;
  struct XmlNode** end = NULL;
  for (; *attributes; attributes += 2)
    on_attribute(reading, element, attributes[0], attributes[1], &end);
  drop_layout(reading->open);
  append_child(reading->open, element);
  reading->open = element;
}

static void XMLCALL on_element_end(void* data, const char* name) {
  struct Reading* reading = data;
  struct Node* element = reading->open;
  (void)name;
  /* White space that is all of an element's content is a value. */
  if (element->last_child && element->xml.firstChild != &element->last_child->xml)
    drop_layout(element);
  reading->open = (struct Node*)element->xml.parentNode;
}

static void XMLCALL on_characters(void* data, const char* text, int length) {
  struct Reading* reading = data;
  struct Node* target = reading->cdata ? reading->cdata : reading->open->last_child;
  if (!target || (!reading->cdata && target->xml.nodeType != XML_TEXT)) {
    target = make_node(reading, XML_TEXT, "#text");
    if (!target) return;
    append_child(reading->open, target);
  }
  extend(reading, target, text, (size_t)length);
}

static void XMLCALL on_cdata(void* data) {
  struct Reading* reading = data;
  drop_layout(reading->open);
  reading->cdata = make_node(reading, XML_CDATA_SECTION, "#cdata-section");
  if (!reading->cdata) return;
  extend(reading, reading->cdata, "", 0);
  append_child(reading->open, reading->cdata);
}

static void XMLCALL on_cdata_end(void* data) { ((struct Reading*)data)->cdata = NULL; }

static void XMLCALL on_entity(void* data, const char* name, int is_parameter, const char* value,
                              int length, const char* base, const char* system_id,
                              const char* public_id, const char* notation) {
  (void)name, (void)is_parameter, (void)value, (void)length;
  (void)base, (void)system_id, (void)public_id, (void)notation;
  refuse(data, "declares an entity");
}

static void set_handlers(struct Reading* reading) {
  XML_SetUserData(reading->parser, reading);
  XML_SetElementHandler(reading->parser, on_element, on_element_end);
  XML_SetCharacterDataHandler(reading->parser, on_characters);
  XML_SetCdataSectionHandler(reading->parser, on_cdata, on_cdata_end);
  XML_SetEntityDeclHandler(reading->parser, on_entity);
}

/* Feeds the text in parts that an int can count.  True when it is a whole document. */
static int read_text(struct Reading* reading, const char* text) {
  const size_t part = 65536;
  size_t left = strlen(text);
  for (; left > part; left -= part, text += part)
    if (XML_Parse(reading->parser, text, (int)part, XML_FALSE) != XML_STATUS_OK) return 0;
  return XML_Parse(reading->parser, text, (int)left, XML_TRUE) == XML_STATUS_OK;
}

/* The text of the last failure lies in the caller's state, which is 464 bytes.  Lines count from 1;
 * 0: the failure is not that of a line. */
static void set_error(struct XmlParseState* state, size_t line, const char* why) {
  if (!state) return;
  char* text = (char*)state->storage;
  if (line == 0)
    snprintf(text, sizeof state->storage, "%s", why);
  else
    snprintf(text, sizeof state->storage, "line %zu: %s", line, why);
}

static void record(const struct XmlDocument* document) {
  const char* path = getenv("ADAPTED_XML");
  FILE* file = path ? fopen(path, "a") : NULL;
  if (!file) return;
  fprintf(file, "%s\n", document->root->nodeName);
  fclose(file);
}

static struct XmlDocument* read_document(struct Reading* reading, struct XmlParseState* state,
                                         const char* text) {
  reading->open = make_node(reading, XML_DOCUMENT, "#document");
  if (!reading->open || !read_text(reading, text) || reading->refusal) {
    const char* why = reading->refusal;
    if (!why) why = XML_ErrorString(XML_GetErrorCode(reading->parser));
    set_error(state, (size_t)XML_GetCurrentLineNumber(reading->parser), why);
    freeXMLDoc(&reading->document->xml);
    return NULL;
  }
  reading->document->xml.root = reading->open->xml.firstChild;
  record(&reading->document->xml);
  return &reading->document->xml;
}

struct XmlDocument* parseText(struct XmlParseState* state, const char* text) {
  struct Reading reading = {0};
  struct XmlDocument* document = NULL;
  set_error(state, 0, "");
  if (!text) {
    set_error(state, 0, "no text");
    return NULL;
  }
  reading.document = calloc(1, sizeof *reading.document);
  reading.parser = reading.document ? XML_ParserCreate(NULL) : NULL;
  if (reading.parser) {
    set_handlers(&reading);
    document = read_document(&reading, state, text);
    XML_ParserFree(reading.parser);
  } else {
    set_error(state, 0, "out of memory");
    free(reading.document);
  }
  return document;
}

const char* getErrorText(const struct XmlParseState* state) {
  return state ? (const char*)state->storage : "";
}

void freeXMLDoc(struct XmlDocument* document) {
  if (!document) return;
  struct Document* whole = (struct Document*)document;
  for (struct Node* node = whole->made_last; node;) {
    struct Node* before = node->made_before;
    free((char*)node->xml.nodeName);
    free((char*)node->xml.nodeValue);
    free(node);
    node = before;
  }
  free(whole);
}
