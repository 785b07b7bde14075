// The two headers, read by a strict C++11 compiler; building it is the test.
#include "XMLParser.h"
#include "rtlog.h"

// Once more, against missing guards.
// NOLINTBEGIN(readability-duplicate-include)
#include "XMLParser.h"
#include "rtlog.h"
// NOLINTEND(readability-duplicate-include)

int main() {
  XmlDocument* document = parseText(nullptr, "<a b='1'/>");
  if (!document) return 1;
  rt_log_init();
  _rt_log(__FILE__, __LINE__, "TEST", "headers", 2, "%s", document->root->nodeName);
  freeXMLDoc(document);
  return 0;
}
