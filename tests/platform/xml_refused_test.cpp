// Documents that are not well-formed, and well-formed ones that are refused all the same.
#include <gtest/gtest.h>

#include <cstring>
#include <regex>

#include "platform/documents.h"
#include "platform/outline.h"

namespace {

using documents::Refused;

const auto name_of = [](const auto& test) { return std::string(test.param.name); };

class MalformedDocument : public testing::TestWithParam<Refused> {};

TEST_P(MalformedDocument, is_refused_with_line_and_column) {
  const std::string result = outline_of(GetParam().document);
  EXPECT_TRUE(
      std::regex_match(result, std::regex("refused: line [1-9][0-9]*, column [1-9][0-9]*: [^\n]+")))
      << result;
}

INSTANTIATE_TEST_SUITE_P(Xml, MalformedDocument, testing::ValuesIn(documents::malformed), name_of);

TEST(Document, cut_off_anywhere_is_refused) {
  const std::string whole =
      "<?xml version=\"1.0\"?><!DOCTYPE a SYSTEM 'b'>"
      "<a e='1'>x&lt;&#65;<b/><!-- c --><?i x?><![CDATA[y]]>é</a>";
  ASSERT_EQ(outline_of(whole.c_str()), "a @e=\"1\" {\"x<A\" b ![y] \"é\"}");
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_EQ(outline_of(whole.substr(0, length).c_str()).rfind("refused: ", 0), 0U) << length;
}

// What a library without Expat says of these is that it reads no such declarations or encodings.
#ifdef XML_LIBRARY_HAS_EXPAT
class DocumentWithEntities : public testing::TestWithParam<Refused> {};

TEST_P(DocumentWithEntities, is_refused_where_the_first_declaration_begins) {
  const std::string document = GetParam().document;
  const std::size_t column = document.find("<!ENTITY") + 1;
  EXPECT_EQ(outline_of(document.c_str()), "refused: line 1, column " + std::to_string(column) +
                                              ": entity declarations are not accepted");
}

INSTANTIATE_TEST_SUITE_P(Xml, DocumentWithEntities, testing::ValuesIn(documents::entities_declared),
                         name_of);

class ReferenceToAnUndeclaredEntity : public testing::TestWithParam<Refused> {};

TEST_P(ReferenceToAnUndeclaredEntity, is_refused_and_never_left_out) {
  const std::string result = outline_of(GetParam().document);
  EXPECT_NE(result.find("reference to an entity that is not declared"), result.npos) << result;
}

INSTANTIATE_TEST_SUITE_P(Xml, ReferenceToAnUndeclaredEntity,
                         testing::ValuesIn(documents::entities_elsewhere), name_of);

TEST(LatinOneDocument, that_declares_an_entity_is_refused_where_the_keyword_ends) {
  EXPECT_EQ(outline_of("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n"
                       "<!DOCTYPE a [<!ENTITY b \"c\">]><a/>"),
            "refused: line 2, column 22: entity declarations are not accepted");
}

TEST(Document, with_256_attribute_declarations_is_accepted_and_with_257_refused) {
  const auto with = [](int count) {
    std::string document = "<!DOCTYPE a [";
    for (int i = 0; i < count; ++i)
      document += "<!ATTLIST a b" + std::to_string(i) + " CDATA #IMPLIED>";
    return document + "]><a/>";
  };
  EXPECT_EQ(outline_of(with(256).c_str()), "a");
  const std::string result = outline_of(with(257).c_str());
  EXPECT_NE(result.find("too many attribute declarations"), result.npos) << result;
}

TEST(Document, whose_attribute_defaults_exceed_its_size_is_refused) {
  const std::string declaration =
      "<!DOCTYPE a [<!ATTLIST b c CDATA \"" + std::string(10000, 'x') + "\">]>";
  const auto with = [&](int elements) {
    std::string document = declaration + "<a>";
    for (int i = 0; i < elements; ++i) document += "<b/>";
    return document + "</a>";
  };
  XmlDocument* accepted = parseText(nullptr, with(5).c_str());
  ASSERT_NE(accepted, nullptr);
  for (const XmlNode* b = accepted->root->firstChild; b; b = b->nextSibling)
    EXPECT_EQ(std::strlen(b->attributes->nodeValue), 10000U);
  freeXMLDoc(accepted);

  const std::string result = outline_of(with(10000).c_str());
  EXPECT_NE(result.find("attribute defaults exceed the document's size"), result.npos) << result;
}

#endif

}  // namespace
