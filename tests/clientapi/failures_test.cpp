// What the local operations give when the broker fails.
#include <gtest/gtest.h>

#include <map>

#include "clientapi/local_operations.h"
#include "clientapi/local_records.h"
#include "support/captured_output.h"

namespace {

using namespace support;

constexpr char name_space[] = "root/cimv2";

// CreateInstance hands out what it could read of the new instance's name: here nothing.
std::string created_without_name() {
  return Answer::of<Gen_InstanceName, Free_InstanceName>(
             0, static_cast<InstanceName*>(std::calloc(1, sizeof(InstanceName))))
      .text();
}

class LocalFailure : public testing::TestWithParam<LocalOperation> {
 protected:
  // The return value; nothing may have been stored.
  int call(const char* given_name_space = name_space) {
    const Answer answer = GetParam().call(&error_, given_name_space);
    EXPECT_EQ(answer.text(), std::to_string(answer.result()));
    return answer.result();
  }

  // What after an error with a text is returned.
  int after_error(int code) const {
    const bool tells_code = GetParam().after_error == 5;
    return tells_code ? code : GetParam().after_error;
  }

  ScriptedBroker broker_;
  Error* error_ = nullptr;
};

TEST_P(LocalFailure, without_a_connection_asks_nothing_and_standard_output_says_so) {
  broker_.script.connects = false;
  std::string said;
  {
    const CapturedOutput output(stdout);
    EXPECT_EQ(call(), GetParam().failure);
    said = output.text();
  }
  EXPECT_EQ(said, " failed the call to connect \n");
  EXPECT_EQ(error_, nullptr);
  EXPECT_EQ(broker_.calls().size(), 3U);
  EXPECT_EQ(broker_.calls().back(), "release environment");
}

TEST_P(LocalFailure, of_any_status_with_a_text_becomes_an_error_record) {
  for (const int code : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 100, 200}) {
    broker_.script.code = code;
    broker_.script.message = "what went wrong";
    EXPECT_EQ(call(), after_error(code));
    EXPECT_EQ(taken(std::exchange(error_, nullptr)), std::to_string(code) + ": what went wrong");
  }
}

TEST_P(LocalFailure, with_an_empty_text_still_makes_an_error_record) {
  broker_.script.code = 11;
  broker_.script.message = "";
  EXPECT_EQ(call(), after_error(11));
  EXPECT_EQ(taken(error_), "11: ");
}

TEST_P(LocalFailure, without_a_text_leaves_the_slot_alone) {
  for (const int code : {1, 5, 17, 100, 200}) {
    broker_.script.code = code;
    EXPECT_EQ(call(), GetParam().after_silent_error);
    EXPECT_EQ(error_, nullptr);
  }
}

TEST_P(LocalFailure, of_a_missing_namespace_does_not_ask_the_broker) {
  EXPECT_EQ(call(nullptr), GetParam().failure);
  EXPECT_FALSE(broker_.was_asked("newObjectPath"));
  EXPECT_FALSE(broker_.was_asked(GetParam().broker_call));
  EXPECT_EQ(error_, nullptr);
}

TEST_P(LocalFailure, to_make_a_path_does_not_ask_the_broker) {
  broker_.script.refused = {"object path"};
  EXPECT_EQ(call(), GetParam().failure);
  EXPECT_FALSE(broker_.was_asked(GetParam().broker_call));
  EXPECT_EQ(error_, nullptr);
}

// A record that the broker never gave is not made up.
TEST_P(LocalFailure, to_give_an_object_in_spite_of_success_stores_nothing) {
  const Answer answer = GetParam().call(&error_, name_space);
  const std::string name = GetParam().name;
  if (name == "CreateInstance") {
    EXPECT_EQ(answer.text(), created_without_name());
    return;
  }
  EXPECT_EQ(answer.text(), std::to_string(answer.result()));
  EXPECT_EQ(error_, nullptr);
}

// What has no class name cannot become a record.
TEST_P(LocalFailure, to_tell_a_class_name_stores_nothing) {
  const std::map<std::string, std::string> expected = {{"EnumInstances", "0"},
                                                       {"EnumInstanceNames", "0"},
                                                       {"GetInstance", "-1"},
                                                       {"GetClass", "-1"},
                                                       {"Associators", "-1"},
                                                       {"AssociatorNames", "-1"},
                                                       {"References", "0"},
                                                       {"ReferenceNames", "-1"},
                                                       {"CreateInstance", created_without_name()},
                                                       {"ModifyInstance", "0"},
                                                       {"DeleteInstance", "0"},
                                                       {"InvokeMethod", "0"},
                                                       {"ExecQuery", "-1"}};
  broker_.script = rich_script();
  broker_.script.refused = {"getClassName"};
  EXPECT_EQ(GetParam().call(&error_, name_space).text(), expected.at(GetParam().name));
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, LocalFailure, testing::ValuesIn(local_operations()),
                         [](const auto& operation) { return operation.param.name; });

