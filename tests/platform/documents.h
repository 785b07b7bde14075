// Documents that are well-formed, documents that are not, and those that are refused all the same,
// each with what the engines make of it.
#pragma once

namespace documents {

// Who reads it when the scanner is the engine.  What it leaves to Expat, a library without Expat
// refuses.
enum class By { Scanner, Expat };

struct Accepted {
  const char* name;
  const char* document;
  const char* nodes;  // as outline() writes them
  By by = By::Scanner;
};

struct Refused {
  const char* name;
  const char* document;
  By by = By::Scanner;
};

// clang-format off
constexpr Accepted accepted[] = {
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
   "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a b=\"\xFC\">\xE9</a>", "a @b=\"ü\" {\"é\"}", By::Expat},
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
   "<!-- <!ENTITY no \"n\"> --><?i <!ENTITY?>]><a/>", "a", By::Expat},
  {"attribute_default_follows_the_written_ones",
   R"(<!DOCTYPE a [<!ATTLIST a b CDATA "d" e CDATA #FIXED "f">]><a c="1" b="2"/>)",
   R"(a @c="1" @b="2" @e="f")", By::Expat},
  {"attribute_default_beside_an_external_subset",
   R"(<!DOCTYPE a SYSTEM "x" [<!ATTLIST a b CDATA "&lt;&#x41;">]><a/>)", R"(a @b="<A")", By::Expat},
  {"declared_attribute_type_collapses_white_space",
   R"(<!DOCTYPE a [<!ATTLIST a b NMTOKENS #IMPLIED>]><a b="  x   y "/>)", R"(a @b="x y")", By::Expat},

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

  // ---- What came before and does not come again: the scanner expects the names and values that
  //      followed the last time
  {"another_name_that_begins_like_the_one_before",
   R"(<r><b c="1"/><b c="1"/><bb c="1"/><b cc="1"/><b c="1"/><a/></r>)",
   R"(r {b @c="1" b @c="1" bb @c="1" b @cc="1" b @c="1" a})"},
  {"another_name_that_the_one_before_begins_with",
   R"(<r><bcdefghij/><bcdefghij/><bcdefghi/><bcd/><bcdefghij/></r>)",
   "r {bcdefghij bcdefghij bcdefghi bcd bcdefghij}"},
  {"a_name_that_goes_on_beyond_ascii",
   "<r><b/><b/><b\xC3\xA9/><b \xC3\xA9='1'/></r>", "r {b b bé b @é=\"1\"}"},
  {"another_value_that_begins_like_the_one_before",
   R"(<r><b c="uint8"/><b c="uint8"/><b c="uint"/><b c="uint16"/><b c="uint8" d="uint8"/></r>)",
   R"(r {b @c="uint8" b @c="uint8" b @c="uint" b @c="uint16" b @c="uint8" @d="uint8"})"},
  {"values_that_differ_in_the_middle",
   R"(<r><b c="MeasuredProperty1ofTheFan"/><b c="MeasuredProperty2ofTheFan"/><b c="MeasuredProperty1ofTheFan"/></r>)",
   R"(r {b @c="MeasuredProperty1ofTheFan" b @c="MeasuredProperty2ofTheFan" b @c="MeasuredProperty1ofTheFan"})"},
  {"the_same_value_in_other_quotes",
   R"(<r><b c="it's"/><b c="it's"/><b c="1"/><b c='1'/><b c='"'/><b c="it's"/></r>)",
   R"(r {b @c="it's" b @c="it's" b @c="1" b @c="1" b @c=""" b @c="it's"})"},

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
  {"conditional_section_in_the_internal_subset", "<!DOCTYPE a [<![INCLUDE[]]>]><a/>", By::Expat},
  {"parameter_reference_within_a_declaration", "<!DOCTYPE a [<!ELEMENT a %x;>]><a/>", By::Expat},
  {"element_declaration_without_content_model", "<!DOCTYPE a [<!ELEMENT a>]><a/>", By::Expat},
  {"attribute_declaration_without_default", "<!DOCTYPE a [<!ATTLIST a b CDATA>]><a/>", By::Expat},
  {"text_in_the_internal_subset", "<!DOCTYPE a [x]><a/>", By::Expat},

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
  {"known_value_with_the_quote_that_ends_it", R"(<a><b c="it's"/><b c='it's'/></a>)"},
  {"known_value_not_finished", R"(<a><b c="1"/><b c="1)"},
  {"known_name_not_finished", "<a><b/><b"},
  {"known_end_tag_not_finished", "<a><b></b></a"},

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
  {"encoding_utf_16_of_eight_bit_text", R"(<?xml version="1.0" encoding="UTF-16"?><a/>)", By::Expat},
  {"encoding_that_nobody_knows", R"(<?xml version="1.0" encoding="x-none"?><a/>)", By::Expat},
  {"encoding_windows_1252", R"(<?xml version="1.0" encoding="windows-1252"?><a/>)", By::Expat},
  {"encoding_utf_7", R"(<?xml version="1.0" encoding="UTF-7"?><a/>)", By::Expat},
  // A NUL ends the text, so of these the first character or two remain.
  {"utf_16_little_endian", "\xFF\xFE<\0a\0/\0>\0"},
  {"utf_16_big_endian", "\xFE\xFF\0<\0a\0/\0>"},
  {"utf_16_without_byte_order_mark", "<\0a\0/\0>\0"},
  {"nul_in_text", "<a>1\0002</a>"},
  {"nul_in_a_value", "<a b=\"1\0002\"/>"},
  {"ebcdic", "\x4C\x81\x61\x6E"},
};

