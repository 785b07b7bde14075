// Arguments of a method call, added one by one.
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "clientapi/local_records.h"
#include "support/scripted_broker.h"

namespace {

using namespace support;
using sandbox_local::CIMCArgs;
using sandbox_local::CIMCEnv;
using sandbox_local::CIMCEnvFT;
using sandbox_local::CIMCString;
using Texts = std::vector<std::string>;

constexpr char name_space[] = "root/cimv2";

// A broker, and the arguments that a test adds to.
class LocalArguments : public testing::Test {
 protected:
  LocalArguments()
      : env_(static_cast<CIMCEnv*>(getCIMCEnv("SfcbLocal", 0, &code_, &message_))),
        args_(env_->ft->newArgs(env_, nullptr)) {}
  ~LocalArguments() override {
    args_->ft->release(args_);
    env_->ft->release(env_);
  }

  // The calls of addArg, in order: name, type code and value of each.
  Texts added() const {
    Texts found;
    for (const std::string& call : broker_.calls())
      if (call.starts_with("addArg ")) found.push_back(call.substr(sizeof "addArg"));
    return found;
  }

  int code_ = -1;
  char* message_ = nullptr;
  ScriptedBroker broker_;
  CIMCEnv* env_;
  CIMCArgs* args_;
};

template <class R>
R* record() {
  return static_cast<R*>(std::calloc(1, sizeof(R)));
}

struct ReleaseParameters {
  void operator()(ParamValue* list) const { Free_ParamValue(list); }
};
using Parameter = std::unique_ptr<ParamValue, ReleaseParameters>;

// A parameter called P; null leaves type or text out.
Parameter parameter(const char* type, const char* text = nullptr) {
  Parameter made(record<ParamValue>());
  Clone_CIMName("P", &made->name);
  if (type) Clone_ParamType(type, &made->paramType);
  if (text) AddToValueList(&made->value, text);
  return made;
}

void take_name_away(ParamValue& parameter) {
  Free_CIMName(parameter.name);
  parameter.name = nullptr;
}

Parameter array(const char* type, std::initializer_list<const char*> values) {
  Parameter made = parameter(type);
  made->valueArray = record<ValueArray>();
  for (const char* value : values) AddToValueList(&made->valueArray->values, value);
  return made;
}

Instance* location(const char* room) {
  Property* properties = nullptr;
  std::string text = room;
  AddToProeprtyList(&properties, "Room", text.data(), "string");
  Instance* made = nullptr;
  AddToInstanceList(&made, CIMC_CreateClassName("Sandbox_Location"), nullptr, nullptr, properties);
  return made;
}

void take_class_away(Instance& instance) {
  Free_ClassName(instance.className);
  instance.className = nullptr;
}

Parameter embedded(const char* room) {
  Parameter made = parameter("string");
  made->value = record<Value>();
  made->value->instance = location(room);
  return made;
}

Parameter embedded_array(std::initializer_list<const char*> rooms) {
  Parameter made = parameter("string");
  made->valueArray = record<ValueArray>();
  Value** last = &made->valueArray->values;
  for (const char* room : rooms) {
    *last = record<Value>();
    if (room) (*last)->instance = location(room);
    last = &(*last)->next;
  }
  return made;
}

Parameter reference(const char* type = "reference") {
  Parameter made = parameter(type);
  made->valueReference = record<ValueReference>();
  KeyBinding* keys = nullptr;
  AddToKeyBindingListRef(&keys, "Tag", "chassis1", "string", nullptr);
  AddToInstanceNameList(&made->valueReference->instanceName, keys,
                        CIMC_CreateClassName("CIM_Chassis"), nullptr);
  return made;
}

constexpr char chassis[] = "P 4352 reference root/cimv2:CIM_Chassis.Tag=\"chassis1\"";

// ---- Texts ----

TEST_F(LocalArguments, each_type_goes_out_under_its_code) {
  const struct {
    const char* type;
    const char* text;
    const char* argument;
  } cases[] = {
      {"uint8", "200", "P 128 uint8 200"},
      {"uint16", "65535", "P 144 uint16 65535"},
      {"uint32", "7", "P 160 uint32 7"},
      {"uint64", "5000000000", "P 176 uint64 2147483647"},
      {"sint8", "-1", "P 192 sint8 -1"},
      {"sint16", "-300", "P 208 sint16 -300"},
      {"sint32", "-2147483649", "P 224 sint32 -2147483648"},
      {"sint64", "-5", "P 240 sint64 -5"},
      {"uint8", "no number", "P 128 uint8 0"},
      {"boolean", "TRUE", "P 2 boolean true"},
      {"boolean", "FALSE", "P 2 boolean false"},
      {"datetime", "20240101000000.000000+000", "P 6144 datetime 20240101000000.000000+000"}};
  for (const auto& [type, text, argument] : cases) {
    EXPECT_EQ(CIMC_CreatePropertyArguments(parameter(type, text).get(), args_, env_), 0);
    EXPECT_EQ(added().back(), argument);
  }
  EXPECT_EQ(added().size(), std::size(cases));
}

// The slot of the value is zero then, whatever was on the stack.
TEST_F(LocalArguments, a_boolean_with_another_text_is_false) {
  EXPECT_EQ(CIMC_CreatePropertyArguments(parameter("boolean", "perhaps").get(), args_, env_), 0);
  EXPECT_EQ(added(), Texts{"P 2 boolean false"});
}

// Where the environment of a test notes the strings that it has made.
Texts made_texts;
std::vector<CIMCString*> made_strings;

TEST_F(LocalArguments, the_object_of_a_string_is_not_released) {
  static const CIMCEnvFT* table = nullptr;
  table = env_->ft;
  CIMCEnvFT noting = *table;
  noting.newString = [](CIMCEnv* env, const char* text, sandbox_local::CIMCStatus* status) {
    made_texts.emplace_back(text);
    return made_strings.emplace_back(table->newString(env, text, status));
  };
  env_->ft = &noting;
  EXPECT_EQ(CIMC_CreatePropertyArguments(parameter("string", "text").get(), args_, env_), 0);
  env_->ft = const_cast<CIMCEnvFT*>(table);
  EXPECT_EQ(added(), Texts{"P 5632 \"text\""});
  EXPECT_EQ(made_texts, Texts{"text"});
  for (CIMCString* text : made_strings) text->ft->release(text);  // once: the ledger holds it so
}

TEST_F(LocalArguments, types_that_are_not_sent_add_nothing_and_are_no_failure) {
  for (const char* type : {"real32", "real64", "char16", "reference", "UINT8"})
    EXPECT_EQ(CIMC_CreatePropertyArguments(parameter(type, "1").get(), args_, env_), 0);
  EXPECT_EQ(added(), Texts());
}

TEST_F(LocalArguments, a_text_needs_name_type_and_value) {
  EXPECT_EQ(CIMC_CreatePropertyArguments(nullptr, args_, env_), -1);
  EXPECT_EQ(CIMC_CreatePropertyArguments(parameter("uint8").get(), args_, env_), -1);
  EXPECT_EQ(CIMC_CreatePropertyArguments(embedded("N-1").get(), args_, env_), -1);
  EXPECT_EQ(CIMC_CreatePropertyArguments(parameter(nullptr, "1").get(), args_, env_), -1);
  const Parameter nameless = parameter("uint8", "1");
  take_name_away(*nameless);
  EXPECT_EQ(CIMC_CreatePropertyArguments(nameless.get(), args_, env_), -1);
  EXPECT_EQ(added(), Texts());
}

TEST_F(LocalArguments, an_object_that_the_broker_does_not_make_is_not_added) {
  broker_.script.refused = {"string", "date-time"};
  EXPECT_EQ(CIMC_CreatePropertyArguments(parameter("string", "text").get(), args_, env_), -1);
  EXPECT_EQ(CIMC_CreatePropertyArguments(parameter("datetime", "never").get(), args_, env_), 0);
  EXPECT_EQ(added(), Texts());
}

// ---- Arrays ----

TEST_F(LocalArguments, every_array_goes_out_under_the_bare_array_code) {
  const auto add = [&](const Parameter& made) {
    return CIMC_CreatePropertyArrayArguments(made.get(), name_space, args_, env_);
  };
  EXPECT_EQ(add(array("uint16", {"1", "2"})), 0);
  EXPECT_EQ(add(array("sint64", {"-1"})), 0);
  EXPECT_EQ(add(array("string", {"a", "b"})), 0);
  EXPECT_EQ(add(embedded_array({"N-1", nullptr, "N-2"})), 0);
  EXPECT_EQ(added(),
            (Texts{"P 8192 [uint16 1, uint16 2]", "P 8192 [sint64 -1]", "P 8192 [\"a\", \"b\"]",
                   "P 8192 [instance of Sandbox_Location { Room=\"N-1\" }, null 4096, "
                   "instance of Sandbox_Location { Room=\"N-2\" }]"}));
}

TEST_F(LocalArguments, arrays_of_other_types_add_nothing_and_are_no_failure) {
  for (const char* type : {"boolean", "datetime", "real32", "char16"})
    EXPECT_EQ(CIMC_CreatePropertyArrayArguments(array(type, {"1"}).get(), name_space, args_, env_),
              0);
  EXPECT_EQ(added(), Texts());
}

TEST_F(LocalArguments, an_array_needs_name_type_and_a_first_text) {
  const auto add = [&](const ParamValue* made) {
    return CIMC_CreatePropertyArrayArguments(made, name_space, args_, env_);
  };
  EXPECT_EQ(add(nullptr), -1);
  EXPECT_EQ(add(parameter("uint8").get()), -1);
  EXPECT_EQ(add(array("uint8", {}).get()), -1);
  EXPECT_EQ(add(array(nullptr, {"1"}).get()), -1);
  const Parameter nameless = array("uint8", {"1"});
  take_name_away(*nameless);
  EXPECT_EQ(add(nameless.get()), -1);
  const Parameter textless = parameter("uint8");
  textless->valueArray = record<ValueArray>();
  textless->valueArray->values = record<Value>();
  EXPECT_EQ(add(textless.get()), -1);
  EXPECT_EQ(added(), Texts());
}

TEST_F(LocalArguments, an_array_that_the_broker_does_not_make_fails) {
  broker_.script.refused = {"array"};
  for (const Parameter& made : {array("uint8", {"1"}), embedded_array({"N-1"})})
    EXPECT_EQ(CIMC_CreatePropertyArrayArguments(made.get(), name_space, args_, env_), -1);
  EXPECT_EQ(added(), Texts());
}

TEST_F(LocalArguments, an_array_with_an_instance_that_cannot_be_made_is_not_added) {
  const Parameter classless = embedded_array({"N-1", "N-2"});
  take_class_away(*classless->valueArray->values->next->instance);
  EXPECT_EQ(CIMC_CreatePropertyArrayArguments(classless.get(), name_space, args_, env_), -1);
  EXPECT_EQ(added(), Texts());
}

// ---- References ----

TEST_F(LocalArguments, a_reference_goes_out_as_a_path) {
  EXPECT_EQ(CIMC_CreateValueRefArguments(reference().get(), name_space, args_, env_), 0);
  EXPECT_EQ(added(), Texts{chassis});
}

TEST_F(LocalArguments, the_local_path_of_a_reference_goes_before_its_plain_name) {
  const Parameter both = reference();
  auto* path = both->valueReference->localInstancePath = record<LocalInstancePath>();
  EXPECT_EQ(CIMC_CreateValueRefArguments(both.get(), name_space, args_, env_), 0);
  AddToInstanceNameList(&path->instanceName, nullptr, CIMC_CreateClassName("CIM_Rack"), nullptr);
  EXPECT_EQ(CIMC_CreateValueRefArguments(both.get(), name_space, args_, env_), 0);
  EXPECT_EQ(added(), (Texts{chassis, "P 4352 reference root/cimv2:CIM_Rack"}));
}

TEST_F(LocalArguments, a_reference_needs_names_a_class_and_whole_keys) {
  const auto add = [&](const ParamValue* made) {
    return CIMC_CreateValueRefArguments(made, name_space, args_, env_);
  };
  EXPECT_EQ(add(nullptr), -1);
  EXPECT_EQ(add(parameter("reference").get()), -1);
  const Parameter nameless = reference();
  take_name_away(*nameless);
  EXPECT_EQ(add(nameless.get()), -1);
  const Parameter classless = reference();
  Free_ClassName(classless->valueReference->instanceName->className);
  classless->valueReference->instanceName->className = nullptr;
  EXPECT_EQ(add(classless.get()), -1);
  const Parameter keyless = reference();
  KeyBinding* key = keyless->valueReference->instanceName->keyBindings;
  Free_PCData(key->keyValue->text);
  key->keyValue->text = nullptr;
  EXPECT_EQ(add(keyless.get()), -1);
  Free_KeyValue(key->keyValue);
  key->keyValue = nullptr;
  EXPECT_EQ(add(keyless.get()), -1);
  Free_CIMName(key->name);
  key->name = nullptr;
  EXPECT_EQ(add(keyless.get()), -1);
  EXPECT_EQ(added(), Texts());
}

TEST_F(LocalArguments, a_path_that_the_broker_does_not_make_fails) {
  broker_.script.refused = {"object path"};
  EXPECT_EQ(CIMC_CreateValueRefArguments(reference().get(), name_space, args_, env_), -1);
  EXPECT_EQ(CIMC_CreateCDataArgument(embedded("N-1").get(), name_space, args_, env_), -1);
  EXPECT_EQ(added(), Texts());
}

// ---- Embedded instances ----

TEST_F(LocalArguments, an_embedded_instance_goes_out_with_its_properties) {
  EXPECT_EQ(CIMC_CreateCDataArgument(embedded("N-1").get(), name_space, args_, env_), 0);
  EXPECT_EQ(added(), Texts{"P 4096 instance of Sandbox_Location { Room=\"N-1\" }"});
  EXPECT_TRUE(broker_.was_called("newObjectPath \"root/cimv2\" \"Sandbox_Location\""));
}

TEST_F(LocalArguments, an_embedded_instance_needs_every_piece) {
  const auto add = [&](const ParamValue* made) {
    return CIMC_CreateCDataArgument(made, name_space, args_, env_);
  };
  EXPECT_EQ(add(nullptr), -1);
  EXPECT_EQ(add(parameter("string").get()), -1);
  EXPECT_EQ(add(parameter("string", "no instance").get()), -1);
  const Parameter nameless = embedded("N-1");
  take_name_away(*nameless);
  EXPECT_EQ(add(nameless.get()), -1);
  const Parameter classless = embedded("N-1");
  take_class_away(*classless->value->instance);
  EXPECT_EQ(add(classless.get()), -1);
  broker_.script.refused = {"instance"};
  EXPECT_EQ(add(embedded("N-1").get()), -1);
  EXPECT_EQ(added(), Texts());
}

// ---- Lists ----

TEST_F(LocalArguments, no_parameters_are_no_failure) {
  EXPECT_EQ(add_args_to_invoke_req(nullptr, name_space, args_, env_), 0);
  EXPECT_EQ(added(), Texts());
}

TEST_F(LocalArguments, a_parameter_without_a_type_is_taken_for_a_reference) {
  EXPECT_EQ(add_args_to_invoke_req(reference(nullptr).get(), name_space, args_, env_), 0);
  EXPECT_EQ(add_args_to_invoke_req(parameter(nullptr, "1").get(), name_space, args_, env_), 0);
  const Parameter nameless = parameter("uint8", "1");
  take_name_away(*nameless);
  EXPECT_EQ(add_args_to_invoke_req(nameless.get(), name_space, args_, env_), 0);
  EXPECT_EQ(added(), Texts{chassis});
}

TEST_F(LocalArguments, a_text_goes_before_a_reference_of_the_same_parameter) {
  const Parameter both = reference("uint8");
  AddToValueList(&both->value, "5");
  EXPECT_EQ(add_args_to_invoke_req(both.get(), name_space, args_, env_), 0);
  EXPECT_EQ(added(), Texts{"P 128 uint8 5"});
}

TEST_F(LocalArguments, a_parameter_with_nothing_to_send_is_passed_over) {
  const Parameter empty = parameter("uint8");
  empty->next = parameter("reference").release();
  empty->next->valueRefArray = record<ValueRefArray>();  // lists of references are not sent
  empty->next->next = reference().release();
  EXPECT_EQ(add_args_to_invoke_req(empty.get(), name_space, args_, env_), 0);
  EXPECT_EQ(added(), Texts{chassis});
}

TEST_F(LocalArguments, an_instance_or_array_that_cannot_be_made_ends_the_list) {
  const Parameter list = parameter("uint8", "1");
  list->next = array("uint8", {}).release();
  list->next->next = parameter("uint8", "3").release();
  EXPECT_EQ(add_args_to_invoke_req(list.get(), name_space, args_, env_), -1);
  const Parameter classless = embedded("N-1");
  take_class_away(*classless->value->instance);
  EXPECT_EQ(add_args_to_invoke_req(classless.get(), name_space, args_, env_), -1);
  EXPECT_EQ(added(), Texts{"P 128 uint8 1"});
}

}  // namespace
