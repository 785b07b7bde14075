// Values as people read them.
#include "value_text.h"

#include <gtest/gtest.h>

#include "records.h"
#include "sample_records.h"

namespace cli {
namespace {

// A view of one value, and what it borrows.
struct Sample {
  std::unique_ptr<Value, Release<Free_Value>> value{new_record<Value>()};
  TypedView view;
};

Sample of(const char* type, const char* text) {
  Sample sample;
  sample.value->text = new_text(text);
  sample.view.type = type;
  sample.view.value = sample.value.get();
  return sample;
}

TEST(ValueText, texts_and_numbers_stand_as_they_are) {
  EXPECT_EQ(value_text(of("string", "two words").view), "two words");
  EXPECT_EQ(value_text(of("uint64", "18446744073709551615").view), "18446744073709551615");
  EXPECT_EQ(value_text(of("datetime", "20240131235959.000000+060").view),
            "20240131235959.000000+060");
}

TEST(ValueText, booleans_are_lower_case) {
  EXPECT_EQ(value_text(of("boolean", "TRUE").view), "true");
}

TEST(ValueText, quotes_go_around_texts_only) {
  EXPECT_EQ(quoted_value_text(of("string", "a \"b\"").view), "\"a \\\"b\\\"\"");
  EXPECT_EQ(quoted_value_text(of("uint8", "5").view), "5");
}

TEST(ValueText, null_is_null) {
  TypedView view;
  view.type = "string";
  EXPECT_EQ(value_text(view), "null");
}

TEST(ValueText, arrays_stand_in_brackets_with_quoted_texts) {
  ValueArray* array = new_record<ValueArray>();
  const std::unique_ptr<ValueArray, Release<Free_ValueArray>> owner(array);
  TypedView view;
  view.type = "string";
  view.is_array = true;
  view.values = array;
  EXPECT_EQ(value_text(view), "[]");
  AddToValueList(&array->values, "a, b");
  AddToValueList(&array->values, "c");
  EXPECT_EQ(value_text(view), "[\"a, b\", \"c\"]");
  view.type = "uint16";
  EXPECT_EQ(value_text(view), "[a, b, c]");
}

TEST(ValueText, references_are_paths) {
  const ValueReferenceOwner reference =
      samples::reference("", "root/cimv2", "CIM_Fan", {{"DeviceID", "fan1"}});
  TypedView view;
  view.is_reference = true;
  view.reference = reference.get();
  EXPECT_EQ(value_text(view), "/root/cimv2:CIM_Fan.DeviceID=\"fan1\"");
}

TEST(ValueText, embedded_instances_stand_in_braces) {
  Sample sample = of("string", "");
  sample.value->instance = samples::embedded_setting();
  EXPECT_EQ(value_text(sample.view),
            "CIM_FanSetting{InstanceID=\"quiet\", Speed=800, Steps=[...]}");
}

}  // namespace
}  // namespace cli
