// Documents that are well-formed, and all the nodes that each makes.
#include <gtest/gtest.h>

#include "platform/outline.h"

namespace {

struct Accepted {
  const char* name;
  const char* document;
  const char* nodes;  // as outline() writes them
};

// clang-format off
constexpr Accepted documents[] = {
  // ---- Prolog and what follows the root element
  {"empty_element_tag",
   "<a/>", "a"},
  {"start_and_end_tag",
   "<a></a>", "a"},
  {"xml_declaration",
   R"(<?xml version="1.0"?><a/>)", "a"},
  {"xml_declaration_with_all_parts",
   R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?><a/>)", "a"},
  {"xml_declaration_in_apostrophes_with_lower_case_encoding",
   "<?xml version='1.0' encoding='utf-8' ?>\n<a/>", "a"},
  {"any_version_number",  // readers of 1.0 may read what calls itself 1.1
   R"(<?xml version="1.1"?><a/>)", "a"},
  {"utf_8_byte_order_mark",
   "\xEF\xBB\xBF<a>\xC3\xA9</a>", "a {\"é\"}"},
  {"us_ascii",
   R"(<?xml version="1.0" encoding="US-ASCII"?><a>x</a>)", R"(a {"x"})"},
  {"latin_1_becomes_utf_8",
   "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a b=\"\xFC\">\xE9</a>", "a @b=\"ü\" {\"é\"}"},
  {"white_space_comments_and_instructions_around_the_root",
   "<?xml version=\"1.0\"?>\n<!-- c -->\n<?i x?>\n<a/>\n<!-- c -->\n<?i x?>\n", "a"},
  {"line_break_at_the_end",
   "<a/>\r\n", "a"},

  // ---- Document type declaration
  {"doctype_with_a_name_only",
   "<!DOCTYPE a><a/>", "a"},
  {"doctype_of_another_name",  // a matter of validity
   "<!DOCTYPE b><a/>", "a"},
  {"external_subset_is_not_opened",
   R"(<!DOCTYPE a SYSTEM "file:///no/such/file.dtd"><a>&lt;</a>)", R"(a {"<"})"},
  {"public_identifier",
   R"(<!DOCTYPE a PUBLIC "-//X//DTD Y//EN" "http://127.0.0.1:1/y.dtd"><a b="&#65;&amp;"/>)",
   R"(a @b="A&")"},
  {"internal_subset_without_entities",
   "<!DOCTYPE a [<!ELEMENT a (b|c)*><!ATTLIST a d CDATA #IMPLIED><!NOTATION n SYSTEM 'n'>"
   "<!-- <!ENTITY no \"n\"> --><?i <!ENTITY?>]><a/>", "a"},
  {"attribute_default_follows_the_written_ones",
   R"(<!DOCTYPE a [<!ATTLIST a b CDATA "d" e CDATA #FIXED "f">]><a c="1" b="2"/>)",
   R"(a @c="1" @b="2" @e="f")"},
  {"attribute_default_beside_an_external_subset",
   R"(<!DOCTYPE a SYSTEM "x" [<!ATTLIST a b CDATA "&lt;&#x41;">]><a/>)", R"(a @b="<A")"},
  {"declared_attribute_type_collapses_white_space",
   R"(<!DOCTYPE a [<!ATTLIST a b NMTOKENS #IMPLIED>]><a b="  x   y "/>)", R"(a @b="x y")"},

  // ---- Names
  {"names_with_every_kind_of_character",
   R"(<_a-1.b:c é="1" 名="2"/>)", R"(_a-1.b:c @é="1" @名="2")"},
  {"case_counts_in_names",
   "<a><A/></a>", "a {A}"},
  {"prefixes_stay_as_written_declared_or_not",
   R"(<p:a xmlns="u" xmlns:q="v"><q:b r:c="1"/></p:a>)",
   R"(p:a @xmlns="u" @xmlns:q="v" {q:b @r:c="1"})"},
  {"dots_as_in_cim_elements",
   R"(<VALUE.ARRAY><VALUE/></VALUE.ARRAY>)", "VALUE.ARRAY {VALUE}"},

  // ---- Tags and attributes
  {"white_space_in_tags",
   "<a \n b = '1'\t><c /></a \n>", R"(a @b="1" {c})"},
  {"attributes_keep_document_order",
   R"(<a z="1" y="2" x="3" m="4"/>)", R"(a @z="1" @y="2" @x="3" @m="4")"},
  {"attribute_without_text",
   R"(<a b="" c=''/>)", R"(a @b="" @c="")"},
  {"the_other_quote_and_greater_in_a_value",
   R"(<a b="'>" c='">'/>)", R"(a @b="'>" @c="">")"},
  {"white_space_in_a_value_becomes_blanks",
   "<a b=\"1\t2\n3\r\n4\"/>", R"(a @b="1 2 3 4")"},
  {"white_space_by_reference_in_a_value_stays",
   R"(<a b="1&#9;2&#10;3&#13;4"/>)", R"(a @b="1\t2\n3\r4")"},
  {"references_in_a_value",
   R"(<a b="&lt;&gt;&amp;&apos;&quot;&#65;&#x42;"/>)", "a @b=\"<>&'\"AB\""},
  {"xml_space_is_an_attribute_like_others",
   R"(<a xml:space="preserve" xml:lang="en"> <b/></a>)",
   R"(a @xml:space="preserve" @xml:lang="en" {b})"},

  // ---- Character data
  {"predefined_entities_make_no_node_of_their_own",
   "<a>1&lt;2&gt;3&amp;4&apos;5&quot;6</a>", "a {\"1<2>3&4'5\"6\"}"},
  {"resolved_text_is_not_read_again",
   "<a>&amp;lt;&#38;lt;</a>", R"(a {"&lt;&lt;"})"},
  {"character_references",
   "<a>&#65;&#x42;&#xe9;&#x4e2d;&#x1F600;</a>", "a {\"ABé中😀\"}"},
  {"leading_zeros_in_references",
   "<a>&#00000000000065;&#x0000000041;</a>", R"(a {"AA"})"},
  {"characters_at_the_ends_of_their_ranges",
   "<a>&#9;&#xA;&#xD;&#x20;&#xD7FF;&#xE000;&#xFFFD;&#x10000;&#x10FFFF;</a>",
   "a {\"\\t\\n\\r \xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF\"}"},
  {"delete_and_c1_controls_are_characters",
   "<a>\x7F\xC2\x80\xC2\x85</a>", "a {\"\x7F\xC2\x80\xC2\x85\"}"},
  {"line_ends_become_line_feeds",
   "<a>1\r\n2\r3\n4\r\r\n5</a>", R"(a {"1\n2\n3\n4\n\n5"})"},
  {"quotes_brackets_and_greater_in_text",
   "<a>\"'>]]]&gt;]></a>", "a {\"\"'>]]]>]>\"}"},

  // ---- White space
  {"white_space_between_elements_is_dropped",
   "<a>\n  <b/>\n\t<c> </c>\r\n</a>", R"(a {b c {" "}})"},
  {"white_space_that_is_all_of_the_content_is_kept",
   "<a> \n\t </a>", R"(a {" \n\t "})"},
  {"white_space_by_reference_alone_is_kept_too",
   "<a>&#32;&#10;</a>", R"(a {" \n"})"},
  {"white_space_beside_a_cdata_section_is_dropped",
   "<a>\n <![CDATA[x]]>\n </a>", "a {![x]}"},
  {"white_space_split_by_a_comment_is_one_text",
   "<a> <!-- c --> </a>", R"(a {"  "})"},
  {"white_space_around_a_comment_between_elements_is_dropped",
   "<a> <b/> <!-- c --> <b/> </a>", "a {b b}"},
  {"white_space_within_text_is_kept",
   "<a> x <b/> y </a>", R"(a {" x " b " y "})"},
  {"other_blanks_are_not_white_space",  // no-break space
   "<a>\xC2\xA0<b/></a>", "a {\"\xC2\xA0\" b}"},

  // ---- CDATA sections
  {"cdata_holds_markup",
   "<a><![CDATA[<b c=\"&amp;\">]] ></b>]]></a>", "a {![<b c=\"&amp;\">]] ></b>]}"},
  {"empty_cdata_section_makes_a_node",
   "<a><![CDATA[]]></a>", "a {![]}"},
  {"adjacent_cdata_sections_stay_apart",
   "<a><![CDATA[x]]><![CDATA[y]]></a>", "a {![x] ![y]}"},
  {"text_beside_cdata_is_a_node_of_its_own",
   "<a>x<![CDATA[y]]>z</a>", R"(a {"x" ![y] "z"})"},
  {"end_of_cdata_within_cdata",
   "<a><![CDATA[]]]]><![CDATA[>]]></a>", "a {![]]] ![>]}"},
  {"white_cdata_is_kept",
   "<a><![CDATA[ ]]><b/></a>", "a {![ ] b}"},
  {"line_ends_in_cdata_become_line_feeds",
   "<a><![CDATA[1\r\n2\r3]]></a>", R"(a {![1\n2\n3]})"},
  {"cdata_in_cdata_looks",
   "<a><![CDATA[<![CDATA[]]></a>", "a {![<![CDATA[]}"},

  // ---- What makes no node
  {"comment_alone_leaves_an_element_empty",
   "<a><!-- c --></a>", "a"},
  {"text_goes_on_after_a_comment",
   "<a>1<!-- c -->2</a>", R"(a {"12"})"},
  {"text_goes_on_after_an_instruction",
   "<a>1<?i x?>2</a>", R"(a {"12"})"},
  {"markup_in_a_comment",
   "<a><!-- <b> & ]]> - <!DOCTYPE --></a>", "a"},
  {"instruction_whose_target_begins_with_xml",
   R"(<?xml-stylesheet href="x"?><a><?xmlish?></a>)", "a"},

  // ---- Content
  {"text_and_elements_mixed",
   "<a>1<b>2</b>3<c/>4</a>", R"(a {"1" b {"2"} "3" c "4"})"},
  {"an_instance_with_a_property",
   R"(<INSTANCE CLASSNAME="Fan"><PROPERTY NAME="On" TYPE="boolean"><VALUE>TRUE</VALUE></PROPERTY></INSTANCE>)",
   R"(INSTANCE @CLASSNAME="Fan" {PROPERTY @NAME="On" @TYPE="boolean" {VALUE {"TRUE"}}})"},
};
// clang-format on

class AcceptedDocument : public testing::TestWithParam<Accepted> {};

TEST_P(AcceptedDocument, makes_these_nodes) {
  EXPECT_EQ(outline_of(GetParam().document), GetParam().nodes);
}

INSTANTIATE_TEST_SUITE_P(Xml, AcceptedDocument, testing::ValuesIn(documents),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(LatinOneDocument, of_any_length_becomes_utf_8) {
  const std::string header = R"(<?xml version="1.0" encoding="ISO-8859-1"?>)";
  const std::string document = header + "<a>" + std::string(200000, '\xE9') + "</a>";
  std::string expected;
  for (int i = 0; i < 200000; ++i) expected += "é";
  EXPECT_EQ(outline_of(document.c_str()), "a {\"" + expected + "\"}");
}

}  // namespace
