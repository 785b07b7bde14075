// Long values, deep documents and wide ones.  A step that cost more with every node would keep
// these tests from ending.
#include <gtest/gtest.h>

#include <string>

#include "reader/reading.h"
#include "support/scale.h"

namespace {

using reading::answer;
using reading::document;
using reading::length;
using reading::read;
using reading::returned;
using reading::Tree;
using support::scaled;

class LargeDocuments : public testing::Test {
 protected:
  void SetUp() override { reading::start_over(); }
  void TearDown() override { reading::start_over(); }
};

// Bytes that show where they come from.
std::string long_text(std::size_t size) {
  std::string text;
  while (text.size() < size) text += std::to_string(text.size()) + ' ';
  text.resize(size);
  return text;
}

std::string repeated(int times, const std::string& text) {
  std::string all;
  all.reserve(static_cast<std::size_t>(times) * text.size());
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST_F(LargeDocuments, a_megabyte_comes_out_of_a_value_as_it_went_in) {
  const std::string text = long_text(1 << 20);
  const Tree tree = read(answer("<VALUE>" + text + "</VALUE>"));
  EXPECT_TRUE(returned(tree).value->text == text);
}

TEST_F(LargeDocuments, texts_around_the_sizes_of_parsers_buffers_come_out_whole) {
  for (const std::size_t size :
       {4095U, 4096U, 4097U, 5119U, 5120U, 12287U, 12288U, 65535U, 65536U, 65537U, 131072U}) {
    const std::string text = long_text(size);
    const Tree tree = read(answer("<VALUE>" + text + "</VALUE><INSTANCENAME><KEYVALUE>" + text +
                                  "</KEYVALUE></INSTANCENAME>"));
    EXPECT_TRUE(returned(tree).value->text == text) << size;
    EXPECT_TRUE(returned(tree).instanceName->keyValue->text == text) << size;
  }
}

TEST_F(LargeDocuments, long_attributes_and_hosts_come_out_as_they_went_in) {
  const std::string text = long_text(100 * 1024);
  const Tree tree =
      read(answer("<INSTANCE CLASSNAME=\"" + text + "\"><PROPERTY NAME=\"" + text +
                  "\"/></INSTANCE><OBJECTPATH><CLASSPATH><NAMESPACEPATH><HOST>" + text +
                  "</HOST><LOCALNAMESPACEPATH><NAMESPACE NAME=\"" + text +
                  "\"/></LOCALNAMESPACEPATH></NAMESPACEPATH></CLASSPATH></OBJECTPATH>"));
  EXPECT_TRUE(returned(tree).instance->className->name == text);
  EXPECT_TRUE(returned(tree).instance->properties->name == text);
  const NamespacePath* path = returned(tree).objectPath->classPath->namespacePath;
  EXPECT_TRUE(path->host == text);
  EXPECT_TRUE(path->localNamespacePath->namespaces->name == text);
}

TEST_F(LargeDocuments, an_empty_key_takes_a_long_attribute_whole) {
  const std::string text = long_text(100 * 1024);
  const Tree tree =
      read(answer("<INSTANCENAME><KEYVALUE VALUETYPE=\"" + text + "\"/></INSTANCENAME>"));
  EXPECT_TRUE(returned(tree).instanceName->keyValue->text == text);
}

TEST_F(LargeDocuments, an_embedded_instance_comes_out_whole) {
  const std::string text = long_text(1 << 20);
  const Tree tree = read(answer("<VALUE><![CDATA[<INSTANCE><PROPERTY NAME=\"a\"><VALUE>" + text +
                                "</VALUE></PROPERTY></INSTANCE>]]></VALUE>"));
  EXPECT_TRUE(returned(tree).value->instance->properties->value->text == text);
}

TEST_F(LargeDocuments, a_hundred_thousand_siblings_keep_their_order) {
  const int count = scaled(100'000);
  std::string names;
  for (int i = 0; i < count; ++i) names += "<CLASSNAME NAME=\"" + std::to_string(i) + "\"/>\n";
  const Tree tree = read(answer(names));
  int i = 0;
  for (const ClassName* name = returned(tree).className; name; name = name->next, ++i)
    ASSERT_EQ(name->name, std::to_string(i));
  EXPECT_EQ(i, count);
}

TEST_F(LargeDocuments, a_million_siblings_of_alternating_kinds) {
  const int count = scaled(250'000);
  const Tree tree = read(answer("<INSTANCE>" +
                                repeated(count,
                                         "<PROPERTY/>\n<QUALIFIER/>\n<PROPERTY.ARRAY/>\n"
                                         "<PROPERTY.REFERENCE/>\n") +
                                "</INSTANCE>"));
  const Instance* instance = returned(tree).instance;
  EXPECT_EQ(length(instance->properties), count);
  EXPECT_EQ(length(instance->qualifiers), count);
  EXPECT_EQ(length(instance->propertyArrays), count);
  EXPECT_EQ(length(instance->propertyReferences), count);
}

TEST_F(LargeDocuments, a_million_siblings_with_children) {
  const int count = scaled(500'000);
  const Tree tree = read(answer(repeated(count, "<INSTANCE><PROPERTY/></INSTANCE>\n")));
  EXPECT_EQ(length(returned(tree).instance), count);
}

TEST_F(LargeDocuments, a_million_siblings_that_replace_each_other) {
  const Tree tree =
      read(document(repeated(scaled(1'000'000), "<MESSAGE/>\n") + "<MESSAGE ID=\"7\"/>"));
  EXPECT_STREQ(tree->message->id, "7");
}

TEST_F(LargeDocuments, a_million_siblings_that_are_not_linked) {
  const Tree tree =
      read(document(repeated(scaled(1'000'000), "<VALUE/>\n") + "<MESSAGE ID=\"7\"/>"));
  EXPECT_STREQ(tree->message->id, "7");
}

// A reference to a name with a reference as key, and so on: `count` elements in all.
std::string nested_references(int count) {
  constexpr const char* kinds[] = {"INSTANCENAME", "KEYBINDING", "VALUE.REFERENCE"};
  std::string opened;
  std::string closed;
  for (int i = 0; i < count; ++i) opened += std::string("<") + kinds[i % 3] + ">\n";
  for (int i = count - 1; i >= 0; --i) closed += std::string("</") + kinds[i % 3] + ">\n";
  return opened + closed;
}

// The number of linked records of nested_references().
int depth(const InstanceName* name) {
  int count = 0;
  while (name) {
    ++count;
    const KeyBinding* key = name->keyBindings;
    if (!key) break;
    ++count;
    const ValueReference* reference = key->valueReference;
    if (!reference) break;
    ++count;
    name = reference->instanceName;
  }
  return count;
}

TEST_F(LargeDocuments, nested_elements_are_linked_as_deep_as_the_stack_goes) {
  // Four elements of the envelope below CIM, then names: entry 4095 holds the last record that
  // others are linked to.
  constexpr int envelope = 5;
  Tree tree = read(answer(nested_references(4096 - envelope)));
  EXPECT_EQ(depth(returned(tree).instanceName), 4096 - envelope);
  tree.reset();
  tree = read(answer(nested_references(5000)));
  EXPECT_EQ(depth(returned(tree).instanceName), 4097 - envelope);
}

TEST_F(LargeDocuments, the_element_after_a_deep_one_is_linked_where_its_parent_still_is_known) {
  const Tree tree =
      read(answer("<CLASSNAME NAME=\"a\"/>" + nested_references(3000) + "<CLASSNAME NAME=\"b\"/>"));
  EXPECT_STREQ(returned(tree).className->next->name, "b");
}

TEST_F(LargeDocuments, the_element_after_one_deeper_than_the_stack_is_not_linked) {
  // The dropped entry's name is looked for and not found, which empties the stack: the tree does
  // not come to its end.
  const Tree tree =
      read(answer("<CLASSNAME NAME=\"a\"/>" + nested_references(5000) + "<CLASSNAME NAME=\"b\"/>"));
  EXPECT_STREQ(returned(tree).className->name, "a");
  EXPECT_FALSE(returned(tree).className->next);
}

TEST_F(LargeDocuments, a_million_levels_of_known_elements) {
  const Tree tree = read(answer(nested_references(scaled(1'000'000))));
  EXPECT_EQ(depth(returned(tree).instanceName), 4092);
}

// Each CLASS keeps its name on the way down.  On the way up each QUALIFIER takes the nearest one's;
// when the 4095 of the stack are used up, the root goes, too.
TEST_F(LargeDocuments, a_million_levels_with_siblings_that_keep_the_names) {
  EXPECT_FALSE(parseXML(document(repeated(scaled(1'000'000), "<CLASS>") +
                                 repeated(scaled(1'000'000), "</CLASS><QUALIFIER/>"))
                            .c_str()));
}

}  // namespace
