// Values as they are typed.
#include "value_syntax.h"

#include <gtest/gtest.h>

#include "exit_status.h"

namespace cli {
namespace {

using Texts = std::vector<std::string>;

TEST(ValueSyntax, an_assignment_is_split_at_the_first_sign) {
  const Assignment assignment = parse_assignment("Name=a=b");
  EXPECT_EQ(assignment.name, "Name");
  EXPECT_EQ(assignment.value, "a=b");
  EXPECT_EQ(parse_assignment("Name=").value, "");
  EXPECT_THROW(parse_assignment("Name"), Failure);
  EXPECT_THROW(parse_assignment("=5"), Failure);
}

TEST(ValueSyntax, a_scalar_stands_for_itself) {
  EXPECT_EQ(scalar_of("two words, and more"), "two words, and more");
  EXPECT_EQ(scalar_of(""), "");
  EXPECT_EQ(scalar_of("[x]"), "[x]");
  EXPECT_EQ(scalar_of("say \"hi\""), "say \"hi\"");
  EXPECT_EQ(scalar_of("\"a\" and \"b\""), "\"a\" and \"b\"") << "not one quoted text";
}

TEST(ValueSyntax, null_is_no_value_and_quotes_make_it_a_text) {
  EXPECT_EQ(scalar_of("null"), std::nullopt);
  EXPECT_EQ(scalar_of("\"null\""), "null");
  EXPECT_EQ(scalar_of("NULL"), "NULL");
}

TEST(ValueSyntax, a_quoted_scalar_loses_its_quotes) {
  EXPECT_EQ(scalar_of(R"("say \"hi\"\n\\")"), "say \"hi\"\n\\");
  EXPECT_EQ(scalar_of("\"\""), "");
  EXPECT_EQ(scalar_of("\""), "\"");
}

TEST(ValueSyntax, brackets_hold_elements) {
  EXPECT_EQ(elements_of("[1, 2,3]"), (Texts{"1", "2", "3"}));
  EXPECT_EQ(elements_of("[]"), Texts{});
  EXPECT_EQ(elements_of("[ ]"), Texts{});
  EXPECT_EQ(elements_of(R"(["a, b", "c]", d])"), (Texts{"\"a, b\"", "\"c]\"", "d"}));
  EXPECT_EQ(elements_of(R"([X{A=1, B=[2,3]}, Y{}])"), (Texts{"X{A=1, B=[2,3]}", "Y{}"}));
  EXPECT_EQ(elements_of(R"(["a\", b", c])"), (Texts{R"("a\", b")", "c"}));
}

TEST(ValueSyntax, without_brackets_there_is_one_element) {
  EXPECT_EQ(elements_of("a, b"), Texts{"a, b"});
  EXPECT_EQ(elements_of(""), Texts{""});
}

TEST(ValueSyntax, brackets_that_do_not_match_are_refused) {
  for (const char* text : {"[1", "[1,]", "[,1]", "[1,,2]", "[\"a]", "[{1]", "[1]]", "[}]"})
    EXPECT_THROW(elements_of(text), Failure) << text;
}

TEST(ValueSyntax, an_embedded_instance_has_a_class_and_members) {
  const EmbeddedText embedded = embedded_of(R"(CIM_Setting{Name="a, b", Speed=3, Steps=[1,2]})");
  EXPECT_EQ(embedded.class_name, "CIM_Setting");
  ASSERT_EQ(embedded.members.size(), 3U);
  EXPECT_EQ(embedded.members[0].value, "\"a, b\"");
  EXPECT_EQ(embedded.members[1].name, "Speed");
  EXPECT_EQ(embedded.members[2].value, "[1,2]");
  EXPECT_TRUE(embedded_of("CIM_Setting{}").members.empty());
}

TEST(ValueSyntax, other_texts_are_no_embedded_instances) {
  for (const char* text : {"", "CIM_Setting", "{A=1}", "X{A=1", "X{A}", "X{A=1}}"})
    EXPECT_THROW(embedded_of(text), Failure) << text;
}

}  // namespace
}  // namespace cli
