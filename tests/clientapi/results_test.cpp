// Broker instances as records: what is kept, what is left out, what it is called.
#include <gtest/gtest.h>

#include "clientapi/local_records.h"
#include "support/scripted_broker.h"

namespace {

using namespace support;
using sandbox_local::CIMCValue;
namespace code = sandbox_local::code;

// The record of an instance with these properties.
Instance* mapped(std::initializer_list<sandbox_local::Member> properties) {
  sandbox_local::InstanceObject object = fan(properties);
  Instance* record = nullptr;
  EXPECT_EQ(util_GetInstanceValues(static_cast<sandbox_local::CIMCInstance*>(&object), &record), 0);
  return record;
}

sandbox_local::Datum array_of(sandbox_local::CIMCType element,
                              std::vector<sandbox_local::Datum> elements) {
  sandbox_local::ArrayObject array(0, element);
  array.elements = std::move(elements);
  return sandbox_local::array(array);
}

TEST(LocalResults, a_null_property_is_left_out) {
  ScriptedBroker broker;
  Instance* record = mapped({{"Null", sandbox_local::null_of(code::string)},
                             {"NullArray", sandbox_local::null_of(code::string | code::array)},
                             {"NullReference", sandbox_local::null_of(code::reference)},
                             {"Speed", uint32(7)}});
  ASSERT_NE(record, nullptr);
  EXPECT_STREQ(record->properties->name, "Speed");
  EXPECT_EQ(record->properties->next, nullptr);
  EXPECT_EQ(record->propertyArrays, nullptr);
  EXPECT_EQ(record->propertyReferences, nullptr);
  Free_Instance(record);
}

// A broker may say that there is a value, and hand out none.
TEST(LocalResults, a_null_array_or_reference_is_not_followed_whatever_its_state) {
  ScriptedBroker broker;
  sandbox_local::Datum array = sandbox_local::null_of(code::uint16 | code::array);
  sandbox_local::Datum reference = sandbox_local::null_of(code::reference);
  array.state = reference.state = sandbox_local::state_good;
  Instance* record = mapped({{"A", array}, {"R", reference}, {"Speed", uint32(7)}});
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->propertyArrays, nullptr);
  EXPECT_EQ(record->propertyReferences, nullptr);
  EXPECT_STREQ(record->properties->name, "Speed");
  Free_Instance(record);
}

TEST(LocalResults, a_value_of_no_known_type_has_no_text_and_an_empty_type_name) {
  ScriptedBroker broker;
  Instance* record = mapped({{"C", number(code::char16, &CIMCValue::char16, std::uint16_t{65})}});
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->properties->value, nullptr);
  EXPECT_STREQ(record->properties->type, "");
  Free_Instance(record);
}

TEST(LocalResults, most_array_types_have_no_name) {
  ScriptedBroker broker;
  Instance* record = mapped({{"U16", array_of(code::uint16, {uint16(1), uint16(2)})},
                             {"U32", array_of(code::uint32, {uint32(3)})},
                             {"S", array_of(code::string, {sandbox_local::text("a")})}});
  ASSERT_NE(record, nullptr);
  const PropertyArray* array = record->propertyArrays;
  EXPECT_STREQ(array->type, "uint16");
  EXPECT_STREQ(array->valueArray->values->text, "1");
  EXPECT_STREQ(array->valueArray->values->next->text, "2");
  EXPECT_STREQ(array->next->type, "");
  EXPECT_STREQ(array->next->valueArray->values->text, "3");
  EXPECT_STREQ(array->next->next->type, "string");
  Free_Instance(record);
}

// The list builder puts the text into upper case; keys keep it as it is.
TEST(LocalResults, a_boolean_property_is_upper_case_and_a_boolean_key_is_not) {
  ScriptedBroker broker;
  const sandbox_local::Datum truth =
      number(code::boolean, &CIMCValue::boolean, sandbox_local::CIMCBoolean{1});
  Instance* record = mapped({{"B", truth}});
  EXPECT_STREQ(record->properties->value->text, "TRUE");
  Free_Instance(record);
  sandbox_local::Path path("root/cimv2", "CIM_Fan");
  sandbox_local::member(path.keys, "B") = truth;
  KeyBinding* keys = nullptr;
  EXPECT_EQ(GetKeyBindingValues(static_cast<sandbox_local::CIMCObjectPath*>(&path), &keys), 0);
  EXPECT_STREQ(keys->keyValue->text, "true");
  EXPECT_STREQ(keys->keyValue->valueType, "boolean");
  Free_KeyBinding(keys);
}

