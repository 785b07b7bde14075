/* The two headers, read by the strictest C compiler; building it is the test. */
#include "XMLParser.h"
#include "rtlog.h"

/* Once more, against missing guards. */
/* NOLINTBEGIN(readability-duplicate-include) */
#include "XMLParser.h"
#include "rtlog.h"
/* NOLINTEND(readability-duplicate-include) */

int main(void) {
  struct XmlDocument* document = parseText(0, "<a b='1'/>");
  if (!document) return 1;
  rt_log_init();
  _rt_log(__FILE__, __LINE__, "TEST", "headers", 2, "%s", document->root->nodeName);
  freeXMLDoc(document);
  return 0;
}
