// VALUE, KEYVALUE and HOST: texts of documents, their room, and what stands for an absent one.
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <string>

#include "reader/reading.h"
#include "support/document.h"

namespace {

using reading::answer;
using reading::read;
using reading::returned;
using reading::Tree;

class Values : public testing::Test {
 protected:
  void SetUp() override { reading::start_over(); }
  void TearDown() override { reading::start_over(); }
};

// Whether `count` bytes from `text` on are zero.
bool zero(const char* text, std::size_t count) {
  return std::count(text, text + count, '\0') == static_cast<long>(count);
}

TEST_F(Values, a_text_has_128_bytes_more_than_characters) {
  const Tree tree = read(answer("<VALUE>abc</VALUE>"));
  const Value* value = returned(tree).value;
  EXPECT_STREQ(value->text, "abc");
  EXPECT_GE(malloc_usable_size(value->text), 3U + 128U);
  EXPECT_TRUE(zero(value->text + 3, 128));
  EXPECT_FALSE(value->instance);
  EXPECT_EQ(value->isCData, 0);
}

TEST_F(Values, a_value_without_content_has_the_empty_text) {
  for (const char* element : {"<VALUE/>", "<VALUE></VALUE>", R"(<VALUE TYPE="string"/>)"}) {
    const Tree tree = read(answer(element));
    ASSERT_TRUE(returned(tree).value->text);
    EXPECT_STREQ(returned(tree).value->text, "");
  }
}

TEST_F(Values, white_space_is_a_text_when_it_is_all_there_is) {
  const Tree tree = read(answer("<VALUE> \n\t</VALUE><VALUE> a b </VALUE>"));
  EXPECT_STREQ(returned(tree).value->text, " \n\t");
  EXPECT_STREQ(returned(tree).value->next->text, " a b ");
}

TEST_F(Values, references_are_resolved) {
  const Tree tree = read(answer("<VALUE>a&lt;b&amp;c&gt;&quot;&apos;&#65;&#x20AC;</VALUE>"));
  EXPECT_STREQ(returned(tree).value->text, "a<b&c>\"'A\xE2\x82\xAC");
}

TEST_F(Values, an_element_as_content_gives_an_empty_text_with_room) {
  const Tree tree = read(answer("<VALUE><MESSAGE/></VALUE>"));
  ASSERT_TRUE(returned(tree).value->text);
  EXPECT_TRUE(zero(returned(tree).value->text, 128));
}

TEST_F(Values, only_the_first_node_of_the_content_counts) {
  const Tree tree = read(answer("<VALUE>a<MESSAGE/>b</VALUE>"));
  EXPECT_STREQ(returned(tree).value->text, "a");
}

TEST_F(Values, of_a_text_before_a_cdata_section_the_text_counts) {
  const Tree tree = read(answer("<VALUE>a<![CDATA[<INSTANCE/>]]></VALUE>"));
  EXPECT_STREQ(returned(tree).value->text, "a");
  EXPECT_FALSE(returned(tree).value->instance);
}

TEST_F(Values, an_array_keeps_the_order_of_its_values) {
  const Tree tree =
      read(answer("<VALUE.ARRAY><VALUE>1</VALUE><VALUE/><VALUE>3</VALUE></VALUE.ARRAY>"));
  const Value* value = returned(tree).valueArray->values;
  EXPECT_STREQ(value->text, "1");
  EXPECT_STREQ(value->next->text, "");
  EXPECT_STREQ(value->next->next->text, "3");
  EXPECT_FALSE(value->next->next->next);
}

TEST_F(Values, a_property_with_two_values_keeps_both) {
  const Tree tree =
      read(answer("<INSTANCE><PROPERTY><VALUE>1</VALUE><VALUE>2</VALUE></PROPERTY></INSTANCE>"));
  const Value* value = returned(tree).instance->properties->value;
  EXPECT_STREQ(value->text, "1");
  EXPECT_STREQ(value->next->text, "2");
}

// The key of an instance name with this content.
std::string key(const std::string& element) {
  const Tree tree = read(answer("<INSTANCENAME>" + element + "</INSTANCENAME>"));
  return returned(tree).instanceName->keyValue->text;
}

TEST_F(Values, a_key_has_its_content_as_text) {
  EXPECT_EQ(key(R"(<KEYVALUE VALUETYPE="numeric">17</KEYVALUE>)"), "17");
  EXPECT_EQ(key("<KEYVALUE>a&lt;b</KEYVALUE>"), "a<b");
  EXPECT_EQ(key("<KEYVALUE> </KEYVALUE>"), " ");
  EXPECT_EQ(key("<KEYVALUE><![CDATA[<c>]]></KEYVALUE>"), "<c>");
}

TEST_F(Values, an_empty_key_has_the_value_of_its_last_attribute_as_text) {
  EXPECT_EQ(key(R"(<KEYVALUE VALUETYPE="string"/>)"), "string");
  EXPECT_EQ(key(R"(<KEYVALUE VALUETYPE="string"></KEYVALUE>)"), "string");
  EXPECT_EQ(key(R"(<KEYVALUE VALUETYPE="string" TYPE="uint8"/>)"), "uint8");
  EXPECT_EQ(key(R"(<KEYVALUE TYPE="uint8" VALUETYPE="numeric" LANG="de"/>)"), "de");
  EXPECT_EQ(key(R"(<KEYVALUE VALUETYPE=""/>)"), "");
  EXPECT_EQ(key("<KEYVALUE/>"), "");
}

TEST_F(Values, a_key_with_an_element_as_content_has_the_value_of_its_last_attribute) {
  EXPECT_EQ(key(R"(<KEYVALUE VALUETYPE="string"><VALUE>x</VALUE></KEYVALUE>)"), "string");
}

TEST_F(Values, a_key_keeps_its_types) {
  const Tree tree = read(answer(
      R"(<INSTANCENAME><KEYVALUE VALUETYPE="numeric" TYPE="uint8">1</KEYVALUE></INSTANCENAME>)"));
  EXPECT_STREQ(returned(tree).instanceName->keyValue->valueType, "numeric");
  EXPECT_STREQ(returned(tree).instanceName->keyValue->cimType, "uint8");
}

// Object managers write the type of a key as CIMTYPE; the reader takes TYPE.
TEST_F(Values, a_key_does_not_know_the_attribute_that_it_is_written_with) {
  const Tree tree =
      read(answer(R"(<INSTANCENAME><KEYVALUE CIMTYPE="uint8">1</KEYVALUE></INSTANCENAME>)"));
  EXPECT_FALSE(returned(tree).instanceName->keyValue->cimType);
}

// The host of a namespace path with this content.
std::string path(const std::string& content) {
  return answer("<OBJECTPATH><CLASSPATH><NAMESPACEPATH>" + content +
                "</NAMESPACEPATH></CLASSPATH></OBJECTPATH>");
}
const char* host(const Tree& tree) {
  return returned(tree).objectPath->classPath->namespacePath->host;
}

TEST_F(Values, a_host_has_the_room_of_a_value) {
  const Tree tree = read(path("<HOST>[fe80::1]:5988</HOST>"));
  EXPECT_STREQ(host(tree), "[fe80::1]:5988");
  EXPECT_GE(malloc_usable_size(const_cast<char*>(host(tree))), 14U + 128U);
  EXPECT_TRUE(zero(host(tree) + 14, 128));
}

TEST_F(Values, a_host_without_content_is_empty) {
  const Tree tree = read(path("<HOST/>"));
  ASSERT_TRUE(host(tree));
  EXPECT_TRUE(zero(host(tree), 128));
}

TEST_F(Values, without_a_host_element_there_is_none) {
  const Tree tree = read(path("<LOCALNAMESPACEPATH/>"));
  EXPECT_FALSE(host(tree));
}

TEST_F(Values, of_two_hosts_the_last_counts) {
  const Tree tree = read(path("<HOST>first</HOST><HOST>second</HOST>"));
  EXPECT_STREQ(host(tree), "second");
}

// Nodes as another parser may hand them over.
TEST_F(Values, a_text_node_without_text_gives_an_empty_text_with_room) {
  support::Document document;
  StackEntry entry{};
  CreateValue(&entry, document.element("VALUE", {}, {document.text(nullptr)}), nullptr);
  auto* value = static_cast<Value*>(entry.address);
  EXPECT_TRUE(zero(value->text, 128));
  Free_Value(value);
}

}  // namespace
