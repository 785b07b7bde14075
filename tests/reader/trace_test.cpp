// The trace lines of the reader, seen by a program that replaces their printer.
#include <gtest/gtest.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

#include "reader/reading.h"

namespace {

using Lines = std::vector<std::string>;

Lines& lines() {
  static Lines seen;
  return seen;
}

}  // namespace

extern "C" __attribute__((visibility("default"), format(printf, 1, 2))) int EmptyPrintf(
    const char* format, ...) {
  std::array<char, 1024> line;
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(line.data(), line.size(), format, arguments);
  va_end(arguments);
  lines().emplace_back(line.data());
  return 0;
}

namespace {

class ReaderTrace : public testing::Test {
 protected:
  void SetUp() override {
    reading::start_over();
    lines().clear();
  }
  void TearDown() override { reading::start_over(); }
};

TEST_F(ReaderTrace, a_push_tells_each_of_its_steps) {
  char record = 0;
  StackEntry entry{};
  entry.address = &record;
  std::string("CLASS").copy(entry.name, sizeof entry.name);
  Push(entry);
  EXPECT_EQ(lines(), (Lines{"\nInside push ", "\nname CLASS", "\nCase top = -1", "\nAddress set",
                            "\nname set\n", "\n Added to stack\n"}));
  lines().clear();
  Push(entry);
  EXPECT_EQ(lines(), (Lines{"\nInside push ", "\nname CLASS"}));
}

TEST_F(ReaderTrace, the_stack_prints_a_line_per_entry) {
  std::array<char, 2> records{};
  StackEntry entry{};
  entry.address = &records[0];
  std::string("CIM").copy(entry.name, sizeof entry.name);
  Push(entry);
  entry.address = &records[1];
  std::string("MESSAGE").copy(entry.name, sizeof entry.name);
  Push(entry);
  lines().clear();
  printStack();
  EXPECT_EQ(lines(), (Lines{"\n TESTTTTTTTTTTTTTTT : CIM\n", "\n TESTTTTTTTTTTTTTTT : MESSAGE\n"}));
}

TEST_F(ReaderTrace, a_walk_tells_what_it_visits_builds_and_pushes) {
  parseXML("<CIM A=\"\"><VALUE>x</VALUE><MESSAGE/></CIM>");
  EXPECT_EQ(lines(), (Lines{
                         "\tType::1 ",
                         "\tParent::#document ",
                         "\n return from CreateCIM",
                         "\nInside push ",
                         "\nname CIM",
                         "\nCase top = -1",
                         "\nAddress set",
                         "\nname set\n",
                         "\n Added to stack\n",
                         "\n TESTTTTTTTTTTTTTTT : CIM\n",

                         "\tType::1 ",
                         "\tVAL::x ",
                         "\tParent::CIM ",
                         "\nInside CreateValue",
                         "\n return from CreateValue",
                         "\nInside push ",
                         "\nname VALUE",
                         "\nAddress set",
                         "\nname set\n",
                         "\n Added to stack\n",
                         "\n TESTTTTTTTTTTTTTTT : CIM\n",
                         "\n TESTTTTTTTTTTTTTTT : VALUE\n",

                         "\tType::1 ",
                         "\tParent::CIM ",
                         "\n return from CreateMessage",
                         "\nInside push ",
                         "\nname CIM",
                         "\n TESTTTTTTTTTTTTTTT : CIM\n",

                         "\n TESTTTTTTTTTTTTTTT : \n",
                     }));
}

TEST_F(ReaderTrace, each_builder_is_named_after_it_and_two_are_not) {
  parseXML("<CIM A=\"\"><SIMPLERSP/><SIMPLEEXPREQ/><SIMPLEREQACK/><INSTANCE/><HOST/></CIM>");
  Lines returns;
  for (const std::string& line : lines())
    if (line.find("return from") != std::string::npos) returns.push_back(line);
  EXPECT_EQ(returns,
            (Lines{"\n return from CreateCIM", "\n return from createSimpleRSP ",
                   "\n return from CreateSimpleReqAck", "\n return from CreateSimpleReqAck",
                   "\n return from CreateInstance", "\n return from CreateHost"}));
}

TEST_F(ReaderTrace, an_embedded_instance_that_is_not_well_formed_is_traced) {
  Instance* instance = nullptr;
  ParseCDataContent("<INSTANCE>", &instance);
  ASSERT_EQ(lines().size(), 1U);
  EXPECT_EQ(lines()[0].rfind("\n Invalid XML... line 1, column ", 0), 0U);
}

TEST_F(ReaderTrace, the_tree_is_the_same_while_it_is_traced) {
  const reading::Tree tree = reading::read(reading::answer("<CLASS NAME=\"A\"/><CLASS/>"));
  EXPECT_STREQ(reading::returned(tree).class_->name, "A");
  EXPECT_EQ(reading::length(reading::returned(tree).class_), 2);
}

}  // namespace
