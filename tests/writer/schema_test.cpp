// The bytes of properties, methods, classes and instances.
#include <gtest/gtest.h>

#include "cim_client.h"
#include "support/written.h"

namespace {

using support::text;
using support::written;

// ---- Properties ----

TEST(WriteProperty, whole_with_propagated_unquoted) {
  Qualifier qualifier{.name = text("Key")};
  Value value{.text = text("42")};
  Property property{.qualifiers = &qualifier,
                    .value = &value,
                    .name = text("Speed"),
                    .type = text("uint32"),
                    .classOrigin = text("CIM_Fan"),
                    .propagated = 1};
  EXPECT_EQ(written(Gen_Property, &property),
            "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\" CLASSORIGIN=\"CIM_Fan\" PROPAGATED=TRUE>"
            "<QUALIFIER NAME=\"Key\"></QUALIFIER><VALUE>42</VALUE></PROPERTY>");
}

TEST(WriteProperty, without_anything) {
  Property property{};
  EXPECT_EQ(written(Gen_Property, &property), "<PROPERTY></PROPERTY>");
}

TEST(WriteProperty, propagated_shows_only_when_1) {
  Property property{.name = text("a"), .propagated = 2};
  EXPECT_EQ(written(Gen_Property, &property), "<PROPERTY NAME=\"a\"></PROPERTY>");
}

TEST(WriteProperty, two_properties) {
  Property second{.name = text("b")};
  Property first{.name = text("a"), .next = &second};
  EXPECT_EQ(written(Gen_Property, &first),
            "<PROPERTY NAME=\"a\"></PROPERTY><PROPERTY NAME=\"b\"></PROPERTY>");
}

TEST(WritePropertyArray, whole_with_propagated_in_single_quotes) {
  Qualifier qualifier{.name = text("Key")};
  Value value{.text = text("1")};
  ValueArray values{.values = &value};
  PropertyArray array{.qualifiers = &qualifier,
                      .valueArray = &values,
                      .name = text("Status"),
                      .type = text("uint16"),
                      .arraySize = 5,
                      .classOrigin = text("CIM_Fan"),
                      .propagated = 1};
  EXPECT_EQ(written(Gen_PropertyArray, &array),
            "<PROPERTY.ARRAY NAME=\"Status\" TYPE=\"uint16\" CLASSORIGIN=\"CIM_Fan\" ARRAYSIZE=5"
            " PROPAGATED 'TRUE'><QUALIFIER NAME=\"Key\"></QUALIFIER>"
            "<VALUE.ARRAY><VALUE>1</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>");
}

TEST(WritePropertyArray, size_is_unquoted_and_shows_only_above_0) {
  const auto sized = [](std::int32_t size) {
    PropertyArray array{.arraySize = size};
    return written(Gen_PropertyArray, &array);
  };
  EXPECT_EQ(sized(1), "<PROPERTY.ARRAY ARRAYSIZE=1></PROPERTY.ARRAY>");
  EXPECT_EQ(sized(2147483647), "<PROPERTY.ARRAY ARRAYSIZE=2147483647></PROPERTY.ARRAY>");
  EXPECT_EQ(sized(0), "<PROPERTY.ARRAY></PROPERTY.ARRAY>");
  EXPECT_EQ(sized(-5), "<PROPERTY.ARRAY></PROPERTY.ARRAY>");
}

TEST(WritePropertyArray, two_arrays) {
  PropertyArray second{.name = text("b"), .propagated = 2};
  PropertyArray first{.name = text("a"), .next = &second};
  EXPECT_EQ(written(Gen_PropertyArray, &first),
            "<PROPERTY.ARRAY NAME=\"a\"></PROPERTY.ARRAY>"
            "<PROPERTY.ARRAY NAME=\"b\"></PROPERTY.ARRAY>");
}

TEST(WritePropertyReference, whole_with_propagated_in_single_quotes) {
  Qualifier qualifier{.name = text("Key")};
  ValueReference value{};
  PropertyReference reference{.qualifiers = &qualifier,
                              .valueReference = &value,
                              .name = text("Antecedent"),
                              .referenceClass = text("CIM_Fan"),
                              .classOrigin = text("CIM_Cools"),
                              .propagated = 1};
  EXPECT_EQ(written(Gen_PropertyReference, &reference),
            "<PROPERTY.REFERENCE NAME=\"Antecedent\" REFERENCECLASS=\"CIM_Fan\""
            " CLASSORIGIN=\"CIM_Cools\" PROPAGATED 'TRUE'><QUALIFIER NAME=\"Key\"></QUALIFIER>"
            "<VALUE.REFERENCE></VALUE.REFERENCE></PROPERTY.REFERENCE>");
}

TEST(WritePropertyReference, two_references) {
  PropertyReference second{.name = text("b"), .propagated = 2};
  PropertyReference first{.next = &second};
  EXPECT_EQ(written(Gen_PropertyReference, &first),
            "<PROPERTY.REFERENCE></PROPERTY.REFERENCE>"
            "<PROPERTY.REFERENCE NAME=\"b\"></PROPERTY.REFERENCE>");
}

// ---- Methods and parameters ----

TEST(WriteParameter, whole_and_empty) {
  Qualifier qualifier{.name = text("In")};
  Parameter second{};
  Parameter first{
      .qualifiers = &qualifier, .name = text("Speed"), .type = text("uint32"), .next = &second};
  EXPECT_EQ(written(Gen_Parameter, &first),
            "<PARAMETER NAME=\"Speed\" TYPE=\"uint32\"><QUALIFIER NAME=\"In\"></QUALIFIER>"
            "</PARAMETER><PARAMETER></PARAMETER>");
}

TEST(WriteParameterReference, whole_and_empty) {
  Qualifier qualifier{.name = text("In")};
  ParameterReference second{};
  ParameterReference first{.qualifiers = &qualifier,
                           .name = text("Fan"),
                           .referenceClass = text("CIM_Fan"),
                           .next = &second};
  EXPECT_EQ(written(Gen_ParameterReference, &first),
            "<PARAMETER.REFERENCE NAME=\"Fan\" REFERENCECLASS=\"CIM_Fan\">"
            "<QUALIFIER NAME=\"In\"></QUALIFIER></PARAMETER.REFERENCE>"
            "<PARAMETER.REFERENCE></PARAMETER.REFERENCE>");
}

TEST(WriteParameterArray, whole_and_empty) {
  Qualifier qualifier{.name = text("In")};
  ParameterArray second{.arraySize = -1};
  ParameterArray first{.qualifiers = &qualifier,
                       .name = text("Speeds"),
                       .type = text("uint32"),
                       .arraySize = 12,
                       .next = &second};
  EXPECT_EQ(written(Gen_ParameterArray, &first),
            "<PARAMETER.ARRAY NAME=\"Speeds\" TYPE=\"uint32\" ARRAYSIZE=12>"
            "<QUALIFIER NAME=\"In\"></QUALIFIER></PARAMETER.ARRAY>"
            "<PARAMETER.ARRAY></PARAMETER.ARRAY>");
}

TEST(WriteParameterRefArray, parameter_ref_array_is_left_open) {
  Qualifier qualifier{.name = text("In")};
  ParameterRefArray array{.qualifiers = &qualifier,
                          .name = text("Fans"),
                          .referenceClass = text("CIM_Fan"),
                          .arraySize = 5};
  EXPECT_EQ(written(Gen_ParameterRefArray, &array),
            "<PARAMETER.REFARRAY NAME=\"Fans\" REFERENCECLASS=\"CIM_Fan\" ARRAYSIZE=5>"
            "<QUALIFIER NAME=\"In\"></QUALIFIER>");
}

TEST(WriteParameterRefArray, two_arrays_are_both_left_open) {
  ParameterRefArray second{.name = text("b")};
  ParameterRefArray first{.name = text("a"), .next = &second};
  EXPECT_EQ(written(Gen_ParameterRefArray, &first),
            "<PARAMETER.REFARRAY NAME=\"a\"><PARAMETER.REFARRAY NAME=\"b\">");
}

TEST(WriteMethod, whole_with_propagated_in_single_quotes_and_reference_arrays_left_open) {
  Qualifier qualifier{.name = text("Static")};
  Parameter parameter{.name = text("a")};
  ParameterReference reference{.name = text("b")};
  ParameterArray array{.name = text("c")};
  ParameterRefArray reference_array{.name = text("d")};
  Method method{.qualifiers = &qualifier,
                .parameters = &parameter,
                .parameterReferences = &reference,
                .parameterArrays = &array,
                .parameterRefArrays = &reference_array,
                .name = text("SetSpeed"),
                .type = text("uint32"),
                .classOrigin = text("CIM_Fan"),
                .propagated = 1};
  EXPECT_EQ(written(Gen_Method, &method),
            "<METHOD NAME=\"SetSpeed\" TYPE=\"uint32\" CLASSORIGIN=\"CIM_Fan\" PROPAGATED 'TRUE'>"
            "<QUALIFIER NAME=\"Static\"></QUALIFIER><PARAMETER NAME=\"a\"></PARAMETER>"
            "<PARAMETER.REFERENCE NAME=\"b\"></PARAMETER.REFERENCE>"
            "<PARAMETER.ARRAY NAME=\"c\"></PARAMETER.ARRAY><PARAMETER.REFARRAY NAME=\"d\">"
            "</METHOD>");
}

TEST(WriteMethod, two_methods) {
  Method second{.name = text("b"), .propagated = 2};
  Method first{.next = &second};
  EXPECT_EQ(written(Gen_Method, &first), "<METHOD></METHOD><METHOD NAME=\"b\"></METHOD>");
}

// ---- Classes and instances ----

TEST(WriteClass, whole) {
  Qualifier qualifier{.name = text("Abstract")};
  Property property{.name = text("a")};
  PropertyArray array{.name = text("b")};
  PropertyReference reference{.name = text("c")};
  Method method{.name = text("d")};
  Class definition{.qualifiers = &qualifier,
                   .properties = &property,
                   .propertyArrays = &array,
                   .propertyReferences = &reference,
                   .methods = &method,
                   .name = text("CIM_Fan"),
                   .superClass = text("CIM_CoolingDevice")};
  EXPECT_EQ(written(Gen_Class, &definition),
            "<CLASS NAME=\"CIM_Fan\" SUPERCLASS=\"CIM_CoolingDevice\">"
            "<QUALIFIER NAME=\"Abstract\"></QUALIFIER><PROPERTY NAME=\"a\"></PROPERTY>"
            "<PROPERTY.ARRAY NAME=\"b\"></PROPERTY.ARRAY>"
            "<PROPERTY.REFERENCE NAME=\"c\"></PROPERTY.REFERENCE><METHOD NAME=\"d\"></METHOD>"
            "</CLASS>");
}

TEST(WriteClass, a_root_class_has_no_superclass) {
  Class second{};
  Class first{.name = text("CIM_ManagedElement"), .next = &second};
  EXPECT_EQ(written(Gen_Class, &first),
            "<CLASS NAME=\"CIM_ManagedElement\"></CLASS><CLASS></CLASS>");
}

TEST(WriteInstance, kinds_of_property_stand_one_after_the_other) {
  ClassName fan{.name = text("CIM_Fan")};
  Qualifier qualifier{.name = text("q")};
  Property second{.name = text("b")};
  Property first{.name = text("a"), .next = &second};
  PropertyArray array{.name = text("c")};
  PropertyReference reference{.name = text("d")};
  Instance instance{.qualifiers = &qualifier,
                    .className = &fan,
                    .properties = &first,
                    .propertyArrays = &array,
                    .propertyReferences = &reference};
  EXPECT_EQ(written(Gen_Instance, &instance),
            "<INSTANCE CLASSNAME=\"CIM_Fan\"><QUALIFIER NAME=\"q\"></QUALIFIER>"
            "<PROPERTY NAME=\"a\"></PROPERTY><PROPERTY NAME=\"b\"></PROPERTY>"
            "<PROPERTY.ARRAY NAME=\"c\"></PROPERTY.ARRAY>"
            "<PROPERTY.REFERENCE NAME=\"d\"></PROPERTY.REFERENCE></INSTANCE>");
}

TEST(WriteInstance, keeps_its_properties) {
  Property property{.name = text("a")};
  Instance instance{.properties = &property};
  written(Gen_Instance, &instance);
  EXPECT_EQ(instance.properties, &property);
}

TEST(WriteInstance, without_a_class_has_nothing_after_the_equals_sign) {
  ClassName fan{.name = text("CIM_Fan")};
  Instance second{.className = &fan};
  Instance first{.next = &second};
  EXPECT_EQ(written(Gen_Instance, &first),
            "<INSTANCE CLASSNAME=></INSTANCE><INSTANCE CLASSNAME=\"CIM_Fan\"></INSTANCE>");
}

TEST(WriteNamedInstance, name_comes_before_instance) {
  ClassName fan{.name = text("CIM_Fan")};
  InstanceName name{.className = &fan};
  Instance instance{.className = &fan};
  NamedInstance second{};
  NamedInstance first{.instanceName = &name, .instance = &instance, .next = &second};
  EXPECT_EQ(written(Gen_NamedInstance, &first),
            "<VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME=\"CIM_Fan\"></INSTANCENAME>"
            "<INSTANCE CLASSNAME=\"CIM_Fan\"></INSTANCE></VALUE.NAMEDINSTANCE>"
            "<VALUE.NAMEDINSTANCE></VALUE.NAMEDINSTANCE>");
}

TEST(WriteResponseDestination, closing_tag_is_in_mixed_case) {
  Instance instance{};
  ResponseDestination destination{.instance = &instance};
  EXPECT_EQ(written(Gen_ResponseDestination, &destination),
            "<RESPONSEDESTINATION><INSTANCE CLASSNAME=></INSTANCE></ResponseDestination>");
  ResponseDestination empty{};
  EXPECT_EQ(written(Gen_ResponseDestination, &empty),
            "<RESPONSEDESTINATION></ResponseDestination>");
}

}  // namespace