TEST(LocalFailures, references_give_0_whatever_happens) {
  ScriptedBroker broker;
  Error* error = nullptr;
  ObjectWithPath* objects = nullptr;
  const auto references = [&](const ObjectName* object) {
    return CIMC_References(&objects, object, nullptr, nullptr, 0, 0, nullptr, name_space, "u", "p",
                           &error);
  };
  const Named name("CIM_Fan");
  const ObjectName object{nullptr, name.get};
  EXPECT_EQ(references(nullptr), 0);
  broker.script.elements = {sandbox_local::instance(fan())};
  broker.script.refused = {"getClassName"};  // so that the element cannot be read
  EXPECT_EQ(references(&object), 0);
  EXPECT_EQ(objects, nullptr);
  broker.script.code = 6;
  broker.script.message = "gone";
  EXPECT_EQ(references(&object), 0);
  EXPECT_EQ(taken(error), "6: gone");
}

TEST(LocalFailures, invoke_method_gives_2_when_the_method_was_not_called) {
  Error* error = nullptr;
  ParamValue* out = nullptr;
  const Named name("CIM_Fan");
  const Named without_keys("CIM_Fan", {});
  const auto invoke = [&](const InstanceName* instance) {
    return CIMC_InvokeMethod(instance, "Stop", name_space, nullptr, &out, "u", "p", &error);
  };
  ScriptedBroker broker;
  EXPECT_EQ(invoke(nullptr), 2);
  EXPECT_EQ(invoke(without_keys.get), 2);
  broker.script.refused = {"arguments"};
  EXPECT_EQ(invoke(name.get), 2);
  broker.script.refused = {};
  EXPECT_EQ(invoke(name.get), 0);
}

TEST(LocalFailures, missing_arguments_ask_the_broker_nothing) {
  ScriptedBroker broker;
  Error* error = nullptr;
  NamedInstance* instances = nullptr;
  InstanceName* names = nullptr;
  Instance* instance = nullptr;
  Class* found = nullptr;
  ObjectPath* paths = nullptr;
  ObjectWithPath* objects = nullptr;
  const Named without_keys("CIM_Fan", {});
  const Named name("CIM_Fan");
  ClassName nameless{};
  Instance without_class{};
  NamedInstance without_name{nullptr, &without_class, nullptr};
  EXPECT_EQ(CIMC_EnumInstances(&instances, nullptr, "", "u", "p", 0, &error, name_space), -1);
  EXPECT_EQ(CIMC_EnumInstanceNames(&names, nullptr, "", "u", "p", &error, name_space), -1);
  EXPECT_EQ(CIMC_GetInstance(&instance, nullptr, "", "u", "p", &error, name_space), -1);
  EXPECT_EQ(CIMC_GetInstance(&instance, without_keys.get, "", "u", "p", &error, name_space), -1);
  EXPECT_EQ(CIMC_GetClass(&found, nullptr, 0, 0, 0, nullptr, "u", "p", name_space, &error), -1);
  EXPECT_EQ(CIMC_GetClass(&found, &nameless, 0, 0, 0, nullptr, "u", "p", name_space, &error), -1);
  EXPECT_EQ(CIMC_AssociatorNames(&paths, name.get, nullptr, nullptr, nullptr, nullptr, nullptr, "",
                                 "u", "p", &error, name_space),
            -1);
  for (const InstanceName* incomplete : {static_cast<InstanceName*>(nullptr), without_keys.get})
    EXPECT_EQ(CIMC_AssociatorNames(&paths, incomplete, "CIM_Fan", nullptr, nullptr, nullptr,
                                   nullptr, "", "u", "p", &error, name_space),
              -1);
  ObjectName keyless{nullptr, without_keys.get};
  for (const ObjectName* incomplete : {static_cast<ObjectName*>(nullptr), &keyless})
    EXPECT_EQ(CIMC_References(&objects, incomplete, nullptr, nullptr, 0, 0, nullptr, name_space,
                              "u", "p", &error),
              0);
  EXPECT_EQ(CIMC_ReferenceNames(&paths, nullptr, nullptr, nullptr, name_space, "u", "p", &error),
            -1);
  EXPECT_EQ(CIMC_CreateInstance(&names, nullptr, name_space, "u", "p", &error), -1);
  EXPECT_EQ(CIMC_CreateInstance(&names, &without_class, name_space, "u", "p", &error), -1);
  EXPECT_EQ(CIMC_ModifyInstance(nullptr, nullptr, name_space, "u", "p", &error), -1);
  EXPECT_EQ(CIMC_ModifyInstance(&without_name, nullptr, name_space, "u", "p", &error), -1);
  EXPECT_EQ(CIMC_DeleteInstance(without_keys.get, name_space, "u", "p", &error), -1);
  EXPECT_FALSE(broker.was_asked("newObjectPath"));
}

