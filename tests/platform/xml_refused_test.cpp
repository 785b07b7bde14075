// Documents that are not well-formed, and well-formed ones that are refused all the same.
#include <gtest/gtest.h>

#include <cstring>
#include <regex>

#include "platform/outline.h"

namespace {

struct Refused {
  const char* name;
  const char* document;
};

// clang-format off
constexpr Refused malformed[] = {
  // ---- Not a document
  {"empty_text", ""},
  {"white_space_alone", " \n"},
  {"plain_text", "hello"},
  {"comment_alone", "<!-- c -->"},
  {"declaration_alone", R"(<?xml version="1.0"?>)"},
  {"doctype_alone", "<!DOCTYPE a>"},

  // ---- Prolog
  {"white_space_before_the_declaration", " <?xml version=\"1.0\"?><a/>"},
  {"comment_before_the_declaration", R"(<!-- c --><?xml version="1.0"?><a/>)"},
  {"second_declaration", R"(<?xml version="1.0"?><?xml version="1.0"?><a/>)"},
  {"declaration_inside", R"(<a><?xml version="1.0"?></a>)"},
  {"declaration_without_version", "<?xml?><a/>"},
  {"declaration_with_encoding_before_version",
   R"(<?xml encoding="UTF-8" version="1.0"?><a/>)"},
  {"declaration_in_upper_case", R"(<?XML version="1.0"?><a/>)"},
  {"declaration_without_quotes", "<?xml version=1.0?><a/>"},
  {"standalone_neither_yes_nor_no", R"(<?xml version="1.0" standalone="maybe"?><a/>)"},
  {"text_before_the_root", "x<a/>"},
  {"http_head_before_the_root", "HTTP/1.1 200 OK\r\n\r\n<a/>"},

  // ---- After the root
  {"two_roots", "<a/><b/>"},
  {"text_after_the_root", "<a/>x"},
  {"reference_after_the_root", "<a/>&#32;"},
  {"cdata_after_the_root", "<a/><![CDATA[]]>"},
  {"doctype_after_the_root", "<a/><!DOCTYPE a>"},
  {"chunk_end_of_http_after_the_root", "<a/>\r\n0\r\n"},

  // ---- Document type declaration
  {"doctype_without_name", "<!DOCTYPE><a/>"},
  {"two_doctypes", "<!DOCTYPE a><!DOCTYPE a><a/>"},
  {"doctype_in_lower_case", "<!doctype a><a/>"},
  {"doctype_without_end", "<!DOCTYPE a <a/>"},
  {"public_identifier_without_system_identifier", R"(<!DOCTYPE a PUBLIC "x"><a/>)"},
  {"conditional_section_in_the_internal_subset", "<!DOCTYPE a [<![INCLUDE[]]>]><a/>"},
  {"parameter_reference_within_a_declaration", "<!DOCTYPE a [<!ELEMENT a %x;>]><a/>"},
  {"element_declaration_without_content_model", "<!DOCTYPE a [<!ELEMENT a>]><a/>"},
  {"attribute_declaration_without_default", "<!DOCTYPE a [<!ATTLIST a b CDATA>]><a/>"},
  {"text_in_the_internal_subset", "<!DOCTYPE a [x]><a/>"},

  // ---- Elements
  {"root_not_closed", "<a>"},
  {"inner_element_not_closed", "<a><b></a>"},
  {"end_tag_of_another_name", "<a></b>"},
  {"end_tag_in_another_case", "<a></A>"},
  {"end_tag_longer_than_its_start_tag", "<a></ab>"},
  {"elements_that_overlap", "<a><b></a></b>"},
  {"end_tag_without_start_tag", "</a>"},
  {"tag_without_name", "<></>"},
  {"blank_before_the_name", "< a/>"},
  {"blank_within_the_end_of_an_empty_tag", "<a/ >"},
  {"tag_not_finished", "<a"},
  {"end_tag_not_finished", "<a></a"},
  {"tag_within_a_tag", "<a<b/>>"},
  {"attribute_in_an_end_tag", R"(<a></a b="1">)"},
  {"name_that_begins_with_a_digit", "<1a/>"},
  {"name_that_begins_with_a_hyphen", "<-a/>"},
  {"name_with_a_multiplication_sign", "<a\xC3\x97/>"},
  {"name_beyond_the_basic_plane", "<\xF0\x90\x80\x80/>"},  // not a name before edition five
  {"declaration_of_nothing", "<a><!></a>"},

  // ---- Attributes
  {"duplicate_attribute", R"(<a b="1" b="1"/>)"},
  {"duplicate_attribute_far_apart", R"(<a b="1" c="2" d="3" e="4" b="5"/>)"},
  {"attribute_without_quotes", "<a b=1/>"},
  {"attribute_without_value", "<a b/>"},
  {"attribute_without_equals_sign", R"(<a b"1"/>)"},
  {"attributes_without_blank_between", R"(<a b="1"c="2"/>)"},
  {"attribute_with_unequal_quotes", R"(<a b="1'/>)"},
  {"less_sign_in_a_value", R"(<a b="<"/>)"},
  {"bare_ampersand_in_a_value", R"(<a b="1&2"/>)"},
  {"value_not_finished", R"(<a b="1)"},

  // ---- Character data and references
  {"bare_ampersand", "<a>1 & 2</a>"},
  {"ampersand_before_a_tag", "<a>&</a>"},
  {"reference_without_semicolon", "<a>&amp</a>"},
  {"reference_with_a_blank", "<a>& amp;</a>"},
  {"undeclared_entity", "<a>&nbsp;</a>"},
  {"undeclared_entity_in_a_value", R"(<a b="&nbsp;"/>)"},
  {"undeclared_entity_of_a_standalone_document",
   R"(<?xml version="1.0" standalone="yes"?><!DOCTYPE a SYSTEM "x"><a>&b;</a>)"},
  {"predefined_entity_in_another_case", "<a>&LT;</a>"},
  {"reference_without_number", "<a>&#;</a>"},
  {"hexadecimal_reference_without_number", "<a>&#x;</a>"},
  {"hexadecimal_reference_with_a_capital_x", "<a>&#X41;</a>"},
  {"decimal_reference_with_letters", "<a>&#4A;</a>"},
  {"reference_to_nul", "<a>&#0;</a>"},
  {"reference_to_a_control_character", "<a>&#1;</a>"},
  {"reference_to_a_surrogate", "<a>&#xD800;</a>"},
  {"reference_to_ffff", "<a>&#xFFFF;</a>"},
  {"reference_beyond_unicode", "<a>&#x110000;</a>"},
  {"reference_that_would_overflow", "<a>&#4294967361;</a>"},  // 65 + 2^32
  {"end_of_cdata_in_text", "<a>]]></a>"},
  {"control_character_in_text", "<a>\x01</a>"},
  {"escape_character_in_text", "<a>\x1B[0m</a>"},
  {"control_character_in_a_value", "<a b=\"\x1F\"/>"},

  // ---- Comments, instructions, CDATA sections
  {"comment_not_closed", "<a><!-- c </a>"},
  {"double_hyphen_in_a_comment", "<a><!-- a -- b --></a>"},
  {"comment_that_ends_with_three_hyphens", "<a><!-- c ---></a>"},
  {"instruction_not_closed", "<a><?i x></a>"},
  {"instruction_without_target", "<a><?" "?></a>"},
  {"instruction_called_xml", "<a/><?xml x?>"},
  {"cdata_not_closed", "<a><![CDATA[x]]</a>"},
  {"cdata_in_lower_case", "<a><![cdata[x]]></a>"},
  {"control_character_in_cdata", "<a><![CDATA[\x02]]></a>"},

  // ---- Encodings
  {"overlong_form_of_nul", "<a>\xC0\x80</a>"},
  {"overlong_form_of_a_slash", "<a>\xC0\xAF</a>"},
  {"overlong_form_of_three_bytes", "<a>\xE0\x80\xAF</a>"},
  {"encoded_surrogate", "<a>\xED\xA0\x80</a>"},
  {"fffe_in_text", "<a>\xEF\xBF\xBE</a>"},
  {"character_beyond_unicode", "<a>\xF4\x90\x80\x80</a>"},
  {"continuation_byte_alone", "<a>\x80</a>"},
  {"character_cut_off_by_a_tag", "<a>\xC3</a>"},
  {"character_cut_off_by_the_end", "<a>\xE4\xB8"},
  {"byte_fe", "<a>\xFE</a>"},
  {"latin_1_that_does_not_say_so", "<a>\xE9</a>"},
  {"bad_utf_8_in_a_name", "<a\xE9/>"},
  {"bad_utf_8_in_a_value", "<a b=\"\xE9\"/>"},
  {"bad_utf_8_in_a_comment", "<!--\xE9--><a/>"},
  {"encoding_utf_16_of_eight_bit_text", R"(<?xml version="1.0" encoding="UTF-16"?><a/>)"},
  {"encoding_that_nobody_knows", R"(<?xml version="1.0" encoding="x-none"?><a/>)"},
  {"encoding_windows_1252", R"(<?xml version="1.0" encoding="windows-1252"?><a/>)"},
  {"encoding_utf_7", R"(<?xml version="1.0" encoding="UTF-7"?><a/>)"},
  // A NUL ends the text, so of these the first character or two remain.
  {"utf_16_little_endian", "\xFF\xFE<\0a\0/\0>\0"},
  {"utf_16_big_endian", "\xFE\xFF\0<\0a\0/\0>"},
  {"utf_16_without_byte_order_mark", "<\0a\0/\0>\0"},
  {"nul_in_text", "<a>1\0002</a>"},
  {"nul_in_a_value", "<a b=\"1\0002\"/>"},
  {"ebcdic", "\x4C\x81\x61\x6E"},
};

constexpr Refused entities_declared[] = {
  {"internal_entity", R"(<!DOCTYPE a [<!ENTITY b "c">]><a>&b;</a>)"},
  {"internal_entity_that_nobody_uses", R"(<!DOCTYPE a [<!ENTITY b "c">]><a/>)"},
  {"billion_laughs",
   R"(<!DOCTYPE a [<!ENTITY b "ha"><!ENTITY c "&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;">)"
   R"(<!ENTITY d "&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;"><!ENTITY e "&d;&d;&d;&d;&d;&d;&d;&d;">]><a>&e;</a>)"},
  {"entity_of_itself", R"(<!DOCTYPE a [<!ENTITY b "&b;">]><a>&b;</a>)"},
  {"entity_used_in_a_value", R"(<!DOCTYPE a [<!ENTITY b "c">]><a d="&b;"/>)"},
  {"entity_that_holds_markup", R"(<!DOCTYPE a [<!ENTITY b "<c/>">]><a>&b;</a>)"},
  {"external_entity", R"(<!DOCTYPE a [<!ENTITY b SYSTEM "file:///etc/passwd">]><a>&b;</a>)"},
  {"external_entity_by_public_identifier",
   R"(<!DOCTYPE a [<!ENTITY b PUBLIC "p" "http://127.0.0.1:1/">]><a>&b;</a>)"},
  {"unparsed_entity",
   R"(<!DOCTYPE a [<!NOTATION n SYSTEM "n"><!ENTITY b SYSTEM "c" NDATA n>]><a/>)"},
  {"parameter_entity", R"(<!DOCTYPE a [<!ENTITY % b "<!ELEMENT a ANY>">%b;]><a/>)"},
  {"external_parameter_entity", R"(<!DOCTYPE a [<!ENTITY % b SYSTEM "file:///x">%b;]><a/>)"},
  {"predefined_entity_declared_again", R"(<!DOCTYPE a [<!ENTITY lt "&#38;#60;">]><a/>)"},
  {"entity_beside_an_external_subset", R"(<!DOCTYPE a SYSTEM "x" [<!ENTITY b "c">]><a/>)"},
  {"entity_of_a_standalone_document",
   R"(<?xml version="1.0" standalone="yes"?><!DOCTYPE a [<!ENTITY b "c">]><a/>)"},
};

// Only what an external subset declares could explain these, and it is never read.
constexpr Refused entities_elsewhere[] = {
  {"in_content", R"(<!DOCTYPE a SYSTEM "x"><a>1&b;2</a>)"},
  {"in_a_value", R"(<!DOCTYPE a SYSTEM "x"><a c="1&b;2"/>)"},
  {"in_a_value_of_an_inner_element", R"(<!DOCTYPE a SYSTEM "x"><a><d/><d c="&lt;&b;"/></a>)"},
  {"in_an_attribute_default", R"(<!DOCTYPE a SYSTEM "x" [<!ATTLIST a c CDATA "&b;">]><a/>)"},
  {"in_a_second_attribute_default",
   R"(<!DOCTYPE a SYSTEM "x" [<!ATTLIST a c CDATA "1" d CDATA '"&b;'>]><a/>)"},
  {"between_declarations", "<!DOCTYPE a [%b;]><a/>"},
  {"between_declarations_beside_an_external_subset", R"(<!DOCTYPE a SYSTEM "x" [%b;]><a/>)"},
};
// clang-format on

const auto name_of = [](const auto& test) { return std::string(test.param.name); };

class MalformedDocument : public testing::TestWithParam<Refused> {};

TEST_P(MalformedDocument, is_refused_with_line_and_column) {
  const std::string result = outline_of(GetParam().document);
  EXPECT_TRUE(
      std::regex_match(result, std::regex("refused: line [1-9][0-9]*, column [1-9][0-9]*: [^\n]+")))
      << result;
}

INSTANTIATE_TEST_SUITE_P(Xml, MalformedDocument, testing::ValuesIn(malformed), name_of);

class DocumentWithEntities : public testing::TestWithParam<Refused> {};

TEST_P(DocumentWithEntities, is_refused_where_the_first_declaration_begins) {
  const std::string document = GetParam().document;
  const std::size_t column = document.find("<!ENTITY") + 1;
  EXPECT_EQ(outline_of(document.c_str()), "refused: line 1, column " + std::to_string(column) +
                                              ": entity declarations are not accepted");
}

INSTANTIATE_TEST_SUITE_P(Xml, DocumentWithEntities, testing::ValuesIn(entities_declared), name_of);

class ReferenceToAnUndeclaredEntity : public testing::TestWithParam<Refused> {};

TEST_P(ReferenceToAnUndeclaredEntity, is_refused_and_never_left_out) {
  const std::string result = outline_of(GetParam().document);
  EXPECT_NE(result.find("reference to an entity that is not declared"), result.npos) << result;
}

INSTANTIATE_TEST_SUITE_P(Xml, ReferenceToAnUndeclaredEntity, testing::ValuesIn(entities_elsewhere),
                         name_of);

TEST(LatinOneDocument, that_declares_an_entity_is_refused_where_the_keyword_ends) {
  EXPECT_EQ(outline_of("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n"
                       "<!DOCTYPE a [<!ENTITY b \"c\">]><a/>"),
            "refused: line 2, column 22: entity declarations are not accepted");
}

TEST(Document, cut_off_anywhere_is_refused) {
  const std::string whole =
      "<?xml version=\"1.0\"?><!DOCTYPE a [<!ATTLIST b c CDATA 'd'>]>"
      "<a e='1'>x&lt;&#65;<b/><!-- c --><?i x?><![CDATA[y]]>é</a>";
  ASSERT_EQ(outline_of(whole.c_str()), "a @e=\"1\" {\"x<A\" b @c=\"d\" ![y] \"é\"}");
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_EQ(outline_of(whole.substr(0, length).c_str()).rfind("refused: ", 0), 0U) << length;
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
    EXPECT_EQ(b->attributes->nodeValueLength, 10000U);
  freeXMLDoc(accepted);

  const std::string result = outline_of(with(10000).c_str());
  EXPECT_NE(result.find("attribute defaults exceed the document's size"), result.npos) << result;
}

}  // namespace
