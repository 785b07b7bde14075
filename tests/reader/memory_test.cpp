// The reader when memory runs out, at each allocation once: the XML library's count, too.
#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "reader/elements.h"
#include "reader/reading.h"
#include "support/allocations.h"
#include "support/captured_output.h"
#include "support/document.h"

namespace {

using support::fail_each_allocation;
using support::living_blocks;

// A document with every kind of field: texts, numbers, lists, single records, replaced ones,
// records without a place, a host, a key, room behind a text.
const char* const everything = R"(<?xml version="1.0" encoding="utf-8" ?>
<CIM CIMVERSION="2.0" DTDVERSION="2.0">
<MESSAGE ID="1">
<SIMPLERSP>
<METHODRESPONSE NAME="replaced"/>
<METHODRESPONSE NAME="m">
<RETURNVALUE PARAMTYPE="uint32">
<VALUE>0</VALUE>
</RETURNVALUE>
</METHODRESPONSE>
<IMETHODRESPONSE NAME="i">
<ERROR CODE="1" DESCRIPTION="d">
<INSTANCE CLASSNAME="A"/>
</ERROR>
<IRETURNVALUE>
<CLASS NAME="C" SUPERCLASS="S">
<QUALIFIER NAME="q" TYPE="string" QUALIFIERFLAVOR="x" PROPAGATED="1">
<VALUE.ARRAY>
<VALUE>1</VALUE>
<VALUE/>
</VALUE.ARRAY>
</QUALIFIER>
<PROPERTY NAME="p" TYPE="string" CLASSORIGIN="C"/>
<PROPERTY.ARRAY NAME="a" ARRAYSIZE="8"/>
<METHOD NAME="m">
<PARAMETER NAME="p"/>
<PARAMETER.REFARRAY NAME="r" REFERENCECLASS="C"/>
</METHOD>
</CLASS>
<OBJECTPATH>
<INSTANCEPATH>
<NAMESPACEPATH>
<HOST>replaced</HOST>
<HOST>h</HOST>
<LOCALNAMESPACEPATH>
<NAMESPACE NAME="root"/>
</LOCALNAMESPACEPATH>
</NAMESPACEPATH>
<INSTANCENAME CLASSNAME="replaced">
<CLASSNAME NAME="C"/>
<KEYBINDING NAME="k">
<KEYVALUE VALUETYPE="string"/>
</KEYBINDING>
</INSTANCENAME>
</INSTANCEPATH>
</OBJECTPATH>
</IRETURNVALUE>
</IMETHODRESPONSE>
</SIMPLERSP>
<SIMPLEREQ>
<IMETHODCALL NAME="i">
<IPARAMVALUE NAME="ClassName"/>
</IMETHODCALL>
</SIMPLEREQ>
</MESSAGE>
<DECLARATION>
<DECLGROUP/>
</DECLARATION>
<HOST>nowhere</HOST>
<TABLE/>
<MESSAGE ID="2"/>
</CIM>
)";

class Memory : public testing::Test {
 protected:
  void SetUp() override {
    std::puts("");  // the stream has its buffer from now on
    reading::start_over();
    output_.emplace(stdout);
  }
  void TearDown() override {
    output_.reset();
    reading::start_over();
  }

 private:
  std::optional<support::CapturedOutput> output_;
};

// How often `text` stands in the document.
std::size_t count_of(std::string_view text) {
  const std::string_view document = everything;
  std::size_t count = 0;
  for (std::size_t at = 0; (at = document.find(text, at)) != std::string_view::npos; ++at) ++count;
  return count;
}

TEST_F(Memory, a_document_that_cannot_be_built_gives_null_and_leaves_nothing) {
  CIM* tree = nullptr;
  const long living = living_blocks();
  const std::size_t allocations = fail_each_allocation([&] { tree = parseXML(everything); },
                                                       [&] {
                                                         EXPECT_FALSE(tree);
                                                         EXPECT_FALSE(returnAddress);
                                                         EXPECT_EQ(top, -1);
                                                         EXPECT_EQ(living_blocks(), living);
                                                       });
  ASSERT_TRUE(tree);
  EXPECT_STREQ(tree->message->id, "2");
  // Every element makes a record, whatever the XML library needs beside them.
  EXPECT_GT(allocations, count_of("<") - count_of("</") - count_of("<?"));
  Free_CIM(tree);
}

TEST_F(Memory, the_tree_of_the_document_before_stays) {
  CIM* before = parseXML(reading::document("<MESSAGE ID=\"before\"/>").c_str());
  CIM* tree = nullptr;
  const long living = living_blocks();
  fail_each_allocation([&] { tree = parseXML(everything); },
                       [&] {
                         EXPECT_FALSE(tree);
                         EXPECT_EQ(returnAddress, before);
                         EXPECT_STREQ(before->message->id, "before");
                         EXPECT_EQ(living_blocks(), living);
                       });
  EXPECT_TRUE(tree);
  EXPECT_NE(tree, before);
  Free_CIM(tree);
  Free_CIM(before);
}

TEST_F(Memory, a_document_leaves_nothing_but_its_tree) {
  const long living = living_blocks();
  CIM* tree = parseXML(reading::answer("<CLASS/>").c_str());
  // CIM, MESSAGE, SIMPLERSP, IMETHODRESPONSE, IRETURNVALUE, CLASS, and five texts.
  EXPECT_EQ(living_blocks(), living + 11);
  Free_CIM(tree);
  EXPECT_EQ(living_blocks(), living);
}

