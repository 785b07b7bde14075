// What the local operations give when the broker fails.
#include <gtest/gtest.h>

#include <functional>

#include "clientapi/local_records.h"
#include "support/captured_output.h"
#include "support/scripted_broker.h"

namespace {

using namespace support;

// One operation with arguments that are all there: its result on success, without a connection,
// and after an error with and without a text.
struct Operation {
  const char* name;
  std::function<int(Error**)> call;
  int without_connection;
  int after_error;
  int after_error_without_text;
};

const Named& fan_name() {
  static const Named name("CIM_Fan");
  return name;
}

std::vector<Operation> operations() {
  static InstanceName* name = fan_name().get;
  static ObjectName object{nullptr, name};
  static char class_text[] = "CIM_Fan";
  static ClassName class_name{class_text, nullptr};
  static Instance instance{nullptr, &class_name, nullptr, nullptr, nullptr, nullptr};
  static NamedInstance named{name, &instance, nullptr};
  const auto u = "user";
  const auto p = "secret";
  const auto ns = "root/cimv2";
  return {
      {"EnumInstances",
       [=](Error** e) {
         NamedInstance* r = nullptr;
         return CIMC_EnumInstances(&r, "CIM_Fan", "", u, p, 0, e, ns);
       },
       -1, 0, 0},
      {"EnumInstanceNames",
       [=](Error** e) {
         InstanceName* r = nullptr;
         return CIMC_EnumInstanceNames(&r, "CIM_Fan", "", u, p, e, ns);
       },
       -1, 0, 0},
      {"GetInstance",
       [=](Error** e) {
         Instance* r = nullptr;
         return CIMC_GetInstance(&r, name, "", u, p, e, ns);
       },
       -1, 0, 0},
      {"GetClass",
       [=](Error** e) {
         Class* r = nullptr;
         return CIMC_GetClass(&r, &class_name, 0, 0, 0, nullptr, u, p, ns, e);
       },
       -1, 0, 0},
      {"Associators",
       [=](Error** e) {
         ObjectWithPath* r = nullptr;
         return CIMC_Associators(&r, name, nullptr, nullptr, nullptr, nullptr, "", u, p, e, ns);
       },
       -1, 0, 0},
      {"AssociatorNames",
       [=](Error** e) {
         ObjectPath* r = nullptr;
         return CIMC_AssociatorNames(&r, name, "CIM_Fan", nullptr, nullptr, nullptr, nullptr, "", u,
                                     p, e, ns);
       },
       -1, 0, 0},
      {"References",
       [=](Error** e) {
         ObjectWithPath* r = nullptr;
         return CIMC_References(&r, &object, nullptr, nullptr, 0, 0, nullptr, ns, u, p, e);
       },
       0, 0, 0},
      {"ReferenceNames",
       [=](Error** e) {
         ObjectPath* r = nullptr;
         return CIMC_ReferenceNames(&r, &object, nullptr, nullptr, ns, u, p, e);
       },
       -1, 0, 0},
      {"CreateInstance",
       [=](Error** e) {
         InstanceName* r = nullptr;
         return CIMC_CreateInstance(&r, &instance, ns, u, p, e);
       },
       -1, 0, 0},
      {"ModifyInstance",
       [=](Error** e) { return CIMC_ModifyInstance(&named, nullptr, ns, u, p, e); }, -1, 0, 0},
      {"DeleteInstance", [=](Error** e) { return CIMC_DeleteInstance(name, ns, u, p, e); }, -1, -1,
       -1},
      {"InvokeMethod",
       [=](Error** e) {
         ParamValue* out = nullptr;
         return CIMC_InvokeMethod(name, "Stop", ns, nullptr, &out, u, p, e);
       },
       2, 5, 0},
      {"ExecQuery",
       [=](Error** e) {
         ObjectWithPath* r = nullptr;
         return CIMC_ExecQuery(&r, ns, "SELECT * FROM CIM_Fan", "WQL", e);
       },
       -1, 0, 0},
  };
}

TEST(LocalFailures, without_a_connection_nothing_is_asked_and_standard_output_says_so) {
  for (const Operation& operation : operations()) {
    SCOPED_TRACE(operation.name);
    ScriptedBroker broker;
    broker.script.connects = false;
    Error* error = nullptr;
    std::string said;
    {
      const CapturedOutput output(stdout);
      EXPECT_EQ(operation.call(&error), operation.without_connection);
      said = output.text();
    }
    EXPECT_EQ(said, " failed the call to connect \n");
    EXPECT_EQ(error, nullptr);
    EXPECT_EQ(broker.calls().size(), 3U);
    EXPECT_EQ(broker.calls().back(), "release environment");
  }
}

TEST(LocalFailures, an_error_with_a_text_becomes_an_error_record) {
  for (const Operation& operation : operations()) {
    SCOPED_TRACE(operation.name);
    ScriptedBroker broker;
    broker.script.code = 5;
    broker.script.message = "no such class";
    Error* error = nullptr;
    EXPECT_EQ(operation.call(&error), operation.after_error);
    EXPECT_EQ(taken(error), "5: no such class");
  }
}

TEST(LocalFailures, an_empty_text_still_makes_an_error_record) {
  for (const Operation& operation : operations()) {
    SCOPED_TRACE(operation.name);
    ScriptedBroker broker;
    broker.script.code = 5;
    broker.script.message = "";
    Error* error = nullptr;
    EXPECT_EQ(operation.call(&error), operation.after_error);
    EXPECT_EQ(taken(error), "5: ");
  }
}

TEST(LocalFailures, an_error_without_a_text_leaves_the_slot_alone) {
  for (const Operation& operation : operations()) {
    SCOPED_TRACE(operation.name);
    ScriptedBroker broker;
    broker.script.code = 5;
    Error* error = nullptr;
    EXPECT_EQ(operation.call(&error), operation.after_error_without_text);
    EXPECT_EQ(error, nullptr);
  }
}

TEST(LocalFailures, missing_arguments_ask_the_broker_nothing) {
  ScriptedBroker broker;
  Error* error = nullptr;
  ParamValue* out = nullptr;
  ObjectWithPath* objects = nullptr;
  InstanceName* names = nullptr;
  EXPECT_EQ(CIMC_EnumInstanceNames(&names, nullptr, "", "u", "p", &error, "root/cimv2"), -1);
  EXPECT_EQ(CIMC_EnumInstanceNames(&names, "CIM_Fan", "", "u", "p", &error, nullptr), -1);
  EXPECT_EQ(CIMC_InvokeMethod(nullptr, "Stop", "root/cimv2", nullptr, &out, "u", "p", &error), 2);
  EXPECT_EQ(CIMC_References(&objects, nullptr, nullptr, nullptr, 0, 0, nullptr, "root/cimv2", "u",
                            "p", &error),
            0);
  for (const std::string& call : broker.calls())
    EXPECT_EQ(call.find("newObjectPath"), call.npos) << call;
}

TEST(LocalFailures, a_query_with_a_missing_argument_makes_no_environment) {
  ScriptedBroker broker;
  Error* error = nullptr;
  ObjectWithPath* objects = nullptr;
  EXPECT_EQ(CIMC_ExecQuery(&objects, "root/cimv2", nullptr, "WQL", &error), -1);
  EXPECT_EQ(CIMC_ExecQuery(&objects, "root/cimv2", "SELECT", nullptr, &error), -1);
  EXPECT_EQ(CIMC_ExecQuery(&objects, nullptr, "SELECT", "WQL", &error), -1);
  EXPECT_TRUE(broker.calls().empty());
}

}  // namespace
