// A parsed document in one line, so that a test can show all its nodes.
#pragma once

#include <string>

#include "XMLParser.h"

// An element as its name, its attributes as @name="value" and, when it has children, the
// children in braces; a text in quotes; a CDATA section as ![data]. For example
//
//   <a b="1"><c/>t<![CDATA[u]]></a>    is    a @b="1" {c "t" ![u]}
//
// A line feed, tab or carriage return is written \n, \t or \r.  Recursive: for documents of a
// few thousand levels at most.
std::string outline(const XmlNode& node);

// The outline of the document that `text` holds, or "refused: " and the error text.
std::string outline_of(const char* text);
