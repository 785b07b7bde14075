// Documents as trees, and documents that are refused.
#include "cimxml/element.h"

#include <gtest/gtest.h>

namespace sandbox::cimxml {
namespace {

std::string shown(const Element& element) {
  std::string text = element.name;
  for (const auto& [name, value] : element.attributes) text += ' ' + name + '=' + value;
  text += '{' + element.text;
  for (const Element& child : element.children) text += shown(child);
  return text + '}';
}

std::string shown(std::string_view document) {
  const auto parsed = parse_document(document);
  const auto* element = std::get_if<Element>(&parsed);
  return element ? shown(*element) : "malformed";
}

TEST(Elements, a_document_becomes_a_tree) {
  EXPECT_EQ(shown("<A x=\"1\" y = 'two'>text<B/><C>more</C></A>"), "A x=1 y=two{textB{}C{more}}");
}

TEST(Elements, white_space_before_the_declaration_does_not_matter) {
  EXPECT_EQ(shown("\r\n <?xml version=\"1.0\" encoding=\"utf-8\"?><A/>\r\n"), "A{}");
}

TEST(Elements, references_and_cdata_are_text) {
  EXPECT_EQ(shown("<A b=\"&lt;&#65;&quot;\">&amp;&#x20AC;<![CDATA[<raw> & ]]>x</A>"),
            "A b=<A\"{&€<raw> & x}");
}

TEST(Elements, other_encodings_become_utf_8) {
  EXPECT_EQ(shown("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><A>\xfc</A>"), "A{\xc3\xbc}");
}

TEST(Elements, a_document_type_is_accepted_but_entities_are_not) {
  EXPECT_EQ(shown("<!DOCTYPE CIM SYSTEM \"cim.dtd\"><CIM/>"), "CIM{}");
  EXPECT_EQ(shown("<!DOCTYPE CIM [<!ENTITY a \"x\">]><CIM>&a;</CIM>"), "malformed");
  EXPECT_EQ(shown("<!DOCTYPE C [<!ENTITY a SYSTEM \"file:///etc/passwd\">]><C>&a;</C>"),
            "malformed");
  EXPECT_EQ(shown("<!DOCTYPE C [<!ENTITY % a \"x\">]><C/>"), "malformed");
  EXPECT_EQ(shown("<CIM>&unknown;</CIM>"), "malformed");
}

TEST(Elements, what_is_not_well_formed_is_refused) {
  for (const char* document :
       {"", " ", "text", "<A>", "<A></B>", "<A/><B/>", "<A b=1/>", "<A b/>", "<A b='1' b='2'/>",
        "<A PROPAGATED 'TRUE'/>", "<A>&</A>", "<A>a < b</A>", "<A>\x01</A>", "<A>\xff</A>",
        "<?xml version=\"1.0\"?>", "<A><![CDATA[</A>"}) {
    EXPECT_EQ(shown(document), "malformed") << document;
  }
}

TEST(Elements, a_refusal_says_where) {
  const auto parsed = parse_document("<A>\n</B>");
  EXPECT_EQ(std::get<Malformed>(parsed).text.substr(0, 7), "line 2:");
}

TEST(Elements, depth_and_number_are_limited) {
  const auto nested = [](int depth) {
    std::string document;
    for (int i = 0; i < depth; ++i) document += "<A>";
    for (int i = 0; i < depth; ++i) document += "</A>";
    return document;
  };
  EXPECT_NE(shown(nested(64)), "malformed");
  EXPECT_EQ(shown(nested(65)), "malformed");
  EXPECT_EQ(shown(nested(100000)), "malformed");
  std::string many = "<A>";
  for (int i = 0; i < (1 << 18); ++i) many += "<B/>";
  EXPECT_EQ(shown(many + "</A>"), "malformed");
}

TEST(Elements, values_of_any_length_are_kept_whole) {
  const std::string value(20'000'000, 'v');
  const auto parsed = parse_document("<A>" + value + "</A>");
  ASSERT_TRUE(std::holds_alternative<Element>(parsed));
  EXPECT_TRUE(std::get<Element>(parsed).text == value);
}

}  // namespace
}  // namespace sandbox::cimxml