constexpr Refused entities_declared[] = {
  {"internal_entity", R"(<!DOCTYPE a [<!ENTITY b "c">]><a>&b;</a>)", By::Expat},
  {"internal_entity_that_nobody_uses", R"(<!DOCTYPE a [<!ENTITY b "c">]><a/>)", By::Expat},
  {"billion_laughs",
   R"(<!DOCTYPE a [<!ENTITY b "ha"><!ENTITY c "&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;">)"
   R"(<!ENTITY d "&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;"><!ENTITY e "&d;&d;&d;&d;&d;&d;&d;&d;">]><a>&e;</a>)", By::Expat},
  {"entity_of_itself", R"(<!DOCTYPE a [<!ENTITY b "&b;">]><a>&b;</a>)", By::Expat},
  {"entity_used_in_a_value", R"(<!DOCTYPE a [<!ENTITY b "c">]><a d="&b;"/>)", By::Expat},
  {"entity_that_holds_markup", R"(<!DOCTYPE a [<!ENTITY b "<c/>">]><a>&b;</a>)", By::Expat},
  {"external_entity", R"(<!DOCTYPE a [<!ENTITY b SYSTEM "file:///etc/passwd">]><a>&b;</a>)", By::Expat},
  {"external_entity_by_public_identifier",
   R"(<!DOCTYPE a [<!ENTITY b PUBLIC "p" "http://127.0.0.1:1/">]><a>&b;</a>)", By::Expat},
  {"unparsed_entity",
   R"(<!DOCTYPE a [<!NOTATION n SYSTEM "n"><!ENTITY b SYSTEM "c" NDATA n>]><a/>)", By::Expat},
  {"parameter_entity", R"(<!DOCTYPE a [<!ENTITY % b "<!ELEMENT a ANY>">%b;]><a/>)", By::Expat},
  {"external_parameter_entity", R"(<!DOCTYPE a [<!ENTITY % b SYSTEM "file:///x">%b;]><a/>)", By::Expat},
  {"predefined_entity_declared_again", R"(<!DOCTYPE a [<!ENTITY lt "&#38;#60;">]><a/>)", By::Expat},
  {"entity_beside_an_external_subset", R"(<!DOCTYPE a SYSTEM "x" [<!ENTITY b "c">]><a/>)", By::Expat},
  {"entity_of_a_standalone_document",
   R"(<?xml version="1.0" standalone="yes"?><!DOCTYPE a [<!ENTITY b "c">]><a/>)", By::Expat},
};

// Only what an external subset declares could explain these, and it is never read.
constexpr Refused entities_elsewhere[] = {
  {"in_content", R"(<!DOCTYPE a SYSTEM "x"><a>1&b;2</a>)"},
  {"in_a_value", R"(<!DOCTYPE a SYSTEM "x"><a c="1&b;2"/>)"},
  {"in_a_value_of_an_inner_element", R"(<!DOCTYPE a SYSTEM "x"><a><d/><d c="&lt;&b;"/></a>)"},
  {"in_an_attribute_default", R"(<!DOCTYPE a SYSTEM "x" [<!ATTLIST a c CDATA "&b;">]><a/>)", By::Expat},
  {"in_a_second_attribute_default",
   R"(<!DOCTYPE a SYSTEM "x" [<!ATTLIST a c CDATA "1" d CDATA '"&b;'>]><a/>)", By::Expat},
  {"between_declarations", "<!DOCTYPE a [%b;]><a/>", By::Expat},
  {"between_declarations_beside_an_external_subset", R"(<!DOCTYPE a SYSTEM "x" [%b;]><a/>)", By::Expat},
};
// clang-format on

}  // namespace documents
