// The trace lines of the writer, seen by a program that replaces their printer.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cim_client.h"
#include "support/written.h"

namespace {

std::vector<std::string>& lines() {
  static std::vector<std::string> seen;
  return seen;
}

}  // namespace

extern "C" int EmptyPrintf(const char* format, ...) {
  lines().emplace_back(format);
  return 0;
}

namespace {

using support::text;
using support::written;
using Lines = std::vector<std::string>;

template <class R>
Lines traced(int (*generate)(R*, char**), R* record) {
  lines().clear();
  written(generate, record);
  return lines();
}

TEST(WriterTrace, qualifier_says_when_it_begins_and_ends) {
  Qualifier qualifier{};
  EXPECT_EQ(traced(Gen_Qualifier, &qualifier),
            (Lines{"\n\n Inside Gen_Qualifier \n\n", "\n\n leaving  Gen_Qualifier \n\n"}));
}

TEST(WriterTrace, property_says_when_it_begins) {
  Property property{};
  EXPECT_EQ(traced(Gen_Property, &property), Lines{"\n\n Inside Gen_Property \n\n"});
}

TEST(WriterTrace, class_says_when_it_begins_and_ends) {
  Class definition{};
  EXPECT_EQ(traced(Gen_Class, &definition),
            (Lines{"\n\n has entered Gen_class\n\n", "\n\n leaving genclass\n\n"}));
}

TEST(WriterTrace, a_list_is_one_call) {
  Property second{};
  Property first{.next = &second};
  EXPECT_EQ(traced(Gen_Property, &first), Lines{"\n\n Inside Gen_Property \n\n"});
}

TEST(WriterTrace, children_stand_between_the_lines_of_their_parent) {
  Qualifier qualifier{};
  Property second{.name = text("b")};
  Property first{.qualifiers = &qualifier, .name = text("a"), .next = &second};
  Class definition{.properties = &first};
  EXPECT_EQ(traced(Gen_Class, &definition),
            (Lines{"\n\n has entered Gen_class\n\n", "\n\n Inside Gen_Property \n\n",
                   "\n\n Inside Gen_Qualifier \n\n", "\n\n leaving  Gen_Qualifier \n\n",
                   "\n\n leaving genclass\n\n"}));
}

TEST(WriterTrace, nothing_to_write_is_not_traced) {
  EXPECT_EQ(traced<Qualifier>(Gen_Qualifier, nullptr), Lines{});
  Instance instance{};
  EXPECT_EQ(traced(Gen_Instance, &instance), Lines{});
}

}  // namespace
