// The local operations on instances: what reaches the broker, and what comes back.
#include <gtest/gtest.h>

#include "clientapi/local_records.h"
#include "support/scripted_broker.h"

namespace {

using namespace support;
using sandbox_local::Member;
namespace code = sandbox_local::code;

constexpr char connected[] = "connect \"localhost\" \"SfcbLocal\" null \"user\" \"secret\"";

TEST(LocalInstances, enumeration_passes_through_the_broker_and_back) {
  ScriptedBroker broker;
  broker.script.elements = {sandbox_local::instance(fan({{"Speed", uint32(4800)}}))};
  const LocalHandle handle;
  ClassName* name = CIMC_CreateClassName("CIM_Fan");
  Error* error = nullptr;
  NamedInstance* fans = EnumerateInstances(handle.get, name, 0, 0, 0, 0, nullptr, &error);
  EXPECT_EQ(taken(fans, Gen_NamedInstance, Free_NamedInstance),
            std::string("<VALUE.NAMEDINSTANCE>") + fan_name_bytes +
                "<INSTANCE CLASSNAME=\"CIM_Fan\"><PROPERTY NAME=\"Speed\" TYPE=\"uint32\">"
                "<VALUE>4800</VALUE></PROPERTY></INSTANCE></VALUE.NAMEDINSTANCE>");
  EXPECT_EQ(error, nullptr);
  const std::vector<std::string> calls = {"environment \"SfcbLocal\" 0",
                                          connected,
                                          "newObjectPath \"root/cimv2\" \"CIM_Fan\"",
                                          "enumInstances root/cimv2:CIM_Fan flags 0",
                                          "release client",
                                          "release environment"};
  EXPECT_EQ(broker.calls(), calls);
  Free_ClassName(name);
}

TEST(LocalInstances, only_deep_inheritance_of_1_sets_the_flag) {
  for (const auto& [deep, flags] : {std::pair{0U, "0"}, {1U, "2"}, {2U, "0"}, {255U, "0"}}) {
    ScriptedBroker broker;
    broker.script.elements.emplace();
    NamedInstance* result = nullptr;
    EXPECT_EQ(CIMC_EnumInstances(&result, "CIM_Fan", nullptr, "user", "secret", deep, nullptr,
                                 "root/cimv2"),
              0);
    EXPECT_TRUE(broker.was_called(std::string("enumInstances root/cimv2:CIM_Fan flags ") + flags));
  }
}

TEST(LocalInstances, names_of_instances) {
  ScriptedBroker broker;
  broker.script.elements = {sandbox_local::reference(fan_path("fan1")),
                            sandbox_local::reference(fan_path("fan2"))};
  const LocalHandle handle;
  ClassName* name = CIMC_CreateClassName("CIM_Fan");
  Error* error = nullptr;
  InstanceName* names = EnumerateInstanceNames(handle.get, name, &error);
  EXPECT_EQ(taken(names, Gen_InstanceName, Free_InstanceName),
            std::string(fan_name_bytes) +
                "<INSTANCENAME CLASSNAME=\"CIM_Fan\"><KEYBINDING NAME=\"DeviceID\">"
                "<KEYVALUE VALUETYPE = \"string\">fan2</KEYVALUE></KEYBINDING></INSTANCENAME>");
  Free_ClassName(name);
}

TEST(LocalInstances, no_names_leave_the_result_alone) {
  ScriptedBroker broker;
  broker.script.elements.emplace();
  InstanceName untouched{};
  InstanceName* result = &untouched;
  EXPECT_EQ(
      CIMC_EnumInstanceNames(&result, "CIM_Fan", nullptr, "user", "secret", nullptr, "root/cimv2"),
      0);
  EXPECT_EQ(result, &untouched);
}

TEST(LocalInstances, get_instance_asks_by_keys_as_texts) {
  ScriptedBroker broker;
  broker.script.instance = std::make_shared<sandbox_local::InstanceObject>(
      fan({{"Active", number(code::boolean, &sandbox_local::CIMCValue::boolean,
                             sandbox_local::CIMCBoolean{1})}}));
  const LocalHandle handle;
  const Named name("CIM_Fan");
  Error* error = nullptr;
  Instance* instance = GetInstance(handle.get, name.get, 0, 0, 0, nullptr, &error);
  EXPECT_EQ(taken(instance, Gen_Instance, Free_Instance),
            "<INSTANCE CLASSNAME=\"CIM_Fan\"><PROPERTY NAME=\"Active\" TYPE=\"boolean\">"
            "<VALUE>TRUE</VALUE></PROPERTY></INSTANCE>");
  EXPECT_TRUE(broker.was_called("addKey DeviceID 5888 \"fan1\""));
  EXPECT_TRUE(broker.was_called("getInstance root/cimv2:CIM_Fan.DeviceID=\"fan1\" flags 0"));
}

TEST(LocalInstances, a_name_without_keys_is_not_asked_for) {
  ScriptedBroker broker;
  const Named name("CIM_Fan", {});
  Instance* result = nullptr;
  EXPECT_EQ(CIMC_GetInstance(&result, name.get, nullptr, "user", "secret", nullptr, "root/cimv2"),
            -1);
  EXPECT_EQ(broker.calls().size(), 4U);  // environment, connection and their release
}

TEST(LocalInstances, get_class_gives_name_and_properties) {
  ScriptedBroker broker;
  broker.script.found_class = std::make_shared<sandbox_local::ClassObject>("CIM_Fan");
  broker.script.found_class->properties = {{"Speed", uint32(100)},
                                           {"Null", sandbox_local::null_of(code::uint32)}};
  ClassName* name = CIMC_CreateClassName("CIM_Fan");
  Class* result = nullptr;
  Error* error = nullptr;
  EXPECT_EQ(CIMC_GetClass(&result, name, 0, 0, 0, nullptr, "user", "secret", "root/cimv2", &error),
            0);
  EXPECT_EQ(taken(result, Gen_Class, Free_Class),
            "<CLASS NAME=\"CIM_Fan\"><PROPERTY NAME=\"Speed\" TYPE=\"uint32\"><VALUE>100</VALUE>"
            "</PROPERTY></CLASS>");
  Free_ClassName(name);
}

TEST(LocalInstances, create_makes_keys_of_four_names_alone) {
  ScriptedBroker broker;
  broker.script.path = std::make_shared<sandbox_local::Path>(fan_path());
  const LocalHandle handle;
  Instance instance{};
  instance.className = CIMC_CreateClassName("CIM_Fan");
  char value[] = "x";
  for (const char* name :
       {"Name", "SystemCreationClassName", "CreationClassName", "SystemName", "DeviceID"})
    AddToProeprtyList(&instance.properties, name, value, "string");
  Error* error = nullptr;
  InstanceName* created = CIM_CreateInstance(handle.get, &instance, &error);
  EXPECT_EQ(taken(created, Gen_InstanceName, Free_InstanceName), fan_name_bytes);
  for (const char* key : {"Name", "SystemCreationClassName", "CreationClassName", "SystemName"})
    EXPECT_TRUE(broker.was_called(std::string("addKey ") + key + " 5888 \"x\"")) << key;
  EXPECT_FALSE(broker.was_called("addKey DeviceID 5888 \"x\""));
  EXPECT_TRUE(broker.was_called("setProperty DeviceID 5888 \"x\""));
  Free_ClassName(instance.className);
  Free_Property(instance.properties);
}

TEST(LocalInstances, a_key_property_without_value_is_set_to_null_and_is_no_key) {
  ScriptedBroker broker;
  broker.script.path = std::make_shared<sandbox_local::Path>(fan_path());
  const LocalHandle handle;
  Instance instance{};
  instance.className = CIMC_CreateClassName("CIM_Fan");
  AddToProeprtyList(&instance.properties, "Name", nullptr, "string");
  Error* error = nullptr;
  Free_InstanceName(CIM_CreateInstance(handle.get, &instance, &error));
  EXPECT_TRUE(broker.was_called("setProperty Name 5888 null 5888"));
  for (const std::string& call : broker.calls()) EXPECT_EQ(call.find("addKey"), call.npos) << call;
  Free_ClassName(instance.className);
  Free_Property(instance.properties);
}

TEST(LocalInstances, modify_sends_properties_and_arrays) {
  ScriptedBroker broker;
  const LocalHandle handle;
  const Named name("CIM_Fan");
  Instance instance{};
  char value[] = "17";
  AddToProeprtyList(&instance.properties, "Speed", value, "uint16");
  NamedInstance modified{name.get, &instance, nullptr};
  Error* error = nullptr;
  EXPECT_EQ(ModifyInstance(handle.get, &modified, 0, nullptr, &error), 0);
  EXPECT_TRUE(broker.was_called("setProperty Speed 144 uint16 17"));
  EXPECT_TRUE(broker.was_called("setInstance root/cimv2:CIM_Fan.DeviceID=\"fan1\" flags 0"));
  Free_Property(instance.properties);
}

TEST(LocalInstances, delete_gives_0_only_when_it_was_deleted) {
  const LocalHandle handle;
  const Named name("CIM_Fan");
  {
    ScriptedBroker broker;
    Error* error = nullptr;
    EXPECT_EQ(DeleteInstance(handle.get, name.get, &error), 0);
    EXPECT_TRUE(broker.was_called("deleteInstance root/cimv2:CIM_Fan.DeviceID=\"fan1\""));
  }
  {
    ScriptedBroker broker;
    broker.script.code = 6;
    broker.script.message = "no such fan";
    Error* error = nullptr;
    EXPECT_EQ(DeleteInstance(handle.get, name.get, &error), -1);
    EXPECT_EQ(taken(error), "6: no such fan");
  }
}

}  // namespace