TEST_F(Memory, many_records_without_a_place_leave_nothing) {
  std::string values;
  for (int i = 0; i < 40; ++i) values += "<VALUE/>";
  const std::string text = reading::document(values + "<MESSAGE/>");
  CIM* tree = nullptr;
  const long living = living_blocks();
  fail_each_allocation([&] { tree = parseXML(text.c_str()); },
                       [&] {
                         EXPECT_FALSE(tree);
                         EXPECT_EQ(living_blocks(), living);
                       });
  ASSERT_TRUE(tree);
  Free_CIM(tree);
}

TEST_F(Memory, an_embedded_instance_that_cannot_be_built_leaves_its_value_empty) {
  const std::string text = reading::answer(
      R"(<VALUE><![CDATA[<X><INSTANCE CLASSNAME="A"/><INSTANCE CLASSNAME="B">)"
      R"(<PROPERTY NAME="p" TYPE="t"><VALUE>1</VALUE></PROPERTY><PROPERTY.ARRAY NAME="a">)"
      R"(<VALUE.ARRAY><VALUE>1</VALUE></VALUE.ARRAY></PROPERTY.ARRAY></INSTANCE></X>]]></VALUE>)");
  CIM* tree = nullptr;
  int empty = 0;
  const long living = living_blocks();
  const auto look = [&](const CIM* root) {
    return root->message->simpleRsp->iMethodResponse->iReturnValue->value;
  };
  fail_each_allocation([&] { tree = parseXML(text.c_str()); },
                       [&] {
                         if (tree) {
                           ++empty;
                           EXPECT_FALSE(look(tree)->instance);
                           EXPECT_FALSE(look(tree)->text);
                         }
                         Free_CIM(tree);
                         parseXML("");
                         EXPECT_EQ(living_blocks(), living);
                       });
  EXPECT_GT(empty, 15);
  ASSERT_TRUE(tree);
  EXPECT_STREQ(look(tree)->instance->className->name, "B");
  Free_CIM(tree);
}

TEST_F(Memory, an_instance_that_cannot_be_read_leaves_nothing) {
  const char* text =
      R"(<X><INSTANCE CLASSNAME="A"/><INSTANCE CLASSNAME="B"><PROPERTY NAME="p" TYPE="t">)"
      R"(<VALUE>1</VALUE></PROPERTY><PROPERTY.ARRAY NAME="a" TYPE="t"><VALUE.ARRAY>)"
      R"(<VALUE>1</VALUE></VALUE.ARRAY></PROPERTY.ARRAY></INSTANCE></X>)";
  Instance* instance = nullptr;
  int result = 0;
  const long living = living_blocks();
  fail_each_allocation([&] { result = ParseCDataContent(text, &instance); },
                       [&] {
                         EXPECT_EQ(result, -1);
                         EXPECT_FALSE(instance);
                         EXPECT_EQ(living_blocks(), living);
                       });
  EXPECT_EQ(result, 0);
  Free_Instance(instance);
}

TEST_F(Memory, a_walk_that_ends_early_leaves_the_root_of_before) {
  support::Document nodes;
  const XmlNode* root = nodes.element(
      "CIM", {{"CIMVERSION", "2.0"}},
      {nodes.element("MESSAGE", {{"ID", "1"}},
                     {nodes.element("SIMPLERSP", {}, {nodes.element("SIMPLEREQACK")})})});
  const long living = living_blocks();
  fail_each_allocation([&] { recursiveParseCIM(root); },
                       [&] {
                         EXPECT_FALSE(returnAddress);
                         parseXML("");
                         EXPECT_EQ(living_blocks(), living);
                       });
  ASSERT_TRUE(returnAddress);
  EXPECT_STREQ(returnAddress->message->id, "1");
  Free_CIM(returnAddress);
}

// What a builder made is the caller's when the entry names it, complete or not.
TEST_F(Memory, a_builder_names_what_it_could_build) {
  for (const elements::Element& element : elements::all) {
    SCOPED_TRACE(element.name);
    support::Document nodes;
    const XmlNode* node = nodes.element(
        element.name,
        {{"NAME", "n"}, {"CLASSNAME", "c"}, {"QUALIFIERFLAVOR", "f"}, {"VALUETYPE", "v"}},
        {nodes.text("x")});
    StackEntry entry{};
    const long living = living_blocks();
    fail_each_allocation([&] { element.build(&entry, node, nullptr); },
                         [&] {
                           EXPECT_STREQ(entry.name, element.name);
                           if (entry.address) element.release(entry.address);
                           parseXML("");
                           EXPECT_EQ(living_blocks(), living);
                         });
    ASSERT_TRUE(entry.address);
    element.release(entry.address);
    reading::start_over();
  }
}

TEST_F(Memory, a_builder_without_memory_leaves_the_entry_to_the_parent) {
  support::Document nodes;
  XmlNode* node = nodes.element("PROPERTY", {{"NAME", "n"}});
  nodes.element("CLASS", {}, {node});
  Class owner{};
  StackEntry entry{};
  fail_each_allocation([&] { CreateProperty(&entry, node, &owner); },
                       [&] {
                         EXPECT_EQ(entry.address, &owner);
                         EXPECT_STREQ(entry.name, "CLASS");
                         Free_Property(owner.properties);
                         owner.properties = nullptr;
                       });
  EXPECT_STREQ(owner.properties->name, "n");
  Free_Property(owner.properties);
}

}  // namespace
