// The element stack, as applications can use it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "cim_client.h"
#include "reader/reading.h"

namespace {

StackEntry entry(void* record, const std::string& name) {
  StackEntry made{};
  made.address = record;
  name.copy(made.name, sizeof made.name);
  return made;
}

class ElementStack : public testing::Test {
 protected:
  void SetUp() override { reading::start_over(); }

  void TearDown() override {
    returnAddress = nullptr;  // the tests' records are none
    reading::start_over();
  }

  // Some records to put on the stack.
  char a = 0;
  char b = 0;
  char c = 0;
};

TEST_F(ElementStack, a_push_on_the_empty_stack_takes_entry_0) {
  EXPECT_EQ(top, -1);
  EXPECT_EQ(Push(entry(&a, "CLASS")), 0);
  EXPECT_EQ(top, 0);
  EXPECT_EQ(map[0].address, &a);
  EXPECT_STREQ(map[0].name, "CLASS");
}

TEST_F(ElementStack, a_push_takes_the_entry_above_the_top) {
  Push(entry(&a, "CLASS"));
  Push(entry(&b, "METHOD"));
  EXPECT_EQ(top, 1);
  EXPECT_EQ(map[0].address, &a);
  EXPECT_EQ(map[1].address, &b);
  EXPECT_STREQ(map[1].name, "METHOD");
}

TEST_F(ElementStack, a_record_on_the_stack_is_not_pushed_again_whatever_its_name) {
  Push(entry(&a, "CLASS"));
  Push(entry(&b, "METHOD"));
  EXPECT_EQ(Push(entry(&a, "INSTANCE")), 0);
  EXPECT_EQ(top, 1);
  EXPECT_STREQ(map[0].name, "CLASS");
  EXPECT_STREQ(map[1].name, "METHOD");
}

TEST_F(ElementStack, no_record_is_pushed_once_like_any_other) {
  Push(entry(nullptr, "FIRST"));
  Push(entry(nullptr, "SECOND"));
  EXPECT_EQ(top, 0);
  EXPECT_STREQ(map[0].name, "FIRST");
  EXPECT_FALSE(Pop("FIRST"));
  EXPECT_EQ(top, 0);
}

TEST_F(ElementStack, a_name_without_end_is_cut) {
  Push(entry(&a, std::string(256, 'x')));
  EXPECT_EQ(std::string(map[0].name), std::string(255, 'x'));
}

TEST_F(ElementStack, a_push_beyond_entry_4095_is_dropped) {
  std::vector<char> records(4097);
  for (std::size_t i = 0; i < 4096; ++i) Push(entry(&records[i], "CLASS"));
  EXPECT_EQ(top, 4095);
  EXPECT_EQ(map[4095].address, &records[4095]);
  EXPECT_EQ(Push(entry(&records[4096], "METHOD")), 0);
  EXPECT_EQ(top, 4095);
  EXPECT_EQ(map[4095].address, &records[4095]);
  EXPECT_EQ(Pop("CLASS"), &records[4095]);
}

TEST_F(ElementStack, pop_leaves_the_entry_it_finds) {
  Push(entry(&a, "CLASS"));
  EXPECT_EQ(Pop("CLASS"), &a);
  EXPECT_EQ(Pop("CLASS"), &a);
  EXPECT_EQ(top, 0);
}

TEST_F(ElementStack, pop_finds_the_nearest_entry) {
  Push(entry(&a, "CLASS"));
  Push(entry(&b, "CLASS"));
  EXPECT_EQ(Pop("CLASS"), &b);
  EXPECT_EQ(top, 1);
}

TEST_F(ElementStack, pop_discards_what_is_above_and_leaves_the_ends_of_the_names) {
  Push(entry(&a, "CLASS"));
  Push(entry(&b, "METHOD"));
  Push(entry(&c, "PARAMETER"));
  EXPECT_EQ(Pop("CLASS"), &a);
  EXPECT_EQ(top, 0);
  for (const StackEntry& discarded : {map[1], map[2]}) {
    EXPECT_FALSE(discarded.address);
    EXPECT_EQ(std::string(discarded.name, 4), std::string(4, '\0'));
  }
  EXPECT_STREQ(map[1].name + 4, "OD");
  EXPECT_STREQ(map[2].name + 4, "METER");
}

TEST_F(ElementStack, pop_of_a_name_that_is_not_there_empties_the_stack) {
  Push(entry(&a, "CLASS"));
  Push(entry(&b, "METHOD"));
  EXPECT_FALSE(Pop("class"));
  EXPECT_EQ(top, -1);
  EXPECT_FALSE(map[0].address);
  EXPECT_STREQ(map[0].name, "");
  EXPECT_FALSE(Pop("CLASS"));
}

TEST_F(ElementStack, pop_of_no_name_changes_nothing) {
  Push(entry(&a, "CLASS"));
  EXPECT_FALSE(Pop(nullptr));
  EXPECT_EQ(top, 0);
}

TEST_F(ElementStack, pop_of_the_empty_name_finds_an_entry_that_lost_its_name) {
  Push(entry(&a, "CLASS"));
  Push(entry(&b, "METHOD"));
  removeParent("CLASS");
  EXPECT_EQ(Pop(""), &a);
  EXPECT_EQ(top, 0);
}

TEST_F(ElementStack, a_name_of_300_characters_is_not_the_one_it_begins_with) {
  Push(entry(&a, std::string(255, 'x')));
  EXPECT_EQ(Pop(std::string(255, 'x').c_str()), &a);
  EXPECT_FALSE(Pop(std::string(300, 'x').c_str()));
}

TEST_F(ElementStack, remove_parent_takes_the_nearest_name_and_leaves_the_entry) {
  Push(entry(&a, "CLASS"));
  Push(entry(&b, "CLASS"));
  Push(entry(&c, "METHOD"));
  EXPECT_EQ(removeParent("CLASS"), 0);
  EXPECT_EQ(top, 2);
  EXPECT_EQ(map[1].address, &b);
  EXPECT_EQ(std::string(map[1].name, 5), std::string("\0LASS", 5));
  EXPECT_STREQ(map[0].name, "CLASS");
  EXPECT_STREQ(map[2].name, "METHOD");
  EXPECT_FALSE(returnAddress);
}

TEST_F(ElementStack, remove_parent_stops_before_it_passes_the_root) {
  Push(entry(&a, "CIM"));
  Push(entry(&b, "MESSAGE"));
  removeParent("MESSAGE");
  EXPECT_FALSE(returnAddress);
}

TEST_F(ElementStack, remove_parent_of_the_root_sets_the_return_address) {
  Push(entry(&a, "CIM"));
  Push(entry(&b, "MESSAGE"));
  removeParent("CIM");
  EXPECT_EQ(static_cast<void*>(returnAddress), &a);
  EXPECT_STREQ(map[0].name, "");
}

TEST_F(ElementStack, remove_parent_of_a_name_that_is_not_there_passes_the_root) {
  Push(entry(&a, "CIM"));
  Push(entry(&b, "MESSAGE"));
  removeParent("SIMPLERSP");
  EXPECT_EQ(static_cast<void*>(returnAddress), &a);
  EXPECT_STREQ(map[0].name, "CIM");
  EXPECT_STREQ(map[1].name, "MESSAGE");
}

TEST_F(ElementStack, of_two_roots_the_one_passed_last_is_the_return_address) {
  Push(entry(&a, "CIM"));
  Push(entry(&b, "CIM"));
  removeParent("MESSAGE");
  EXPECT_EQ(static_cast<void*>(returnAddress), &a);
  removeParent("CIM");
  EXPECT_EQ(static_cast<void*>(returnAddress), &b);
}

TEST_F(ElementStack, the_root_is_known_by_its_exact_name) {
  Push(entry(&a, "cim"));
  Push(entry(&b, "CIMX"));
  removeParent("SIMPLERSP");
  EXPECT_FALSE(returnAddress);
}

TEST_F(ElementStack, remove_parent_on_the_empty_stack_or_of_no_name_changes_nothing) {
  EXPECT_EQ(removeParent("CIM"), 0);
  Push(entry(&a, "CIM"));
  EXPECT_EQ(removeParent(nullptr), 0);
  EXPECT_STREQ(map[0].name, "CIM");
  EXPECT_FALSE(returnAddress);
}

TEST_F(ElementStack, print_stack_changes_nothing) {
  Push(entry(&a, "CIM"));
  EXPECT_EQ(printStack(), 0);
  EXPECT_EQ(top, 0);
  EXPECT_EQ(map[0].address, &a);
  EXPECT_STREQ(map[0].name, "CIM");
}

TEST_F(ElementStack, a_document_begins_with_every_entry_zero) {
  std::vector<char> records(4096);
  for (char& record : records) Push(entry(&record, std::string(255, 'x')));
  Pop("x");
  EXPECT_FALSE(parseXML("no document"));
  EXPECT_EQ(top, -1);
  const auto* bytes = reinterpret_cast<const char*>(map);
  EXPECT_EQ(std::count(bytes, bytes + sizeof map, '\0'), static_cast<long>(sizeof map));
}

TEST_F(ElementStack, a_top_outside_of_the_storage_does_no_harm) {
  for (const int32_t outside : {INT32_MIN, -2, 4096, INT32_MAX}) {
    top = outside;
    EXPECT_FALSE(Pop("CLASS"));
    top = outside;
    EXPECT_EQ(removeParent("CLASS"), 0);
    EXPECT_EQ(printStack(), 0);
    EXPECT_EQ(Push(entry(&a, "CLASS")), 0);
    top = outside;
    EXPECT_FALSE(parseXML("no document"));
    EXPECT_EQ(top, -1);
  }
}

TEST_F(ElementStack, holds_4096_entries_of_a_record_and_256_characters) {
  EXPECT_EQ(sizeof map / sizeof map[0], 4096U);
  EXPECT_EQ(sizeof map[0].name, 256U);
  EXPECT_EQ(offsetof(StackEntry, address), 0U);
  EXPECT_EQ(offsetof(StackEntry, name), sizeof(void*));
}

}  // namespace
