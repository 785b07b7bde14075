// The words of MOF files, and how their mistakes are reported.
#include "mof/source.h"

#include <gtest/gtest.h>

#include "model/object_path.h"
#include "model/scalar_text.h"
#include "support/mof_text.h"

namespace sandbox::mof {
namespace {

using test::problem_of;
using test::read_mof;

// The text of the only property's initial value in class C.
std::string initial(const std::string& declaration) {
  Repository repository;
  const std::string problem = read_mof(repository, "class C { " + declaration + " };");
  if (!problem.empty()) return problem;
  const Property& property = repository.find("root/cimv2")->classes.find("C")->properties.front();
  if (property.initial.null()) return "null";
  if (!property.initial.is_array()) {
    return to_text(property.initial.scalar(), property.type.type);
  }
  std::string text;
  for (const Scalar& element : property.initial.elements()) {
    text += '[' + (is_null(element) ? "null" : to_text(element, property.type.type)) + ']';
  }
  return text;
}

TEST(Source, integers_are_decimal_hexadecimal_octal_and_binary) {
  EXPECT_EQ(initial("uint32 P[] = {10, 0x1F, 0X1f, 017, 101b, 1B, 0};"),
            "[10][31][31][15][5][1][0]");
  EXPECT_EQ(initial("sint32 P[] = {-10, +10, -0x1F, -017, -101b};"), "[-10][10][-31][-15][-5]");
}

TEST(Source, integers_reach_the_limits_of_their_types) {
  EXPECT_EQ(initial("uint8 P = 255;"), "255");
  EXPECT_EQ(initial("sint8 P[] = {-128, 127};"), "[-128][127]");
  EXPECT_EQ(initial("uint64 P = 18446744073709551615;"), "18446744073709551615");
  EXPECT_EQ(initial("sint64 P = -9223372036854775808;"), "-9223372036854775808");
}

TEST(Source, integers_beyond_their_type_are_refused) {
  EXPECT_EQ(initial("uint8 P = 256;"), "model.mof:1:21: expected uint8");
  EXPECT_EQ(initial("uint8 P = -1;"), "model.mof:1:21: expected uint8");
  EXPECT_EQ(initial("sint8 P = 128;"), "model.mof:1:21: expected sint8");
  EXPECT_EQ(initial("sint64 P = -9223372036854775809;"), "model.mof:1:22: expected sint64");
  EXPECT_EQ(initial("uint64 P = 18446744073709551616;"),
            "model.mof:1:22: expected an integer of at most 64 bits, not 18446744073709551616");
}

TEST(Source, reals_may_be_written_as_integers_but_not_the_other_way_round) {
  EXPECT_EQ(initial("real64 P[] = {1.5, -2.5e-3, .25, 7, -7};"), "[1.5][-0.0025][0.25][7.0][-7.0]");
  EXPECT_EQ(initial("real32 P = 0.1;"), "0.1");
  EXPECT_EQ(initial("uint8 P = 1.0;"), "model.mof:1:21: expected uint8");
  EXPECT_EQ(initial("real64 P = 1.0e999;"),
            "model.mof:1:22: expected a real number within range, not 1.0e999");
  EXPECT_EQ(initial("real32 P = 1.0e300;"), "model.mof:1:22: expected real32");
}

TEST(Source, texts_are_joined_and_their_escapes_resolved) {
  EXPECT_EQ(initial(R"(string P = "one " "two" /* and */ " three";)"), "one two three");
  EXPECT_EQ(initial(R"(string P = "a\tb\nc\rd\"e\'f\\g";)"), "a\tb\nc\rd\"e'f\\g");
  EXPECT_EQ(initial(R"(string P = "\x41\x20AC\X7A.";)"), "A\xe2\x82\xacz.");
  EXPECT_EQ(initial("string P = \"gr\xc3\xbc\xc3\x9f\x65\";"), "gr\xc3\xbc\xc3\x9f\x65");
}

TEST(Source, text_that_xml_could_not_carry_is_refused) {
  EXPECT_EQ(initial(R"(string P = "a\x0001";)"),
            R"(model.mof:1:24: expected a character that XML can carry, not \x0001)");
  EXPECT_EQ(initial(R"(string P = "a\b";)"),
            R"(model.mof:1:24: expected a character that XML can carry, not \b)");
  EXPECT_EQ(initial("string P = \"\xff\";"),
            "model.mof:1:22: expected UTF-8 text without control characters");
  EXPECT_EQ(initial("string P = \"\x01\";"),
            "model.mof:1:22: expected UTF-8 text without control characters");
}

TEST(Source, unknown_escapes_are_named) {
  EXPECT_EQ(initial(R"(string P = "a\q";)"),
            R"(model.mof:1:24: expected one of \b \t \n \f \r \" \' \\ \x, not \q)");
}

TEST(Source, characters_are_one_unit_of_16_bits) {
  EXPECT_EQ(initial("char16 P[] = {'a', '\\'', '\\x20ac', '\xc3\x9f'};"),
            "[a]['][\xe2\x82\xac][\xc3\x9f]");
  EXPECT_EQ(initial("char16 P = 'ab';"),
            "model.mof:1:22: expected one character of 16 bits between the quotes");
  EXPECT_EQ(initial("char16 P = '\xf0\x9f\x98\x80';"),
            "model.mof:1:22: expected one character of 16 bits between the quotes");
}

TEST(Source, texts_and_comments_need_their_end) {
  EXPECT_EQ(problem_of("class C {\n  string P = \"open;\n};"),
            "model.mof:2:14: expected a closing quote before the end of this line");
  EXPECT_EQ(problem_of("class C { string P = \"open"),
            "model.mof:1:22: expected a closing quote before the end of the file");
  EXPECT_EQ(problem_of("class C {};\n/* open\n\n"),
            "model.mof:2:1: expected \"*/\" to end this comment");
}

TEST(Source, comments_count_as_white_space) {
  EXPECT_EQ(problem_of("// one\nclass/**/C/***//* ** / */{//}\n};"), "");
}

TEST(Source, keywords_and_types_may_be_in_any_case) {
  EXPECT_EQ(problem_of("CLASS C { UINT32 P = NULL; Boolean Q = True; [KEY] string K; };\n"
                       "Instance OF C AS $a { K = \"k\"; };"),
            "");
}

TEST(Source, columns_count_characters_not_bytes) {
  EXPECT_EQ(problem_of("/* \xc3\xbc\xc3\xbc */ class 7 {};"),
            "model.mof:1:16: expected a name, not \"7\"");
}

TEST(Source, a_byte_order_mark_is_skipped) {
  EXPECT_EQ(problem_of("\xef\xbb\xbf"
                       "class 7"),
            "model.mof:1:7: expected a name, not \"7\"");
}

TEST(Source, what_is_no_word_is_shown) {
  EXPECT_EQ(problem_of("class C { ? };"), "model.mof:1:11: expected MOF, not \"?\"");
  EXPECT_EQ(problem_of("class C { \x01 };"), "model.mof:1:11: expected MOF, not \"\\x01\"");
  EXPECT_EQ(problem_of(std::string_view("class\0C", 7)),
            "model.mof:1:6: expected MOF, not \"\\x00\"");
}

TEST(Source, syntax_errors_say_what_was_expected) {
  EXPECT_EQ(problem_of("class C { uint32 P }"),
            "model.mof:1:20: expected \"[\", \"(\", \";\" or \"=\", not \"}\"");
  EXPECT_EQ(problem_of("class C : { };"), "model.mof:1:11: expected a name, not \"{\"");
  EXPECT_EQ(problem_of("class C { };\nclass D { }\nclass E { };"),
            "model.mof:3:1: expected \";\", not \"class\"");
  EXPECT_EQ(
      problem_of("class C {"),
      "model.mof:1:10: expected \"}\", \"[\", a name or a data type, not the end of the file");
  EXPECT_EQ(problem_of("class C { uint32 P = \"a\" = };"),
            "model.mof:1:26: expected \";\" or a string, not \"=\"");
  EXPECT_EQ(problem_of("\"stray\""),
            "model.mof:1:1: expected the end of the file, \"class\", \"instance\", \"qualifier\", "
            "\"#pragma\" or \"[\", not a string");
}

TEST(Source, the_message_of_a_long_word_does_not_repeat_it) {
  EXPECT_EQ(problem_of("class C { uint32 " + std::string(5000, 'x') + std::string(" ") +
                       std::string(5000, 'y') + "; };"),
            "model.mof:1:5019: expected \"[\", \"(\", \";\" or \"=\", not a name");
}

TEST(Source, array_sizes_have_limits) {
  EXPECT_EQ(problem_of("class C { uint8 P[0]; };"),
            "model.mof:1:19: expected an array size from 1 to 1048576");
  EXPECT_EQ(problem_of("class C { uint8 P[-1]; };"),
            "model.mof:1:19: expected an array size from 1 to 1048576");
  EXPECT_EQ(problem_of("class C { uint8 P[1048577]; };"),
            "model.mof:1:19: expected an array size from 1 to 1048576");
}

TEST(Source, instances_within_instances_have_a_deepest_level) {
  std::string text = "instance of C { ";
  for (int i = 0; i < 40; ++i) text += "P = instance of C { ";
  EXPECT_EQ(problem_of(text), "model.mof:1:655: expected at most 32 instances within each other");
}

TEST(Source, hostile_texts_end_with_a_problem) {
  EXPECT_NE(problem_of(std::string(1000000, '{')), "");
  EXPECT_NE(problem_of(std::string(1000000, '[')), "");
  EXPECT_NE(problem_of(std::string(1000000, '"')), "");
  EXPECT_NE(problem_of(std::string(1000000, '\'')), "");
  EXPECT_NE(problem_of(std::string(1000000, '\\')), "");
  EXPECT_NE(problem_of("class C { uint8 P = " + std::string(100000, '9') + "; };"), "");
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(3, static_cast<char>(byte));
    Repository repository;
    read_mof(repository, text);
    read_mof(repository, "class D" + text + "{ string " + text + "P" + text + "; };");
  }
}

TEST(Source, every_beginning_of_a_model_is_read_without_harm) {
  const std::string model =
      "#pragma namespace (\"root/a\")\n"
      "Qualifier Key : boolean = false, Scope(property, reference), Flavor(DisableOverride);\n"
      "[Description(\"a\" \"b\")] class C : D { [Key] uint32 Id; string S[3] = {\"x\", null};\n"
      "  C REF R = \"C.Id=1\"; uint32 M([In] string A[], [Out] C REF B[]); };\n"
      "instance of C as $a { Id = 1; R = $a; };\n";
  for (std::size_t length = 0; length <= model.size(); ++length) {
    problem_of(std::string_view(model).substr(0, length));
  }
}

}  // namespace
}  // namespace sandbox::mof
