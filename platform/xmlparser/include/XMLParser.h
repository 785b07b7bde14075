/**
 * @file XMLParser.h
 * @brief The XML DOM library that the CIM reader asks for, libXMLParser.so.1.
 *
 * A caller hands over a text, walks the nodes and releases them all at once:
 *
 *     struct XmlParseState state;
 *     struct XmlDocument *document = parseText(&state, text);
 *     if (!document) printf("%s\n", getErrorText(&state));
 *     else walk(document->root);
 *     freeXMLDoc(document);
 *
 * Conventions that hold for every declaration below
 *
 *   Texts       NUL-terminated UTF-8, whatever the document's own encoding. They and the
 *               nodes belong to the document and live until freeXMLDoc().
 *   Nodes       are read, never written, by the caller. They keep document order.
 *   Threads     different documents may be parsed, read and released in different threads
 *               at the same time; several documents may be held at once.
 *
 * A device's own XML library takes this one's place through an adapter with the same
 * soname that exports the three functions. What an adapter may leave out is said at each
 * field; memory for nodes comes from calloc() or the like, so that this means 0.
 *
 * The header compiles as C99 and as C++11.
 */
#ifndef XMLPARSER_H
#define XMLPARSER_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define XMLPARSER_API __attribute__((visibility("default")))
#else
#define XMLPARSER_API
#endif

/** Values of XmlNode::nodeType, the W3C DOM's numbers. */
enum XmlNodeType {
  XML_ELEMENT = 1,
  XML_ATTRIBUTE = 2,
  XML_TEXT = 3,
  XML_CDATA_SECTION = 4,
  XML_DOCUMENT = 9
};

/**
 * One node. There are elements, their attributes, texts, CDATA sections, and the one
 * document node above the root element; nothing else makes a node.
 *
 * Texts: adjacent character data is one node, also across comments, processing
 * instructions, character references and the predefined entities, which are resolved. A
 * text of white space alone is kept when it is all that its element holds, and dropped when
 * an element or a CDATA section stands beside it. A CDATA section always is a node of its
 * own, even an empty one or one beside another section or a text.
 *
 * Attributes: first those written in the tag, in document order, then those that an
 * internal document type subset supplies.
 */
struct XmlNode {
  /** An XmlNodeType. An adapter sets it at least for texts and CDATA sections. */
  int nodeType;

  /**
   * Number of the name among the distinct element and attribute names of the document,
   * from 1 on; elements and attributes share the numbers. Two nodes of one document with
   * the same number have the same name, two with different numbers have different names.
   * 0: the name has no number, and only its text says what it is. An adapter may leave it 0
   * everywhere; a caller must expect 0 at any node and numbers of any size.
   */
  uint32_t nodeNameId;

  /**
   * The tag of an element or the name of an attribute, as written, with its prefix if it
   * has one; "#document" for the document node, "#text" and "#cdata-section" for the
   * others. Never null for an element, an attribute or the document node.
   */
  const char* nodeName;

  /**
   * Character data of a text or CDATA section, or the value of an attribute, each possibly
   * ""; null for an element and the document node.
   */
  const char* nodeValue;

  /** First attribute of an element, chained through nextSibling; null when there is none. */
  struct XmlNode* attributes;

  /** The node above; null for the document node and for an attribute. */
  struct XmlNode* parentNode;

  /** First child of an element or of the document node; null when there is none. */
  struct XmlNode* firstChild;

  /** The node after this one under the same parent, or the next attribute; or null. */
  struct XmlNode* nextSibling;
};

/** A parsed document. */
struct XmlDocument {
  /**
   * The root element, where a walk begins; never null. Its parent is the node "#document",
   * whose only child it is. Stays the first member: an adapter's document begins with it,
   * and what follows it is the library's own.
   */
  struct XmlNode* root;
};

/**
 * Storage for the state of one parse, provided by the caller; 464 bytes, of which the
 * library writes no more. Needs no preparation and no release, may lie at any address, and
 * may be used again for the next document: the document does not refer to it.
 */
struct XmlParseState {
  unsigned char storage[464];
};

/**
 * Parses a document.
 *
 * The text is a whole XML 1.0 document; white space and comments may follow the root
 * element, anything else makes it not well-formed. Nothing but an optional UTF-8 byte order
 * mark stands before an XML declaration. Encodings: UTF-8, US-ASCII and ISO-8859-1.
 * Namespaces are not processed. Nothing external is opened, whatever the document refers to.
 *
 * Refused although they may be well-formed, with a text that says so: a document that
 * declares an entity or refers to one that it does not declare; more attribute declarations
 * than 256, or attribute defaults that supply more than four times the size of the document. A
 * library that is built without Expat also refuses ISO-8859-1 and all declarations inside a
 * document type.
 *
 * Takes time and memory in proportion to the text; depth and width have no limit of their
 * own, and the C stack does not grow with them.
 *
 * @param state  storage for the state of this parse; may be null when nobody asks why it
 *               failed
 * @param text   where the document begins; ends at its NUL. May be released afterwards.
 * @return the document, to be released with freeXMLDoc(). Null, with nothing left to
 *         release, when the text is null, not well-formed or refused, or memory runs out;
 *         getErrorText() says which.
 */
XMLPARSER_API struct XmlDocument* parseText(struct XmlParseState* state, const char* text);

/**
 * Why the last parseText() with this state failed.
 * @param state  storage that parseText() has used; may be null
 * @return "line L, column C: what is wrong" on one line, counted from 1, columns in
 *         characters; "out of memory"; "no text"; or "" after a successful parse or for a
 *         null state. Lies in `state` and is valid until it is used again.
 */
XMLPARSER_API const char* getErrorText(const struct XmlParseState* state);

/**
 * Releases a document with all its nodes and texts at once, without visiting them.
 * @param document  from parseText(); may be null
 */
XMLPARSER_API void freeXMLDoc(struct XmlDocument* document);

#ifdef __cplusplus
}
#endif

#endif /* XMLPARSER_H */
