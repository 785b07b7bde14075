// Documents that are well-formed, and all the nodes that each makes.
#include <gtest/gtest.h>

#include "platform/documents.h"
#include "platform/outline.h"

namespace {

using documents::Accepted;

class AcceptedDocument : public testing::TestWithParam<Accepted> {};

TEST_P(AcceptedDocument, makes_these_nodes) {
#ifndef XML_LIBRARY_HAS_EXPAT
  if (GetParam().by == documents::By::Expat) {
    EXPECT_EQ(outline_of(GetParam().document).rfind("refused: line 1, column ", 0), 0U);
    return;
  }
#endif
  EXPECT_EQ(outline_of(GetParam().document), GetParam().nodes);
}

INSTANTIATE_TEST_SUITE_P(Xml, AcceptedDocument, testing::ValuesIn(documents::accepted),
                         [](const auto& test) { return std::string(test.param.name); });

#ifdef XML_LIBRARY_HAS_EXPAT
TEST(LatinOneDocument, of_any_length_becomes_utf_8) {
  const std::string header = R"(<?xml version="1.0" encoding="ISO-8859-1"?>)";
  const std::string document = header + "<a>" + std::string(200000, '\xE9') + "</a>";
  std::string expected;
  for (int i = 0; i < 200000; ++i) expected += "é";
  EXPECT_EQ(outline_of(document.c_str()), "a {\"" + expected + "\"}");
}
#else
TEST(Library, without_expat_says_which_encodings_it_reads) {
  EXPECT_EQ(outline_of(R"(<?xml version="1.0" encoding="ISO-8859-1"?><a/>)"),
            "refused: line 1, column 31: encodings other than UTF-8 and US-ASCII are not read");
}

TEST(Library, without_expat_says_that_it_reads_no_declarations_in_a_document_type) {
  EXPECT_EQ(outline_of("<!DOCTYPE a [<!ELEMENT a ANY>]><a/>"),
            "refused: line 1, column 13: declarations in the document type are not accepted");
}
#endif

}  // namespace