TEST(LocalResults, arrays_of_booleans_give_no_values) {
  ScriptedBroker broker;
  Instance* record =
      mapped({{"B", array_of(code::boolean, {number(code::boolean, &CIMCValue::boolean,
                                                    sandbox_local::CIMCBoolean{1})})}});
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->propertyArrays->valueArray->values, nullptr);
  Free_Instance(record);
}

TEST(LocalResults, an_element_of_another_kind_than_its_array_is_not_followed) {
  ScriptedBroker broker;
  Instance* record = mapped({{"S", array_of(code::string, {sandbox_local::instance(fan())})}});
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->propertyArrays->valueArray->values->text, nullptr);
  Free_Instance(record);
}

TEST(LocalResults, a_reference_keeps_the_whole_namespace_in_one_segment) {
  ScriptedBroker broker;
  Instance* record = mapped({{"Antecedent", sandbox_local::reference(fan_path())}});
  ASSERT_NE(record, nullptr);
  const PropertyReference* reference = record->propertyReferences;
  EXPECT_STREQ(reference->name, "Antecedent");
  EXPECT_STREQ(reference->referenceClass, "CIM_Fan");
  const LocalInstancePath* path = reference->valueReference->localInstancePath;
  EXPECT_STREQ(path->localNamespacePath->namespaces->name, "root/cimv2");
  EXPECT_EQ(path->localNamespacePath->namespaces->next, nullptr);
  EXPECT_STREQ(path->instanceName->keyBindings->keyValue->text, "fan1");
  Free_Instance(record);
}

// ---- Single objects ----

sandbox_local::ClassObject fan_class() {
  sandbox_local::ClassObject object("CIM_Fan");
  sandbox_local::member(object.properties, "FromClass") = sandbox_local::text("c");
  return object;
}

struct Lists {
  Property* properties = nullptr;
  PropertyArray* arrays = nullptr;
  PropertyReference* references = nullptr;
};

int collect(void* instance, void* broker_class, Lists& lists) {
  return GetInstanceProperties(instance, broker_class, &lists.properties, &lists.arrays,
                               &lists.references);
}

TEST(LocalResults, properties_come_from_the_class_when_there_is_one) {
  ScriptedBroker broker;
  sandbox_local::InstanceObject object =
      fan({{"FromInstance", sandbox_local::text("i")},
           {"Levels", array_of(code::uint16, {uint16(1)})},
           {"Antecedent", sandbox_local::reference(fan_path())}});
  sandbox_local::ClassObject of_class = fan_class();
  auto* instance = static_cast<sandbox_local::CIMCInstance*>(&object);
  auto* broker_class = static_cast<sandbox_local::CIMCClass*>(&of_class);
  Lists both;
  EXPECT_EQ(collect(instance, broker_class, both), 0);
  EXPECT_STREQ(both.properties->name, "FromClass");
  EXPECT_EQ(both.properties->next, nullptr);
  Free_Property(both.properties);
  Lists one;
  EXPECT_EQ(collect(instance, nullptr, one), 0);
  EXPECT_STREQ(one.properties->name, "FromInstance");
  EXPECT_STREQ(one.arrays->name, "Levels");
  EXPECT_STREQ(one.references->name, "Antecedent");
  Free_Property(one.properties);
  Free_PropertyArray(one.arrays);
  Free_PropertyReference(one.references);
}

TEST(LocalResults, a_property_that_cannot_be_read_gives_no_list_at_all) {
  ScriptedBroker broker;
  broker.script.refused = {"getClassName"};
  sandbox_local::InstanceObject object =
      fan({{"Speed", uint32(7)}, {"Antecedent", sandbox_local::reference(fan_path())}});
  Lists lists;
  EXPECT_EQ(collect(static_cast<sandbox_local::CIMCInstance*>(&object), nullptr, lists), -1);
  EXPECT_EQ(lists.properties, nullptr);
  EXPECT_EQ(lists.references, nullptr);
}

