// The walk over a document: what it leaves on the element stack, and what it makes of elements
// that stand where they should not.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "reader/elements.h"
#include "reader/reading.h"
#include "support/captured_output.h"
#include "support/document.h"

namespace {

using reading::answer;
using reading::document;
using reading::read;
using reading::returned;
using reading::Tree;

// What the walk announces an element with that it does not know.
const std::string unknown = "\n\n hey what iss thisssssssssssssssssssssssssssssss\n\n";

class Walk : public testing::Test {
 protected:
  void SetUp() override { reading::start_over(); }
  void TearDown() override { reading::start_over(); }
};

TEST_F(Walk, open_elements_are_on_the_stack_without_names_after_their_last_children) {
  const Tree tree = read(document("<MESSAGE><SIMPLERSP><IMETHODRESPONSE/></SIMPLERSP></MESSAGE>"));
  EXPECT_EQ(top, 2);
  EXPECT_EQ(map[0].address, tree.get());
  EXPECT_EQ(map[1].address, tree->message);
  EXPECT_EQ(map[2].address, tree->message->simpleRsp);
  EXPECT_EQ(std::string(map[0].name, 4), std::string("\0IM", 4));
  EXPECT_EQ(std::string(map[1].name, 8), std::string("\0ESSAGE", 8));
  EXPECT_EQ(std::string(map[2].name, 10), std::string("\0IMPLERSP", 10));
}

TEST_F(Walk, an_element_keeps_its_name_until_its_last_child) {
  const Tree tree = read(answer("<CLASS><METHOD>x</METHOD>y</CLASS>"));
  // The text after METHOD is a sibling: CLASS never sees its last child element.
  EXPECT_STREQ(map[top].name, "METHOD");
  EXPECT_STREQ(map[top - 1].name, "CLASS");
  EXPECT_EQ(map[top].address, returned(tree).class_->methods);
}

TEST_F(Walk, an_element_with_a_text_alone_is_on_the_stack) {
  const Tree tree = read(answer("<VALUE>x</VALUE>"));
  EXPECT_STREQ(map[top].name, "VALUE");
  EXPECT_EQ(map[top].address, returned(tree).value);
}

TEST_F(Walk, an_element_without_children_is_not_on_the_stack) {
  const Tree tree = read(answer("<VALUE/>"));
  EXPECT_STREQ(map[top].name, "");
  EXPECT_EQ(map[top].address, &returned(tree));
}

TEST_F(Walk, a_host_is_on_the_stack_with_its_text) {
  const Tree tree = read(answer(
      "<OBJECTPATH><INSTANCEPATH><NAMESPACEPATH><HOST>h</HOST></NAMESPACEPATH></INSTANCEPATH>"
      "</OBJECTPATH>"));
  EXPECT_STREQ(map[top].name, "HOST");
  EXPECT_STREQ(static_cast<const char*>(map[top].address), "h");
  EXPECT_EQ(map[top].address, returned(tree).objectPath->instancePath->namespacePath->host);
}

TEST_F(Walk, the_element_after_a_deep_one_finds_their_common_parent) {
  const Tree tree = read(
      answer(R"(<INSTANCE CLASSNAME="A"><PROPERTY NAME="p"><VALUE>1</VALUE></PROPERTY></INSTANCE>)"
             R"(<INSTANCE CLASSNAME="B"/>)"));
  const Instance* first = returned(tree).instance;
  EXPECT_STREQ(first->className->name, "A");
  EXPECT_STREQ(first->next->className->name, "B");
  EXPECT_FALSE(first->next->next);
}

// The name that goes with the last child is the nearest of that name: the child's own.
TEST_F(Walk, the_last_child_of_its_own_kind_loses_its_name_instead_of_its_parent) {
  const Tree tree = read(document("<CLASS><CLASS>x</CLASS></CLASS>"));
  EXPECT_EQ(top, 2);
  EXPECT_STREQ(map[2].name, "");
  EXPECT_STREQ(map[1].name, "CLASS");
}

TEST_F(Walk, a_parent_gets_the_children_of_no_later_element_of_its_name) {
  const Tree tree = read(document(R"(<CLASS NAME="outer"><CLASS/></CLASS>)"
                                  R"(<CLASS NAME="next"><METHOD NAME="m"/></CLASS>)"));
  EXPECT_STREQ(static_cast<const Class*>(map[1].address)->name, "next");
  EXPECT_STREQ(static_cast<const Class*>(map[1].address)->methods->name, "m");
}

TEST_F(Walk, unknown_elements_are_announced_and_passed_over) {
  support::CapturedOutput output(stdout);
  const Tree tree = read(document("<X/><MESSAGE ID=\"7\"/>"));
  EXPECT_EQ(output.text(), unknown);
  EXPECT_STREQ(tree->message->id, "7");
}

TEST_F(Walk, a_document_of_known_elements_prints_nothing) {
  support::CapturedOutput output(stdout);
  std::string content;
  for (const elements::Element& element : elements::all)
    content += std::string("<") + element.name + ">x</" + element.name + ">";
  const Tree tree = read(document(content));
  EXPECT_EQ(output.text(), "");
}

TEST_F(Walk, names_count_exactly) {
  support::CapturedOutput output(stdout);
  const Tree tree = read(document("<message/><MESSAGES/><MESSAG/><x:MESSAGE/>"));
  EXPECT_EQ(output.text(), unknown + unknown + unknown + unknown);
}

TEST_F(Walk, elements_that_only_have_a_builder_are_unknown) {
  support::CapturedOutput output(stdout);
  read(
      document("<VALUE.NULL/><SCOPE/><TABLECELL.DECLARATION/><TABLECELL.REFERENCE/>"
               "<TABLECELLDECL/><TABLECELLREFERENCE/><QUALIFIERFLAVOR/>"));
  EXPECT_EQ(output.text(), unknown + unknown + unknown + unknown + unknown + unknown + unknown);
}

TEST_F(Walk, the_children_of_an_unknown_element_empty_the_stack) {
  support::CapturedOutput output(stdout);
  const Tree tree = read(document("<X><MESSAGE/></X>"));
  EXPECT_FALSE(tree->message);
  EXPECT_EQ(top, 0);
  EXPECT_FALSE(map[0].address);
  EXPECT_EQ(std::string(map[0].name, 2), std::string(2, '\0'));
}

// "X" stays on the stack without a record; what is below it is not linked.
TEST_F(Walk, an_element_below_an_unknown_one_leaves_its_parents_name) {
  support::CapturedOutput output(stdout);
  read(document("<X><MESSAGE/><MESSAGE>m</MESSAGE>y</X>"));
  EXPECT_EQ(top, 1);
  EXPECT_FALSE(map[0].address);
  EXPECT_STREQ(map[0].name, "X");
  EXPECT_TRUE(map[1].address);
  EXPECT_STREQ(map[1].name, "MESSAGE");
}

TEST_F(Walk, after_an_unknown_element_with_children_nothing_is_linked_to_the_root_any_more) {
  support::CapturedOutput output(stdout);
  // Looking for "X" empties the stack before the last child of CIM could set the root.
  EXPECT_FALSE(parseXML(document("<X><Y/></X><MESSAGE/>").c_str()));
}

TEST_F(Walk, element_names_beyond_255_bytes_match_nothing) {
  support::CapturedOutput output(stdout);
  const std::string name(300, 'N');
  const Tree tree = read(
      document("<" + name + "/><MESSAGE ID=\"7\"><" + name + "><VALUE/></" + name + "></MESSAGE>"));
  EXPECT_EQ(output.text(), unknown + unknown);
  EXPECT_STREQ(tree->message->id, "7");
  EXPECT_FALSE(map[0].address);
}

TEST_F(Walk, the_root_is_set_by_the_last_child_of_cim) {
  EXPECT_FALSE(parseXML(R"(<CIM CIMVERSION="2.0"></CIM>)"));
  EXPECT_FALSE(parseXML(R"(<CIM CIMVERSION="2.0">text</CIM>)"));
  EXPECT_FALSE(parseXML(R"(<CIM CIMVERSION="2.0"><MESSAGE/>text</CIM>)"));
  EXPECT_TRUE(read(R"(<CIM CIMVERSION="2.0"><MESSAGE/></CIM>)"));
  EXPECT_TRUE(read(R"(<CIM CIMVERSION="2.0">text<MESSAGE/></CIM>)"));
}

TEST_F(Walk, an_element_named_as_the_root_in_any_case_takes_no_name) {
  support::CapturedOutput output(stdout);
  EXPECT_FALSE(parseXML(R"(<CIM CIMVERSION="2.0"><cim/></CIM>)"));
  EXPECT_STREQ(map[0].name, "CIM");
}

TEST_F(Walk, cim_is_on_the_stack_without_children) {
  parseXML(R"(<CIM CIMVERSION="2.0"/>)");
  EXPECT_EQ(top, 0);
  EXPECT_STREQ(map[0].name, "CIM");
  EXPECT_STREQ(static_cast<const CIM*>(map[0].address)->cimVersion, "2.0");
}

TEST_F(Walk, the_inner_of_two_roots_is_the_tree) {
  const Tree tree = read(document(R"(<CIM CIMVERSION="inner"><MESSAGE ID="7"/></CIM>)"));
  EXPECT_STREQ(tree->cimVersion, "inner");
  EXPECT_STREQ(tree->message->id, "7");
}

TEST_F(Walk, a_walk_can_begin_at_any_node_and_ends_with_the_document) {
  support::Document nodes;
  XmlNode* second = nodes.element("PROPERTY", {{"NAME", "second"}});
  nodes.element("CLASS", {}, {nodes.element("PROPERTY", {{"NAME", "first"}}), second});
  Class owner{};
  StackEntry entry{};
  entry.address = &owner;
  std::string("CLASS").copy(entry.name, sizeof entry.name);
  Push(entry);
  EXPECT_FALSE(recursiveParseCIM(second));
  ASSERT_TRUE(owner.properties);
  EXPECT_STREQ(owner.properties->name, "second");
  EXPECT_FALSE(owner.properties->next);
  Free_Property(owner.properties);
}

TEST_F(Walk, a_second_walk_appends_wherever_the_lists_end_by_then) {
  support::Document nodes;
  XmlNode* property = nodes.element("PROPERTY", {{"NAME", "p"}});
  nodes.element("CLASS", {}, {property, nodes.element("PROPERTY", {{"NAME", "q"}})});
  Class owner{};
  StackEntry entry{};
  entry.address = &owner;
  std::string("CLASS").copy(entry.name, sizeof entry.name);
  Push(entry);
  recursiveParseCIM(property);
  Free_Property(owner.properties->next);  // the end that the first walk knew is gone
  owner.properties->next = nullptr;
  map[0] = entry;  // with the name that its last child took
  top = 0;
  recursiveParseCIM(property);
  EXPECT_EQ(reading::length(owner.properties), 3);
  Free_Property(owner.properties);
}

TEST_F(Walk, a_walk_from_no_node_builds_nothing) {
  EXPECT_FALSE(recursiveParseCIM(nullptr));
  EXPECT_EQ(top, -1);
}

TEST_F(Walk, the_tree_of_a_walk_belongs_to_the_caller) {
  support::Document nodes;
  recursiveParseCIM(nodes.element("CIM", {}, {nodes.element("MESSAGE", {{"ID", "7"}})}));
  ASSERT_TRUE(returnAddress);
  EXPECT_STREQ(returnAddress->message->id, "7");
  Free_CIM(returnAddress);
  EXPECT_FALSE(returnAddress);
}

TEST_F(Walk, a_root_without_a_parent_node_has_no_parent_name) {
  support::Document nodes;
  recursiveParseCIM(nodes.element("CLASS"));
  EXPECT_EQ(top, 0);
  EXPECT_FALSE(map[0].address);
  EXPECT_STREQ(map[0].name, "");
}

TEST_F(Walk, a_root_that_was_asked_for_belongs_to_the_caller) {
  EXPECT_FALSE(parseXML(R"(<CIM CIMVERSION="2.0"/>)"));
  removeParent("CIM");
  ASSERT_TRUE(returnAddress);
  EXPECT_STREQ(returnAddress->cimVersion, "2.0");
  Free_CIM(returnAddress);
}

}  // namespace
