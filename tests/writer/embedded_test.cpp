// The bytes of values that carry an instance.
#include <gtest/gtest.h>

#include "cim_client.h"
#include "support/written.h"

namespace {

using support::text;
using support::written;

// Writes a value that carries `instance`.
std::string embedded(Instance* instance) {
  Value value{.text = text("not written"), .instance = instance, .isCData = 1};
  return written(Gen_Value, &value);
}

TEST(WriteEmbedded, opener_ends_in_a_line_break_and_types_have_a_blank_before_them) {
  ClassName alert{.name = text("CIM_Alert")};
  Value severity_value{.text = text("3")};
  Value codes_value{.text = text("17")};
  ValueArray codes_values{.values = &codes_value};
  Property severity{.value = &severity_value, .name = text("Severity"), .type = text("uint16")};
  PropertyArray codes{.valueArray = &codes_values, .name = text("Codes"), .type = text("uint8")};
  Instance instance{.className = &alert, .properties = &severity, .propertyArrays = &codes};
  EXPECT_EQ(embedded(&instance),
            "<VALUE><![CDATA[\n"
            "<INSTANCE CLASSNAME=\"CIM_Alert\">"
            "<PROPERTY NAME=\"Severity\" TYPE= \"uint16\"><VALUE>3</VALUE></PROPERTY>"
            "<PROPERTY.ARRAY NAME=\"Codes\" TYPE= \"uint8\">"
            "<VALUE.ARRAY><VALUE>17</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>"
            "</INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, without_an_instance_is_closed_but_not_opened) {
  EXPECT_EQ(embedded(nullptr), "<VALUE><![CDATA[\n</INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, without_a_class_is_closed_but_not_opened) {
  Instance instance{};
  EXPECT_EQ(embedded(&instance), "<VALUE><![CDATA[\n</INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, with_a_nameless_class_is_closed_but_not_opened) {
  ClassName nameless{};
  Instance instance{.className = &nameless};
  EXPECT_EQ(embedded(&instance), "<VALUE><![CDATA[\n</INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, two_properties_and_two_arrays_keep_their_order) {
  ClassName alert{.name = text("A")};
  PropertyArray d{.name = text("d"), .type = text("t")};
  PropertyArray c{.name = text("c"), .type = text("t"), .next = &d};
  Property b{.name = text("b"), .type = text("t")};
  Property a{.name = text("a"), .type = text("t"), .next = &b};
  Instance instance{.className = &alert, .properties = &a, .propertyArrays = &c};
  EXPECT_EQ(embedded(&instance),
            "<VALUE><![CDATA[\n<INSTANCE CLASSNAME=\"A\">"
            "<PROPERTY NAME=\"a\" TYPE= \"t\"></PROPERTY>"
            "<PROPERTY NAME=\"b\" TYPE= \"t\"></PROPERTY>"
            "<PROPERTY.ARRAY NAME=\"c\" TYPE= \"t\"></PROPERTY.ARRAY>"
            "<PROPERTY.ARRAY NAME=\"d\" TYPE= \"t\"></PROPERTY.ARRAY>"
            "</INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, property_without_type_has_no_opener_but_value_and_closer) {
  Value value{.text = text("1")};
  Property property{.value = &value, .name = text("a")};
  Instance instance{.properties = &property};
  EXPECT_EQ(embedded(&instance),
            "<VALUE><![CDATA[\n<VALUE>1</VALUE></PROPERTY></INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, property_without_name_has_no_opener_but_value_and_closer) {
  Value value{.text = text("1")};
  Property property{.value = &value, .type = text("t")};
  Instance instance{.properties = &property};
  EXPECT_EQ(embedded(&instance),
            "<VALUE><![CDATA[\n<VALUE>1</VALUE></PROPERTY></INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, property_with_a_value_without_text_has_no_value) {
  Value value{};
  Property property{.value = &value, .name = text("a"), .type = text("t")};
  Instance instance{.properties = &property};
  EXPECT_EQ(embedded(&instance),
            "<VALUE><![CDATA[\n<PROPERTY NAME=\"a\" TYPE= \"t\"></PROPERTY></INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, array_without_type_has_no_opener_but_value_and_closer) {
  Value value{.text = text("1")};
  ValueArray values{.values = &value};
  PropertyArray array{.valueArray = &values, .name = text("a")};
  Instance instance{.propertyArrays = &array};
  EXPECT_EQ(embedded(&instance),
            "<VALUE><![CDATA[\n<VALUE.ARRAY><VALUE>1</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>"
            "</INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, array_without_name_has_no_opener_but_value_and_closer) {
  Value value{.text = text("17")};
  ValueArray values{.values = &value};
  PropertyArray array{.valueArray = &values, .type = text("uint8")};
  Instance instance{.propertyArrays = &array};
  EXPECT_EQ(embedded(&instance),
            "<VALUE><![CDATA[\n<VALUE.ARRAY><VALUE>17</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>"
            "</INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, of_an_array_only_the_first_value_is_written) {
  Value third_value{.text = text("3")};
  ValueArray second_array{.values = &third_value};
  Value second{.text = text("2")};
  Value first{.text = text("1"), .next = &second};
  ValueArray values{.values = &first, .next = &second_array};
  PropertyArray array{.valueArray = &values, .name = text("a"), .type = text("t")};
  Instance instance{.propertyArrays = &array};
  EXPECT_EQ(embedded(&instance),
            "<VALUE><![CDATA[\n<PROPERTY.ARRAY NAME=\"a\" TYPE= \"t\">"
            "<VALUE.ARRAY><VALUE>1</VALUE></VALUE.ARRAY></PROPERTY.ARRAY></INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, array_whose_first_value_has_no_text_has_no_value) {
  Value second{.text = text("2")};
  Value first{.next = &second};
  ValueArray values{.values = &first};
  PropertyArray array{.valueArray = &values, .name = text("a"), .type = text("t")};
  Instance instance{.propertyArrays = &array};
  EXPECT_EQ(embedded(&instance),
            "<VALUE><![CDATA[\n<PROPERTY.ARRAY NAME=\"a\" TYPE= \"t\"></PROPERTY.ARRAY>"
            "</INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, qualifiers_references_and_attributes_are_left_out) {
  ClassName alert{.name = text("A")};
  Qualifier qualifier{.name = text("q")};
  PropertyReference reference{.name = text("r")};
  Property property{.qualifiers = &qualifier,
                    .name = text("a"),
                    .type = text("t"),
                    .classOrigin = text("A"),
                    .propagated = 1};
  Instance instance{.qualifiers = &qualifier,
                    .className = &alert,
                    .properties = &property,
                    .propertyReferences = &reference};
  EXPECT_EQ(embedded(&instance),
            "<VALUE><![CDATA[\n<INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"a\" TYPE= \"t\">"
            "</PROPERTY></INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, of_the_instances_only_the_first_is_written) {
  ClassName first_class{.name = text("A")};
  ClassName second_class{.name = text("B")};
  Instance second{.className = &second_class};
  Instance first{.className = &first_class, .next = &second};
  EXPECT_EQ(embedded(&first), "<VALUE><![CDATA[\n<INSTANCE CLASSNAME=\"A\"></INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, empties_both_property_lists_and_leaves_the_nodes) {
  Property second{.name = text("b"), .type = text("t")};
  Property first{.name = text("a"), .type = text("t"), .next = &second};
  PropertyArray array{.name = text("c"), .type = text("t")};
  PropertyReference reference{};
  Instance instance{
      .properties = &first, .propertyArrays = &array, .propertyReferences = &reference};
  embedded(&instance);
  EXPECT_EQ(instance.properties, nullptr);
  EXPECT_EQ(instance.propertyArrays, nullptr);
  EXPECT_EQ(instance.propertyReferences, &reference);
  EXPECT_EQ(first.next, &second);
  EXPECT_STREQ(first.name, "a");
  EXPECT_STREQ(second.name, "b");
  EXPECT_STREQ(array.name, "c");
}

TEST(WriteEmbedded, a_second_time_has_no_properties_left) {
  ClassName alert{.name = text("A")};
  Property property{.name = text("a"), .type = text("t")};
  Instance instance{.className = &alert, .properties = &property};
  EXPECT_EQ(embedded(&instance),
            "<VALUE><![CDATA[\n<INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"a\" TYPE= \"t\">"
            "</PROPERTY></INSTANCE>]]></VALUE>");
  EXPECT_EQ(embedded(&instance),
            "<VALUE><![CDATA[\n<INSTANCE CLASSNAME=\"A\"></INSTANCE>]]></VALUE>");
}

TEST(WriteEmbedded, stands_among_plain_values) {
  Value third{.text = text("c")};
  Value second{.isCData = 1, .next = &third};
  Value first{.text = text("a"), .next = &second};
  EXPECT_EQ(written(Gen_Value, &first),
            "<VALUE>a</VALUE><VALUE><![CDATA[\n</INSTANCE>]]></VALUE><VALUE>c</VALUE>");
}

}  // namespace