TEST(LocalResults, a_reference_to_a_path_without_keys_is_left_out) {
  ScriptedBroker broker;
  const sandbox_local::Path keyless("root/cimv2", "CIM_Chassis");
  Instance* record =
      mapped({{"Antecedent", sandbox_local::reference(keyless)}, {"Speed", uint32(7)}});
  ASSERT_NE(record, nullptr);
  EXPECT_STREQ(record->properties->name, "Speed");
  Free_Instance(record);
}

TEST(LocalResults, an_instance_is_mapped_into_a_record_at_hand) {
  ScriptedBroker broker;
  sandbox_local::InstanceObject object = fan({{"Speed", uint32(7)}});
  auto* record = static_cast<Instance*>(std::calloc(1, sizeof(Instance)));
  EXPECT_EQ(mapGetInstance(record, static_cast<sandbox_local::CIMCInstance*>(&object)), 0);
  EXPECT_EQ(taken(record, Gen_Instance, Free_Instance),
            "<INSTANCE CLASSNAME=\"CIM_Fan\"><PROPERTY NAME=\"Speed\" TYPE=\"uint32\">"
            "<VALUE>7</VALUE></PROPERTY></INSTANCE>");
}

TEST(LocalResults, an_instance_without_a_class_name_leaves_the_record_at_hand_alone) {
  ScriptedBroker broker;
  broker.script.refused = {"getClassName"};
  sandbox_local::InstanceObject object = fan({{"Speed", uint32(7)}});
  Instance record{};
  EXPECT_EQ(mapGetInstance(&record, static_cast<sandbox_local::CIMCInstance*>(&object)), -1);
  EXPECT_EQ(record.className, nullptr);
  EXPECT_EQ(record.properties, nullptr);
}

TEST(LocalResults, a_class_is_mapped_with_its_name_and_properties) {
  ScriptedBroker broker;
  sandbox_local::ClassObject object = fan_class();
  auto* record = static_cast<Class*>(std::calloc(1, sizeof(Class)));
  EXPECT_EQ(mapGetClass(static_cast<sandbox_local::CIMCClass*>(&object), record), 0);
  EXPECT_EQ(taken(record, Gen_Class, Free_Class),
            "<CLASS NAME=\"CIM_Fan\"><PROPERTY NAME=\"FromClass\" TYPE=\"string\">"
            "<VALUE>c</VALUE></PROPERTY></CLASS>");
}

TEST(LocalResults, elements_are_read_under_the_code_of_the_array_or_of_the_element) {
  ScriptedBroker broker;
  sandbox_local::ArrayObject object(0, code::uint16);
  object.elements = {uint16(5), uint16(6)};
  auto* array = static_cast<sandbox_local::CIMCArray*>(&object);
  for (const std::uint32_t asked : {144U, 8336U}) {
    Value* values = nullptr;
    EXPECT_EQ(getPropertyArrayData(&values, asked, array), 0);
    EXPECT_EQ(taken(values, Gen_Value, Free_Value), "<VALUE>5</VALUE><VALUE>6</VALUE>");
  }
  Value* values = nullptr;
  EXPECT_EQ(getPropertyArrayData(&values, 8336, nullptr), -1);
  EXPECT_EQ(getPropertyArrayData(nullptr, 8336, array), -1);
}

TEST(LocalResults, ten_thousand_instances_keep_their_order) {
  ScriptedBroker broker;
  broker.script.elements.emplace();
  for (std::uint32_t i = 0; i < 10000; ++i)
    broker.script.elements->push_back(sandbox_local::instance(fan({{"Number", uint32(i)}})));
  NamedInstance* result = nullptr;
  EXPECT_EQ(CIMC_EnumInstances(&result, "CIM_Fan", "", "u", "p", 0, nullptr, "root/cimv2"), 0);
  std::uint32_t count = 0;
  for (const NamedInstance* n = result; n; n = n->next, ++count)
    ASSERT_EQ(n->instance->properties->value->text, std::to_string(count));
  EXPECT_EQ(count, 10000U);
  Free_NamedInstance(result);
}

}  // namespace
