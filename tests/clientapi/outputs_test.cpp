// Output arguments of methods, one by one: what is missing in them, and what they hold oddly.
#include <gtest/gtest.h>

#include <string>

#include "clientapi/local_records.h"
#include "support/scripted_broker.h"

namespace {

using namespace support;
using sandbox_local::CIMCType;
using sandbox_local::CIMCValue;
using sandbox_local::Datum;
namespace code = sandbox_local::code;

// The bytes of the parameter that a value becomes; nothing when there is no value.
std::string parameter_of(CIMCType type, const CIMCValue* value) {
  auto* record = static_cast<ParamValue*>(std::calloc(1, sizeof(ParamValue)));
  EXPECT_EQ(CIMC_Handle_Invoke_ReturnValues(type, value, "P", record), 0);
  return taken(record, Gen_ParamValue, Free_ParamValue);
}

Datum array_of(CIMCType element, std::vector<Datum> elements) {
  sandbox_local::ArrayObject array(0, element);
  array.elements = std::move(elements);
  return sandbox_local::array(array);
}

TEST(LocalOutputs, an_argument_without_value_keeps_its_type) {
  const CIMCValue null{};
  for (const CIMCValue* value : {static_cast<const CIMCValue*>(nullptr), &null}) {
    EXPECT_EQ(parameter_of(code::reference, value),
              "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"reference\"></PARAMVALUE>");
    EXPECT_EQ(parameter_of(code::reference | code::array, value),
              "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"reference\"></PARAMVALUE>");
    EXPECT_EQ(parameter_of(code::uint8 | code::array, value),
              "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"uint8\"></PARAMVALUE>");
    EXPECT_EQ(parameter_of(code::instance | code::array, value),
              "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"string\"></PARAMVALUE>");
    EXPECT_EQ(parameter_of(code::datetime, value),
              "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"datetime\"></PARAMVALUE>");
  }
}

TEST(LocalOutputs, an_argument_without_a_name_has_none) {
  const Datum five = uint16(5);
  ParamValue record{};
  EXPECT_EQ(CIMC_Handle_Invoke_ReturnValues(five.type, &five.value, nullptr, &record), 0);
  EXPECT_EQ(record.name, nullptr);
  EXPECT_STREQ(record.paramType, "uint16");
  EXPECT_STREQ(record.value->text, "5");
  Free_Value(record.value);
  std::free(record.paramType);
}

TEST(LocalOutputs, a_false_boolean_is_0) {
  const CIMCValue value{};
  EXPECT_EQ(parameter_of(code::boolean, &value),
            "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"boolean\"><VALUE>0</VALUE></PARAMVALUE>");
}

TEST(LocalOutputs, a_text_longer_than_its_room_comes_whole) {
  ScriptedBroker broker;
  const std::string text(600, 'x');
  const Datum array = array_of(code::string, {sandbox_local::text(text)});
  EXPECT_EQ(parameter_of(array.type, &array.value),
            "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"string\"><VALUE.ARRAY><VALUE>" + text +
                "</VALUE></VALUE.ARRAY></PARAMVALUE>");
}

TEST(LocalOutputs, an_element_of_another_kind_is_not_followed) {
  ScriptedBroker broker;
  const Datum texts = array_of(code::string, {sandbox_local::text("a"), uint32(5)});
  EXPECT_EQ(parameter_of(texts.type, &texts.value),
            "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"string\"><VALUE.ARRAY><VALUE>a</VALUE>"
            "<VALUE>a</VALUE></VALUE.ARRAY></PARAMVALUE>");
  const Datum paths = array_of(code::reference, {uint32(5), sandbox_local::reference(fan_path()),
                                                 sandbox_local::null_of(code::reference)});
  EXPECT_EQ(parameter_of(paths.type, &paths.value),
            std::string("<PARAMVALUE NAME=\"P\" PARAMTYPE=\"reference\"><VALUE.REFARRAY>"
                        "<VALUE.REFERENCE><LOCALINSTANCEPATH>") +
                fan_name_bytes +
                "</LOCALINSTANCEPATH></VALUE.REFERENCE></VALUE.REFARRAY></PARAMVALUE>");
}

TEST(LocalOutputs, a_null_among_instances_is_an_empty_value) {
  ScriptedBroker broker;
  const Datum array = array_of(
      code::instance, {sandbox_local::null_of(code::instance), sandbox_local::instance(fan())});
  ParamValue record{};
  EXPECT_EQ(CIMC_Handle_Invoke_ReturnValues(array.type, &array.value, "P", &record), 0);
  const Value* values = record.valueArray->values;
  EXPECT_EQ(values->instance, nullptr);
  EXPECT_STREQ(values->next->instance->className->name, "CIM_Fan");
  EXPECT_EQ(values->next->next, nullptr);
  Free_ValueArray(record.valueArray);
  std::free(record.name);
  std::free(record.paramType);
}

TEST(LocalOutputs, nothing_to_read_and_no_place_to_store_fail) {
  ScriptedBroker broker;
  sandbox_local::Arguments arguments;
  sandbox_local::ArrayObject array(0, code::reference);
  ParamValue* parameters = nullptr;
  ValueRefArray* references = nullptr;
  EXPECT_EQ(CIMC_Handle_Invoke_ReturnValues(code::uint8, nullptr, "P", nullptr), -1);
  EXPECT_EQ(add_args_to_invoke_response(nullptr, &parameters), -1);
  EXPECT_EQ(add_args_to_invoke_response(static_cast<sandbox_local::CIMCArgs*>(&arguments), nullptr),
            -1);
  EXPECT_EQ(mapToValueReferenceList(nullptr, &references), -1);
  EXPECT_EQ(mapToValueReferenceList(static_cast<sandbox_local::CIMCArray*>(&array), nullptr), -1);
}

TEST(LocalOutputs, an_array_of_booleans_is_a_string_array_without_texts) {
  ScriptedBroker broker;
  const Datum truth = number(code::boolean, &CIMCValue::boolean, sandbox_local::CIMCBoolean{1});
  const Datum array = array_of(code::boolean, {truth, truth});
  ParamValue record{};
  EXPECT_EQ(CIMC_Handle_Invoke_ReturnValues(array.type, &array.value, "P", &record), 0);
  EXPECT_STREQ(record.paramType, "string");
  EXPECT_EQ(record.valueArray->values->text, nullptr);
  EXPECT_EQ(record.valueArray->values->next->text, nullptr);
  EXPECT_EQ(record.valueArray->values->next->next, nullptr);
  Free_ValueArray(record.valueArray);
  std::free(record.name);
  std::free(record.paramType);
}

}  // namespace
