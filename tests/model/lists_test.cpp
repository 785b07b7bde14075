// The AddTo...List functions: what they append and what they take over.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "cim_client.h"
#include "model/owned_lists.h"
#include "support/filled_records.h"

namespace {

using model_test::InstanceNames;
using model_test::Instances;
using model_test::Keys;
using model_test::Properties;
using model_test::PropertyArrays;
using model_test::Values;
using support::contents;
using support::filled;

// ---- Values ----

TEST(AddToValueList, first_node_becomes_the_head) {
  Values list;
  EXPECT_EQ(AddToValueList(&list.head, "a"), 0);
  EXPECT_EQ(contents(list.head), R"({"a" null 0})");
  EXPECT_EQ(list.head->next, nullptr);
}

TEST(AddToValueList, further_nodes_go_to_the_end_and_leave_the_others) {
  Values list;
  AddToValueList(&list.head, "a");
  AddToValueList(&list.head, "b");
  Value* const first = list.head;
  Value* const second = list.head->next;
  EXPECT_EQ(AddToValueList(&list.head, "c"), 0);
  EXPECT_EQ(list.head, first);
  EXPECT_EQ(list.head->next, second);
  EXPECT_EQ(contents(list.head), R"({"a" null 0}{"b" null 0}{"c" null 0})");
}

TEST(AddToValueList, copies_its_text) {
  Values list;
  char text[] = "a";
  AddToValueList(&list.head, text);
  text[0] = 'b';
  EXPECT_STREQ(list.head->text, "a");
}

TEST(AddToValueList, does_not_normalise) {
  Values list;
  AddToValueList(&list.head, "true");
  EXPECT_STREQ(list.head->text, "true");
}

// ---- Properties ----

// The property that a value text makes, which may be changed.
std::string property_of(char* value) {
  Properties list;
  EXPECT_EQ(AddToProeprtyList(&list.head, "Enabled", value, "boolean"), 0);
  return contents(list.head);
}

TEST(AddToProeprtyList, holds_name_value_and_type) {
  char value[] = "42";
  EXPECT_EQ(property_of(value), R"({null {"42" null 0} "Enabled" "boolean" null 0})");
}

TEST(AddToProeprtyList, true_becomes_upper_case_in_the_callers_text_too) {
  char value[] = "true";
  EXPECT_EQ(property_of(value), R"({null {"TRUE" null 0} "Enabled" "boolean" null 0})");
  EXPECT_STREQ(value, "TRUE");
}

TEST(AddToProeprtyList, false_becomes_upper_case_in_the_callers_text_too) {
  char value[] = "false";
  EXPECT_EQ(property_of(value), R"({null {"FALSE" null 0} "Enabled" "boolean" null 0})");
  EXPECT_STREQ(value, "FALSE");
}

TEST(AddToProeprtyList, mixed_case_and_longer_texts_stay_as_they_are) {
  for (const char* text : {"True", "tRUE", "TRUE", "False", "FALSE", "trueish", "untrue", ""}) {
    char value[16] = {};
    std::strcpy(value, text);
    EXPECT_EQ(property_of(value),
              std::string("{null {\"") + text + "\" null 0} \"Enabled\" \"boolean\" null 0}");
    EXPECT_STREQ(value, text);
  }
}

TEST(AddToProeprtyList, is_normalised_whatever_its_type_says) {
  char value[] = "true";
  Properties list;
  AddToProeprtyList(&list.head, "Caption", value, "string");
  EXPECT_STREQ(list.head->value->text, "TRUE");
}

TEST(AddToProeprtyList, without_a_value_is_null) {
  Properties list;
  EXPECT_EQ(AddToProeprtyList(&list.head, "Speed", nullptr, "uint64"), 0);
  EXPECT_EQ(contents(list.head), R"({null null "Speed" "uint64" null 0})");
}

TEST(AddToProeprtyList, without_anything_is_an_empty_node) {
  Properties list;
  EXPECT_EQ(AddToProeprtyList(&list.head, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(AddToProeprtyList(&list.head, "b", nullptr, nullptr), 0);
  EXPECT_EQ(contents(list.head), R"({null null null null null 0}{null null "b" null null 0})");
}

TEST(AddToPropertyArrayList, takes_the_array_itself) {
  PropertyArrays list;
  auto* array = filled<ValueArray>("2", 1);
  EXPECT_EQ(AddToPropertyArrayList(&list.head, "Status", array, "uint16"), 0);
  EXPECT_EQ(AddToPropertyArrayList(&list.head, "Empty", nullptr, nullptr), 0);
  EXPECT_EQ(list.head->valueArray, array);
  EXPECT_EQ(contents(list.head),
            R"({null {{"2" null 1}} "Status" "uint16" 0 null 0}{null null "Empty" null 0 null 0})");
}

// ---- Instances ----

TEST(AddToInstanceList, takes_the_four_records_and_no_qualifiers) {
  Instances list;
  auto* class_name = filled<ClassName>("CIM_Fan", 0);
  auto* references = filled<PropertyReference>("r", 0);
  auto* arrays = filled<PropertyArray>("a", 0);
  auto* properties = filled<Property>("p", 0);
  EXPECT_EQ(AddToInstanceList(&list.head, class_name, references, arrays, properties), 0);
  EXPECT_EQ(list.head->qualifiers, nullptr);
  EXPECT_EQ(list.head->className, class_name);
  EXPECT_EQ(list.head->properties, properties);
  EXPECT_EQ(list.head->propertyArrays, arrays);
  EXPECT_EQ(list.head->propertyReferences, references);
}

TEST(AddToInstanceList, each_part_may_be_null) {
  Instances list;
  EXPECT_EQ(AddToInstanceList(&list.head, nullptr, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(AddToInstanceList(&list.head, nullptr, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(contents(list.head), "{null null null null null}{null null null null null}");
}

TEST(AddToInstanceNameList, takes_class_name_and_keys) {
  InstanceNames list;
  auto* keys = filled<KeyBinding>("DeviceID", 0);
  auto* class_name = filled<ClassName>("CIM_Fan", 0);
  EXPECT_EQ(AddToInstanceNameList(&list.head, keys, class_name, "ignored"), 0);
  EXPECT_EQ(list.head->keyBindings, keys);
  EXPECT_EQ(list.head->className, class_name);
}

TEST(AddToInstanceNameList, without_keys_names_a_singleton) {
  InstanceNames list;
  EXPECT_EQ(AddToInstanceNameList(&list.head, nullptr, filled<ClassName>("CIM_Fan", 0), nullptr),
            0);
  EXPECT_EQ(contents(list.head), R"({null null null {"CIM_Fan"}})");
}

TEST(AddToInstanceNameList, with_a_nameless_class_stays_empty_and_takes_nothing) {
  InstanceNames list;
  Keys keys;
  keys.head = filled<KeyBinding>("DeviceID", 0);
  ClassName nameless{};
  EXPECT_EQ(AddToInstanceNameList(&list.head, keys.head, &nameless, nullptr), 0);
  EXPECT_EQ(contents(list.head), "{null null null null}");
  EXPECT_STREQ(keys.head->name, "DeviceID");
}

TEST(AddToInstanceNameList, without_a_class_stays_empty_and_takes_nothing) {
  InstanceNames list;
  Keys keys;
  keys.head = filled<KeyBinding>("DeviceID", 0);
  EXPECT_EQ(AddToInstanceNameList(&list.head, keys.head, nullptr, nullptr), 0);
  EXPECT_EQ(AddToInstanceNameList(&list.head, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(contents(list.head), "{null null null null}{null null null null}");
  EXPECT_STREQ(keys.head->name, "DeviceID");
}

// ---- Keys ----

TEST(AddToKeyBindingListRef, holds_name_value_and_type) {
  Keys list;
  EXPECT_EQ(AddToKeyBindingListRef(&list.head, "DeviceID", "fan1", "string", "ignored"), 0);
  EXPECT_EQ(AddToKeyBindingListRef(&list.head, "Number", "7", nullptr, nullptr), 0);
  EXPECT_EQ(contents(list.head),
            R"({{"fan1" "string" null} null "DeviceID"}{{"7" null null} null "Number"})");
}

TEST(AddToKeyBindingListRef, without_a_value_keeps_no_type_either) {
  Keys list;
  EXPECT_EQ(AddToKeyBindingListRef(&list.head, "DeviceID", nullptr, "string", nullptr), 0);
  EXPECT_EQ(contents(list.head), R"({null null "DeviceID"})");
}

TEST(AddToKeyBindingListRef, without_a_name_keeps_the_value) {
  Keys list;
  EXPECT_EQ(AddToKeyBindingListRef(&list.head, nullptr, "true", "boolean", nullptr), 0);
  EXPECT_EQ(contents(list.head), R"({{"true" "boolean" null} null null})");
}

TEST(AddToKeyBindingList, without_reference_keys_is_a_plain_key) {
  Keys list;
  EXPECT_EQ(AddToKeyBindingList(&list.head, "DeviceID", "fan1", "string", "CIM_Fan", "root/cimv2",
                                nullptr),
            0);
  EXPECT_EQ(contents(list.head), R"({{"fan1" "string" null} null "DeviceID"})");
}

}  // namespace
