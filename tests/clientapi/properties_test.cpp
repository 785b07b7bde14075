// Properties of records as properties of broker instances.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <tuple>

#include "clientapi/local_records.h"
#include "support/scripted_broker.h"

namespace {

using namespace support;
using sandbox_local::CIMCEnv;
using sandbox_local::CIMCInstance;

struct Target {
  int code = -1;
  char* message = nullptr;
  CIMCEnv* env = static_cast<CIMCEnv*>(getCIMCEnv("SfcbLocal", 0, &code, &message));
  sandbox_local::InstanceObject object{sandbox_local::Path("root/cimv2", "CIM_Fan")};
  CIMCInstance* instance = &object;

  Target() = default;
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;
  ~Target() { env->ft->release(env); }

  // What a property of that type and text becomes; "" when nothing was set.
  std::string set(const char* type, const char* text) {
    Property* property = nullptr;
    std::string writable = text ? text : "";
    AddToProeprtyList(&property, "P", text ? writable.data() : nullptr, type);
    // The list builder puts "true" into upper case: the back end itself does not.
    if (text) std::snprintf(property->value->text, std::strlen(text) + 1, "%s", text);
    EXPECT_EQ(add_properties_to_req(property, instance, env), 0);
    Free_Property(property);
    const sandbox_local::Datum* datum = sandbox_local::find(object.properties, "P");
    return datum ? describe(*datum) : "";
  }
};

std::string set_array(const char* type, std::initializer_list<const char*> values, int expected) {
  Target target;
  auto* array = static_cast<ValueArray*>(std::calloc(1, sizeof(ValueArray)));
  for (const char* value : values) AddToValueList(&array->values, value);
  PropertyArray* property = nullptr;
  AddToPropertyArrayList(&property, "A", array, type);
  EXPECT_EQ(_add_property_array_to_req(property, target.instance, target.env), expected);
  Free_PropertyArray(property);
  const sandbox_local::Datum* datum = sandbox_local::find(target.object.properties, "A");
  return datum ? std::to_string(datum->type) + " " + describe(*datum) : "";
}

TEST(LocalProperties, texts_become_values_of_their_types) {
  const struct {
    const char* type;
    const char* text;
    const char* expected;
  } cases[] = {
      {"boolean", "TRUE", "boolean true"},
      {"boolean", "FALSE", "boolean false"},
      {"boolean", "true", "boolean false"},  // lower case is no TRUE
      {"uint8", "200", "uint8 200"},
      {"uint8", "300", "uint8 44"},  // the low bits
      {"sint8", "-1", "sint8 -1"},
      {"uint16", "65535", "uint16 65535"},
      {"sint16", "-2", "sint16 -2"},
      {"uint32", "4294967295", "uint32 2147483647"},  // as a 32-bit long reads it
      {"sint32", "-5", "sint32 -5"},
      {"uint64", "5000000000", "uint64 2147483647"},
      {"sint64", "-5000000000", "sint64 -2147483648"},
      {"uint32", "no number", "uint32 0"},
      {"string", "text", "\"text\""},
      {"datetime", "20240101000000.000000+000", "datetime 20240101000000.000000+000"},
      {"real32", "1.5", ""},  // not sent
      {"char16", "x", ""},
      {"unheard-of", "x", ""},
  };
  ScriptedBroker broker;
  for (const auto& c : cases) {
    Target target;
    EXPECT_EQ(target.set(c.type, c.text), c.expected) << c.type << " " << c.text;
  }
}

TEST(LocalProperties, a_64_bit_text_is_clipped_to_the_limits_of_32_bits) {
  ScriptedBroker broker;
  for (const char* text : {"2147483648", "5000000000", "18446744073709551615", "1e9999999999",
                           "99999999999999999999999999"}) {
    Target target;
    const bool small = text[1] == 'e';
    EXPECT_EQ(target.set("uint64", text), small ? "uint64 1" : "uint64 2147483647") << text;
  }
  for (const char* text : {"-2147483649", "-5000000000", "-99999999999999999999999999"}) {
    Target target;
    EXPECT_EQ(target.set("sint64", text), "sint64 -2147483648") << text;
  }
  Target sign_extended;
  EXPECT_EQ(sign_extended.set("uint64", "-1"), "uint64 18446744073709551615");
}

// What the type has no room for is cut off after the text was clipped.
TEST(LocalProperties, smaller_numbers_keep_the_low_bits_of_the_clipped_one) {
  ScriptedBroker broker;
  for (const auto& [type, text, expected] : {std::tuple{"uint8", "5000000000", "uint8 255"},
                                             {"sint8", "5000000000", "sint8 -1"},
                                             {"uint16", "65536", "uint16 0"},
                                             {"sint16", "-5000000000", "sint16 0"},
                                             {"uint32", "-1", "uint32 4294967295"}}) {
    Target target;
    EXPECT_EQ(target.set(type, text), expected) << type << " " << text;
  }
}

TEST(LocalProperties, of_boolean_texts_only_upper_case_true_is_true) {
  ScriptedBroker broker;
  for (const char* text : {"true", "True", "FALSE", "1", "TRUE "}) {
    Target target;
    EXPECT_EQ(target.set("boolean", text), "boolean false") << text;
  }
  Target target;
  EXPECT_EQ(target.set("boolean", "TRUE"), "boolean true");
}

TEST(LocalProperties, an_array_that_the_broker_refuses_fails_and_a_scalar_does_not) {
  ScriptedBroker broker;
  broker.script.refused = {"setProperty"};
  EXPECT_EQ(set_array("uint16", {"1"}, -1), "");
  Target target;
  EXPECT_EQ(target.set("uint16", "1"), "");
}

TEST(LocalProperties, a_date_time_that_cannot_be_made_is_null) {
  ScriptedBroker broker;
  broker.script.refused = {"date-time"};
  Target target;
  EXPECT_EQ(target.set("datetime", "20240101000000.000000+000"), "null 6144");
}

TEST(LocalProperties, a_modified_instance_sends_no_references_and_reports_success) {
  ScriptedBroker broker;
  Target target;
  PropertyReference reference{};
  Property incomplete{};
  Instance instance{};
  instance.properties = &incomplete;
  instance.propertyReferences = &reference;
  const NamedInstance named{nullptr, &instance, nullptr};
  EXPECT_EQ(add_value_to_mi_req(&named, target.instance, target.env), 0);
  EXPECT_TRUE(target.object.properties.empty());
}

TEST(LocalProperties, no_value_is_a_null_of_the_type) {
  ScriptedBroker broker;
  for (const auto& [type, expected] : {std::pair{"uint32", "null 160"},
                                       {"string", "null 5888"},
                                       {"datetime", "null 6144"},
                                       {"boolean", "null 2"}}) {
    Target target;
    EXPECT_EQ(target.set(type, nullptr), expected);
  }
}

TEST(LocalProperties, a_missing_name_or_type_fails) {
  ScriptedBroker broker;
  Target target;
  char text[] = "x";
  Property property{};
  EXPECT_EQ(add_properties_to_req(nullptr, target.instance, target.env), -1);
  property.name = text;
  EXPECT_EQ(add_properties_to_req(&property, target.instance, target.env), -1);
  property.name = nullptr;
  property.type = text;
  EXPECT_EQ(add_properties_to_req(&property, target.instance, target.env), -1);
}

TEST(LocalProperties, arrays_carry_their_element_code_and_the_array_flag) {
  ScriptedBroker broker;
  EXPECT_EQ(set_array("uint16", {"1", "2"}, 0), "8336 [uint16 1, uint16 2]");
  EXPECT_EQ(set_array("sint64", {"-1"}, 0), "8432 [sint64 -1]");
  EXPECT_EQ(set_array("string", {"a", "b"}, 0), "13824 [\"a\", \"b\"]");
}

TEST(LocalProperties, arrays_of_other_types_are_passed_over_and_empty_ones_fail) {
  ScriptedBroker broker;
  EXPECT_EQ(set_array("boolean", {"TRUE"}, 0), "");
  EXPECT_EQ(set_array("datetime", {"20240101000000.000000+000"}, 0), "");
  EXPECT_EQ(set_array("uint16", {}, -1), "");
}

TEST(LocalProperties, a_reference_of_a_new_instance_becomes_a_path) {
  ScriptedBroker broker;
  Target target;
  PropertyReference* property = nullptr;
  KeyBinding* keys = nullptr;
  AddToKeyBindingListRef(&keys, "Tag", "chassis1", "string", nullptr);
  auto* name_space = static_cast<Namespace*>(std::calloc(1, sizeof(Namespace)));
  AddToPropertyReferenceList(&property, keys, name_space, "CIM_Chassis", "Antecedent");
  EXPECT_EQ(add_prop_ref_to_create_inst_req("root/cimv2", property, target.instance, target.env),
            0);
  const sandbox_local::Datum* datum = sandbox_local::find(target.object.properties, "Antecedent");
  ASSERT_NE(datum, nullptr);
  EXPECT_EQ(describe(*datum), "reference root/cimv2:CIM_Chassis.Tag=\"chassis1\"");
  Free_PropertyReference(property);
}

// What is missing is reported, and nothing is set.
TEST(LocalProperties, an_array_or_a_reference_needs_every_piece) {
  ScriptedBroker broker;
  Target target;
  char text[] = "x";
  Value textless{};
  Value value{};
  value.text = text;
  ValueArray values{};
  values.values = &textless;
  PropertyArray array{};
  const auto add_array = [&](const PropertyArray* given) {
    return add_prop_array_to_create_inst_req(given, target.instance, target.env);
  };
  EXPECT_EQ(add_array(nullptr), -1);
  EXPECT_EQ(add_array(&array), -1);  // without name
  array.name = text;
  EXPECT_EQ(add_array(&array), -1);  // without type
  char type[] = "uint8";
  array.type = type;
  EXPECT_EQ(add_array(&array), -1);  // without array
  array.valueArray = &values;
  EXPECT_EQ(add_array(&array), -1);  // without a first text
  values.values = &value;
  broker.script.refused = {"array"};
  EXPECT_EQ(add_array(&array), -1);

  PropertyReference reference{};
  const auto add_reference = [&](const PropertyReference* given) {
    return add_prop_ref_to_create_inst_req("root/cimv2", given, target.instance, target.env);
  };
  EXPECT_EQ(add_reference(nullptr), -1);
  EXPECT_EQ(add_reference(&reference), -1);  // without name
  reference.name = text;
  EXPECT_EQ(add_reference(&reference), -1);  // without reference
  const Named chassis("CIM_Chassis", {{"Tag", "chassis1"}});
  ValueReference named{};
  named.instanceName = chassis.get;
  reference.valueReference = &named;
  broker.script.refused = {"object path"};
  EXPECT_EQ(add_reference(&reference), -1);
  EXPECT_TRUE(target.object.properties.empty());
}

TEST(LocalProperties, an_array_element_without_text_stays_null) {
  ScriptedBroker broker;
  Target target;
  char text[] = "1";
  char name[] = "A";
  char type[] = "uint8";
  Value second{};
  Value first{};
  first.text = text;
  first.next = &second;
  ValueArray values{};
  values.values = &first;
  PropertyArray array{};
  array.name = name;
  array.type = type;
  array.valueArray = &values;
  EXPECT_EQ(_add_property_array_to_req(&array, target.instance, target.env), 0);
  EXPECT_EQ(describe(*sandbox_local::find(target.object.properties, "A")), "[uint8 1, null 128]");
}

TEST(LocalProperties, a_key_of_a_new_instance_needs_a_name) {
  ScriptedBroker broker;
  Target target;
  const Property nameless{};
  EXPECT_EQ(add_prop_to_create_inst_req(nullptr, nullptr, target.instance, target.env), -1);
  EXPECT_EQ(add_prop_to_create_inst_req(&nameless, nullptr, target.instance, target.env), -1);
}

TEST(LocalProperties, no_instance_to_modify_sets_nothing_and_reports_success) {
  ScriptedBroker broker;
  Target target;
  const NamedInstance named{};
  EXPECT_EQ(add_value_to_mi_req(nullptr, target.instance, target.env), 0);
  EXPECT_EQ(add_value_to_mi_req(&named, target.instance, target.env), 0);
  EXPECT_TRUE(target.object.properties.empty());
}

}  // namespace