TEST(LocalFailures, keys_that_cannot_be_added_leave_associators_unasked) {
  ScriptedBroker broker;
  broker.script.elements.emplace();
  Error* error = nullptr;
  ObjectPath* paths = nullptr;
  const Named name("CIM_Fan");
  Free_CIMName(name.get->keyBindings->name);
  name.get->keyBindings->name = nullptr;
  EXPECT_EQ(CIMC_AssociatorNames(&paths, name.get, "CIM_Fan", nullptr, nullptr, nullptr, nullptr,
                                 "", "u", "p", &error, name_space),
            -1);
  EXPECT_FALSE(broker.was_asked("associatorNames"));
}

// Other operations connect before they look at what they were given.
TEST(LocalFailures, associators_and_queries_with_a_missing_argument_make_no_environment) {
  ScriptedBroker broker;
  Error* error = nullptr;
  ObjectWithPath* objects = nullptr;
  const Named without_keys("CIM_Fan", {});
  EXPECT_EQ(CIMC_Associators(&objects, without_keys.get, nullptr, nullptr, nullptr, nullptr, "",
                             "u", "p", &error, name_space),
            -1);
  EXPECT_EQ(CIMC_ExecQuery(&objects, name_space, nullptr, "WQL", &error), -1);
  EXPECT_EQ(CIMC_ExecQuery(&objects, name_space, "SELECT", nullptr, &error), -1);
  EXPECT_EQ(CIMC_ExecQuery(&objects, nullptr, "SELECT", "WQL", &error), -1);
  EXPECT_TRUE(broker.calls().empty());
}

TEST(LocalFailures, reference_names_do_without_keys) {
  ScriptedBroker broker;
  broker.script.elements.emplace();
  Error* error = nullptr;
  ObjectPath* paths = nullptr;
  const Named without_keys("CIM_Fan", {});
  const ObjectName object{nullptr, without_keys.get};
  EXPECT_EQ(CIMC_ReferenceNames(&paths, &object, nullptr, nullptr, name_space, "u", "p", &error),
            0);
  EXPECT_TRUE(broker.was_called("referenceNames root/cimv2:CIM_Fan null null null null"));
}

TEST(LocalFailures, an_instance_that_cannot_be_made_is_not_sent) {
  for (const LocalOperation& operation : local_operations()) {
    const std::string name = operation.name;
    if (name != "CreateInstance" && name != "ModifyInstance") continue;
    ScriptedBroker broker;
    broker.script.refused = {"instance"};
    Error* error = nullptr;
    EXPECT_EQ(operation.call(&error, name_space).result(), -1);
    EXPECT_FALSE(broker.was_asked(operation.broker_call));
  }
}

// Request objects go before what was answered, and the environment last.
TEST(LocalFailures, objects_are_released_in_the_order_of_their_use) {
  const std::vector<std::pair<std::string, std::vector<std::string>>> expected = {
      {"EnumInstances", {"object path", "enumeration", "client", "environment"}},
      {"EnumInstanceNames", {"object path", "enumeration", "client", "environment"}},
      {"GetInstance", {"object path", "object path", "instance", "client", "environment"}},
      {"GetClass", {"object path", "class", "client", "environment"}},
      {"ReferenceNames", {"object path", "enumeration", "client", "environment"}},
      {"DeleteInstance", {"object path", "client", "environment"}},
  };
  for (const auto& [name, kinds] : expected) {
    for (const LocalOperation& operation : local_operations()) {
      if (operation.name != name) continue;
      ScriptedBroker broker;
      broker.script.elements.emplace();
      broker.script.instance = std::make_shared<sandbox_local::InstanceObject>(fan());
      broker.script.found_class = std::make_shared<sandbox_local::ClassObject>("CIM_Fan");
      Error* error = nullptr;
      operation.call(&error, name_space);
      EXPECT_EQ(broker.released(), kinds) << name;
    }
  }
}

TEST(LocalFailures, the_objects_of_a_method_call_are_released_in_arguments_first) {
  ScriptedBroker broker;
  const Named name("CIM_Fan");
  ParamValue* out = nullptr;
  Error* error = nullptr;
  CIMC_InvokeMethod(name.get, "Stop", name_space, nullptr, &out, "u", "p", &error);
  EXPECT_EQ(broker.released(), (std::vector<std::string>{"arguments", "arguments", "object path",
                                                         "client", "environment"}));
}

}  // namespace
