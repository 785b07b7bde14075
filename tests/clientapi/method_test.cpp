// The local method call: arguments, return values and output parameters.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "clientapi/local_records.h"
#include "support/scripted_broker.h"

namespace {

using namespace support;
using sandbox_local::CIMCData;
using sandbox_local::CIMCValue;
namespace code = sandbox_local::code;

int invoke(ParamValue* in = nullptr, ParamValue** out = nullptr) {
  const LocalHandle handle;
  const Named name("CIM_Fan");
  ParamValue* ignored = nullptr;
  Error* error = nullptr;
  const int result = invokeMethod(handle.get, name.get, "Stop", in, out ? out : &ignored, &error);
  Free_Error(error);
  Free_ParamValue(ignored);
  return result;
}

template <class Number>
int invoke_returning(sandbox_local::CIMCType type, Number CIMCValue::*place, Number value) {
  ScriptedBroker broker;
  broker.script.returned = number(type, place, value).data();
  return invoke();
}

ParamValue* parameter(const char* name, const char* type, const char* text) {
  auto* made = static_cast<ParamValue*>(std::calloc(1, sizeof(ParamValue)));
  Clone_CIMName(name, &made->name);
  Clone_ParamType(type, &made->paramType);
  if (text) AddToValueList(&made->value, text);
  return made;
}

TEST(LocalMethod, return_values_saturate_at_32_bits) {
  EXPECT_EQ(invoke_returning(code::boolean, &CIMCValue::boolean, sandbox_local::CIMCBoolean{1}), 1);
  EXPECT_EQ(invoke_returning(code::uint8, &CIMCValue::uint8, std::uint8_t{200}), 200);
  EXPECT_EQ(invoke_returning(code::sint8, &CIMCValue::sint8, std::int8_t{-56}), -56);
  EXPECT_EQ(invoke_returning(code::uint16, &CIMCValue::uint16, std::uint16_t{65535}), 65535);
  EXPECT_EQ(invoke_returning(code::sint16, &CIMCValue::sint16, std::int16_t{-3}), -3);
  EXPECT_EQ(invoke_returning(code::uint32, &CIMCValue::uint32, std::uint32_t{4294967295}),
            2147483647);
  EXPECT_EQ(invoke_returning(code::sint32, &CIMCValue::sint32, std::int32_t{-7}), -7);
  EXPECT_EQ(
      invoke_returning(code::uint64, &CIMCValue::uint64, std::numeric_limits<std::uint64_t>::max()),
      2147483647);
  EXPECT_EQ(
      invoke_returning(code::sint64, &CIMCValue::sint64, std::numeric_limits<std::int64_t>::min()),
      -2147483647 - 1);
}

TEST(LocalMethod, a_string_returns_0_and_is_not_followed) {
  ScriptedBroker broker;
  CIMCValue value{};
  value.chars = reinterpret_cast<char*>(0x10);  // nothing that could be read
  for (const int text : {int{code::chars}, 5632, 5634, 5884, 5888, 7680}) {
    broker.script.returned = {static_cast<sandbox_local::CIMCType>(text), 0, value};
    EXPECT_EQ(invoke(), 0) << text;
  }
}

TEST(LocalMethod, an_error_with_a_text_returns_the_status_code) {
  ScriptedBroker broker;
  broker.script.code = 17;
  broker.script.message = "no such method";
  EXPECT_EQ(invoke(), 17);
}

TEST(LocalMethod, arguments_carry_their_types) {
  ScriptedBroker broker;
  ParamValue* in = parameter("S", "string", "text");
  in->next = parameter("B", "boolean", "TRUE");
  in->next->next = parameter("L", "boolean", "true");
  in->next->next->next = parameter("U", "uint64", "5000000000");
  in->next->next->next->next = parameter("D", "datetime", "20240101000000.000000+000");
  in->next->next->next->next->next = parameter("R", "real32", "1.5");
  invoke(in);
  EXPECT_TRUE(broker.was_called("addArg S 5632 \"text\""));
  EXPECT_TRUE(broker.was_called("addArg B 2 boolean true"));
  EXPECT_TRUE(broker.was_called("addArg L 2 boolean false"));        // lower case is no TRUE
  EXPECT_TRUE(broker.was_called("addArg U 176 uint64 2147483647"));  // as a 32-bit long reads it
  EXPECT_TRUE(broker.was_called("addArg D 6144 datetime 20240101000000.000000+000"));
  for (const std::string& call : broker.calls()) EXPECT_EQ(call.find("addArg R"), call.npos);
  Free_ParamValue(in);
}

TEST(LocalMethod, an_array_goes_out_under_the_bare_array_code) {
  ScriptedBroker broker;
  ParamValue* in = parameter("A", "uint16", nullptr);
  in->valueArray = static_cast<ValueArray*>(std::calloc(1, sizeof(ValueArray)));
  AddToValueList(&in->valueArray->values, "1");
  AddToValueList(&in->valueArray->values, "2");
  invoke(in);
  EXPECT_TRUE(broker.was_called("newArray 2 144"));
  EXPECT_TRUE(broker.was_called("addArg A 8192 [uint16 1, uint16 2]"));
  Free_ParamValue(in);
}

TEST(LocalMethod, a_reference_goes_out_as_a_path_in_the_namespace_at_hand) {
  ScriptedBroker broker;
  ParamValue* in = parameter("R", "reference", nullptr);
  const Named target("CIM_Chassis", {{"Tag", "chassis1"}});
  in->valueReference = static_cast<ValueReference*>(std::calloc(1, sizeof(ValueReference)));
  in->valueReference->instanceName = target.get;
  invoke(in);
  EXPECT_TRUE(broker.was_called("addArg R 4352 reference root/cimv2:CIM_Chassis.Tag=\"chassis1\""));
  in->valueReference->instanceName = nullptr;
  Free_ParamValue(in);
}

TEST(LocalMethod, an_embedded_instance_goes_out_with_its_properties) {
  ScriptedBroker broker;
  ParamValue* in = parameter("I", "string", nullptr);
  in->value = static_cast<Value*>(std::calloc(1, sizeof(Value)));
  in->value->isCData = 1;
  Property* properties = nullptr;
  char room[] = "N-1";
  AddToProeprtyList(&properties, "Room", room, "string");
  AddToInstanceList(&in->value->instance, CIMC_CreateClassName("Sandbox_Location"), nullptr,
                    nullptr, properties);
  invoke(in);
  EXPECT_TRUE(broker.was_called("addArg I 4096 instance of Sandbox_Location { Room=\"N-1\" }"));
  Free_ParamValue(in);
}

TEST(LocalMethod, arrays_of_embedded_instances_go_out_as_instances) {
  ScriptedBroker broker;
  ParamValue* in = parameter("I", "string", nullptr);
  in->valueArray = static_cast<ValueArray*>(std::calloc(1, sizeof(ValueArray)));
  in->valueArray->values = static_cast<Value*>(std::calloc(1, sizeof(Value)));
  AddToInstanceList(&in->valueArray->values->instance, CIMC_CreateClassName("Sandbox_Location"),
                    nullptr, nullptr, nullptr);
  invoke(in);
  EXPECT_TRUE(broker.was_called("newArray 1 4096"));
  EXPECT_TRUE(broker.was_called("addArg I 8192 [instance of Sandbox_Location { }]"));
  Free_ParamValue(in);
}

// The second step of a parameter does not ask what the first has added.
TEST(LocalMethod, a_parameter_with_array_and_text_arrives_twice) {
  ScriptedBroker broker;
  ParamValue* in = parameter("P", "uint8", "9");
  in->valueArray = static_cast<ValueArray*>(std::calloc(1, sizeof(ValueArray)));
  AddToValueList(&in->valueArray->values, "1");
  invoke(in);
  EXPECT_TRUE(broker.was_called("addArg P 8192 [uint8 1]"));
  EXPECT_TRUE(broker.was_called("addArg P 128 uint8 9"));
  Free_ParamValue(in);
}

TEST(LocalMethod, an_argument_that_cannot_be_made_leaves_the_method_uncalled) {
  ScriptedBroker broker;
  ParamValue* in = parameter("A", "uint16", nullptr);
  in->valueArray = static_cast<ValueArray*>(std::calloc(1, sizeof(ValueArray)));  // no values
  EXPECT_EQ(invoke(in), 2);
  for (const std::string& call : broker.calls()) EXPECT_EQ(call.find("invokeMethod"), call.npos);
  Free_ParamValue(in);
}

// ---- Output parameters ----

std::string outputs(std::vector<sandbox_local::Member> out) {
  ScriptedBroker broker;
  broker.script.out = std::move(out);
  ParamValue* parameters = nullptr;
  invoke(nullptr, &parameters);
  return taken(parameters, Gen_ParamValue, Free_ParamValue);
}

TEST(LocalMethod, booleans_come_out_as_1_and_0) {
  EXPECT_EQ(
      outputs({{"B", number(code::boolean, &CIMCValue::boolean, sandbox_local::CIMCBoolean{1})}}),
      "<PARAMVALUE NAME=\"B\" PARAMTYPE=\"boolean\"><VALUE>1</VALUE></PARAMVALUE>");
}

TEST(LocalMethod, numbers_and_texts_come_out_with_their_types) {
  EXPECT_EQ(outputs({{"U", number(code::uint64, &CIMCValue::uint64,
                                  std::numeric_limits<std::uint64_t>::max())},
                     {"S", sandbox_local::text("text")}}),
            "<PARAMVALUE NAME=\"U\" PARAMTYPE=\"uint64\"><VALUE>18446744073709551615</VALUE>"
            "</PARAMVALUE><PARAMVALUE NAME=\"S\" PARAMTYPE=\"string\"><VALUE>text</VALUE>"
            "</PARAMVALUE>");
}

TEST(LocalMethod, a_parameter_without_value_keeps_its_type) {
  EXPECT_EQ(outputs({{"U", sandbox_local::null_of(code::uint32)}}),
            "<PARAMVALUE NAME=\"U\" PARAMTYPE=\"uint32\"></PARAMVALUE>");
}

TEST(LocalMethod, an_element_without_text_repeats_the_text_before_it) {
  sandbox_local::ArrayObject array(3, code::string);
  array.elements = {sandbox_local::text("a"), sandbox_local::null_of(code::string),
                    sandbox_local::text("b")};
  EXPECT_EQ(outputs({{"A", sandbox_local::array(array)}}),
            "<PARAMVALUE NAME=\"A\" PARAMTYPE=\"string\"><VALUE.ARRAY><VALUE>a</VALUE>"
            "<VALUE>a</VALUE><VALUE>b</VALUE></VALUE.ARRAY></PARAMVALUE>");
}

TEST(LocalMethod, an_array_of_instances_is_a_string_array_with_embedded_instances) {
  sandbox_local::ArrayObject array(1, code::instance);
  array.elements = {sandbox_local::instance(fan({{"Speed", uint32(7)}}))};
  ScriptedBroker broker;
  broker.script.out = {{"I", sandbox_local::array(array)}};
  ParamValue* parameters = nullptr;
  invoke(nullptr, &parameters);
  ASSERT_NE(parameters, nullptr);
  EXPECT_STREQ(parameters->paramType, "string");
  const Value* value = parameters->valueArray->values;
  EXPECT_EQ(value->text, nullptr);
  EXPECT_STREQ(value->instance->className->name, "CIM_Fan");
  EXPECT_STREQ(value->instance->properties->value->text, "7");
  Free_ParamValue(parameters);
}

TEST(LocalMethod, a_reference_comes_out_as_a_local_path_and_as_a_text) {
  ScriptedBroker broker;
  broker.script.out = {{"R", sandbox_local::reference(fan_path())}};
  ParamValue* parameters = nullptr;
  invoke(nullptr, &parameters);
  ASSERT_NE(parameters, nullptr);
  EXPECT_STREQ(parameters->paramType, "reference");
  EXPECT_STREQ(parameters->value->text, "root/cimv2:CIM_Fan.DeviceID=\"fan1\"");
  const LocalInstancePath* path = parameters->valueReference->localInstancePath;
  EXPECT_EQ(path->localNamespacePath, nullptr);
  EXPECT_STREQ(path->instanceName->keyBindings->keyValue->text, "fan1");
  Free_ParamValue(parameters);
}

// Codes that are not handed out leave a record without anything, even without its name.
TEST(LocalMethod, a_real_or_a_char_comes_out_as_an_empty_parameter) {
  ScriptedBroker broker;
  broker.script.out = {{"R", number(code::real64, &CIMCValue::real64, 1.5)},
                       {"C", number(code::char16, &CIMCValue::char16, std::uint16_t{65})}};
  ParamValue* parameters = nullptr;
  invoke(nullptr, &parameters);
  for (const ParamValue* p : {parameters, parameters->next}) {
    EXPECT_EQ(p->name, nullptr);
    EXPECT_EQ(p->paramType, nullptr);
    EXPECT_EQ(p->value, nullptr);
    EXPECT_EQ(p->valueArray, nullptr);
    EXPECT_EQ(p->valueReference, nullptr);
  }
  EXPECT_EQ(parameters->next->next, nullptr);
  Free_ParamValue(parameters);
}

TEST(LocalMethod, the_first_element_without_text_is_empty) {
  sandbox_local::ArrayObject array(2, code::string);
  array.elements = {sandbox_local::null_of(code::string), sandbox_local::text("b")};
  EXPECT_EQ(outputs({{"A", sandbox_local::array(array)}}),
            "<PARAMVALUE NAME=\"A\" PARAMTYPE=\"string\"><VALUE.ARRAY><VALUE></VALUE>"
            "<VALUE>b</VALUE></VALUE.ARRAY></PARAMVALUE>");
}

TEST(LocalMethod, arrays_of_other_types_come_out_as_strings_without_text) {
  ScriptedBroker broker;
  sandbox_local::ArrayObject array(2, code::real64);
  array.elements = {number(code::real64, &CIMCValue::real64, 1.5),
                    number(code::real64, &CIMCValue::real64, 2.5)};
  broker.script.out = {{"R", sandbox_local::array(array)}};
  ParamValue* parameters = nullptr;
  invoke(nullptr, &parameters);
  ASSERT_NE(parameters, nullptr);
  EXPECT_STREQ(parameters->paramType, "string");
  const Value* value = parameters->valueArray->values;
  EXPECT_EQ(value->text, nullptr);
  EXPECT_EQ(value->instance, nullptr);
  EXPECT_EQ(value->next->text, nullptr);
  EXPECT_EQ(value->next->next, nullptr);
  Free_ParamValue(parameters);
}

TEST(LocalMethod, an_array_of_references_comes_out_as_local_paths) {
  ScriptedBroker broker;
  sandbox_local::ArrayObject array(2, code::reference);
  array.elements = {sandbox_local::reference(fan_path("fan1")),
                    sandbox_local::reference(fan_path("fan2"))};
  broker.script.out = {{"R", sandbox_local::array(array)}};
  ParamValue* parameters = nullptr;
  invoke(nullptr, &parameters);
  ASSERT_NE(parameters, nullptr);
  EXPECT_STREQ(parameters->paramType, "reference");
  const ValueReference* reference = parameters->valueRefArray->valueReferences;
  for (const char* id : {"fan1", "fan2"}) {
    EXPECT_STREQ(reference->localInstancePath->instanceName->keyBindings->keyValue->text, id);
    reference = reference->next;
  }
  EXPECT_EQ(reference, nullptr);
  Free_ParamValue(parameters);
}

TEST(LocalMethod, array_texts_have_room_of_512_bytes) {
  sandbox_local::ArrayObject array(1, code::uint8);
  array.elements = {number(code::uint8, &CIMCValue::uint8, std::uint8_t{5})};
  ScriptedBroker broker;
  broker.script.out = {{"A", sandbox_local::array(array)}};
  ParamValue* parameters = nullptr;
  invoke(nullptr, &parameters);
  char* text = parameters->valueArray->values->text;
  EXPECT_EQ(std::string(text, 512), std::string("5") + std::string(511, '\0'));
  Free_ParamValue(parameters);
}

}  // namespace
