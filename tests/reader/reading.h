// Reading documents, as the reader's tests do it.
#pragma once

#include <memory>
#include <string>

#include "cim_client.h"

namespace reading {

struct ReleaseRoot {
  void operator()(CIM* root) const { Free_CIM(root); }
};
using Tree = std::unique_ptr<CIM, ReleaseRoot>;

// The tree of a document.  Not for a document that may give the tree of the one before.
inline Tree read(const std::string& text) { return Tree(parseXML(text.c_str())); }

// Leaves nothing of the documents before: no tree, no entry, no record.
inline void start_over() {
  Free_CIM(returnAddress);
  parseXML("");
}

// A document with this content in its CIM element.
inline std::string document(const std::string& content) {
  return R"(<?xml version="1.0" encoding="utf-8" ?><CIM CIMVERSION="2.0" DTDVERSION="2.0">)" +
         content + "</CIM>";
}

// An answer to an intrinsic operation.
inline std::string answer(const std::string& return_value) {
  return document(
      R"(<MESSAGE ID="1234" PROTOCOLVERSION="1.0"><SIMPLERSP><IMETHODRESPONSE NAME="X">)"
      "<IRETURNVALUE>" +
      return_value + "</IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE>");
}

// The same as it comes from an object manager, a line break after every tag, around the lines in
// IMETHODRESPONSE.
inline std::string answer_of(const std::string& operation, const std::string& lines) {
  return R"(<?xml version="1.0" encoding="utf-8" ?>
<CIM CIMVERSION="2.0" DTDVERSION="2.0">
<MESSAGE ID="1234" PROTOCOLVERSION="1.0">
<SIMPLERSP>
<IMETHODRESPONSE NAME=")" +
         operation + "\">\n" + lines + R"(</IMETHODRESPONSE>
</SIMPLERSP>
</MESSAGE>
</CIM>
)";
}

// What such an answer returns.
inline const IReturnValue& returned(const Tree& tree) {
  return *tree->message->simpleRsp->iMethodResponse->iReturnValue;
}

// The number of nodes of a list.
template <class Node>
int length(const Node* list) {
  int count = 0;
  for (; list; list = list->next) ++count;
  return count;
}

}  // namespace reading
