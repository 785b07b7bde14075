// The exported builders: what they leave in the entry, and who owns what they build.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "reader/elements.h"
#include "reader/reading.h"
#include "support/document.h"

namespace {

using elements::Element;

std::vector<Element> every_builder() {
  std::vector<Element> every(std::begin(elements::all), std::end(elements::all));
  every.insert(every.end(), std::begin(elements::builder_only), std::end(elements::builder_only));
  return every;
}

class Create : public testing::TestWithParam<Element> {
 protected:
  void SetUp() override { reading::start_over(); }
  void TearDown() override { reading::start_over(); }

  bool is_root() const { return GetParam().name == std::string("CIM"); }

  support::Document document;
  StackEntry entry{};
};

std::string test_name(const testing::TestParamInfo<Element>& info) {
  std::string name = info.param.name;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return !std::isalnum(c); }, '_');
  return name;
}

TEST_P(Create, with_a_child_the_entry_names_the_record_which_is_the_callers) {
  XmlNode* node = document.element(GetParam().name, {}, {document.text("x")});
  document.element("X", {}, {node});
  char parent = 0;
  EXPECT_EQ(GetParam().build(&entry, node, &parent), &entry);
  EXPECT_TRUE(entry.address);
  EXPECT_NE(entry.address, &parent);
  EXPECT_STREQ(entry.name, GetParam().name);
  GetParam().release(entry.address);
}

TEST_P(Create, without_a_child_the_entry_names_the_parent_and_the_record_is_the_readers) {
  XmlNode* node = document.element(GetParam().name);
  document.element("X", {}, {node});
  char parent = 0;
  EXPECT_EQ(GetParam().build(&entry, node, &parent), &entry);
  if (is_root()) {  // which never is without an entry
    EXPECT_NE(entry.address, &parent);
    EXPECT_STREQ(entry.name, "CIM");
    GetParam().release(entry.address);
  } else {
    EXPECT_EQ(entry.address, &parent);
    EXPECT_STREQ(entry.name, "X");
  }
}

TEST_P(Create, without_child_and_parent_the_entry_is_empty) {
  std::fill(std::begin(entry.name), std::end(entry.name), 'x');
  GetParam().build(&entry, document.element(GetParam().name), nullptr);
  if (is_root()) {
    GetParam().release(entry.address);
  } else {
    EXPECT_FALSE(entry.address);
    EXPECT_STREQ(entry.name, "");
  }
}

TEST_P(Create, without_entry_or_node_nothing_is_built) {
  char parent = 0;
  EXPECT_FALSE(GetParam().build(nullptr, document.element(GetParam().name), &parent));
  entry.address = &parent;
  EXPECT_EQ(GetParam().build(&entry, nullptr, &parent), &entry);
  EXPECT_EQ(entry.address, &parent);
}

INSTANTIATE_TEST_SUITE_P(Of, Create, testing::ValuesIn(every_builder()), test_name);

TEST(CreateEntry, a_name_of_300_characters_is_cut) {
  support::Document document;
  StackEntry entry{};
  const std::string name(300, 'N');
  XmlNode* node = document.element("VALUE");
  document.element(name.c_str(), {}, {node});
  CreateValue(&entry, node, nullptr);
  EXPECT_EQ(std::string(entry.name), std::string(255, 'N'));
  reading::start_over();
}

// As an application would do it that builds records from nodes of its own.
TEST(CreateEntry, builders_and_stack_build_a_tree) {
  reading::start_over();
  support::Document document;
  XmlNode* message = document.element("MESSAGE", {{"ID", "7"}});
  XmlNode* root = document.element("CIM", {{"CIMVERSION", "2.0"}}, {message});
  StackEntry entry{};
  Push(*CreateCIM(&entry, root, nullptr));
  Push(*CreateMessage(&entry, message, Pop("CIM")));
  removeParent("CIM");
  ASSERT_TRUE(returnAddress);
  EXPECT_STREQ(returnAddress->cimVersion, "2.0");
  EXPECT_STREQ(returnAddress->message->id, "7");
  Free_CIM(returnAddress);
  reading::start_over();
}

}  // namespace
