// The local association operations and queries.
#include <gtest/gtest.h>

#include "clientapi/local_records.h"
#include "support/scripted_broker.h"

namespace {

using namespace support;

constexpr char fan_instance_bytes[] =
    "<INSTANCE CLASSNAME=\"CIM_Fan\"><PROPERTY NAME=\"Speed\" TYPE=\"uint32\"><VALUE>7</VALUE>"
    "</PROPERTY></INSTANCE>";
constexpr char namespace_bytes[] =
    "<NAMESPACEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/>"
    "</LOCALNAMESPACEPATH></NAMESPACEPATH>";

struct Asked {
  LocalHandle handle;
  Named name{"CIM_Fan"};
  ObjectName object{nullptr, name.get};
  ClassName* association = CIMC_CreateClassName("CIM_SystemDevice");
  ClassName* result = CIMC_CreateClassName("CIM_Chassis");
  Error* error = nullptr;

  Asked() = default;
  Asked(const Asked&) = delete;
  Asked& operator=(const Asked&) = delete;
  ~Asked() {
    Free_ClassName(association);
    Free_ClassName(result);
  }
};

TEST(LocalAssociations, associators_come_with_path_and_namespace) {
  ScriptedBroker broker;
  broker.script.elements = {sandbox_local::instance(fan({{"Speed", uint32(7)}}))};
  const Asked asked;
  Error* error = nullptr;
  ObjectName object = asked.object;
  ObjectWithPath* found = Associators(asked.handle.get, &object, asked.association, asked.result,
                                      "r", "s", 0, 0, nullptr, &error);
  EXPECT_EQ(taken(found, Gen_ObjectWithPath, Free_ObjectWithPath),
            std::string("<VALUE.OBJECTWITHPATH><INSTANCEPATH>") + namespace_bytes + fan_name_bytes +
                "</INSTANCEPATH>" + fan_instance_bytes + "</VALUE.OBJECTWITHPATH>");
  EXPECT_TRUE(
      broker.was_called("associators root/cimv2:CIM_Fan.DeviceID=\"fan1\" "
                        "\"CIM_SystemDevice\" \"CIM_Chassis\" \"r\" \"s\""));
}

TEST(LocalAssociations, associator_names_come_with_namespace) {
  ScriptedBroker broker;
  broker.script.elements = {sandbox_local::reference(fan_path())};
  const Asked asked;
  Error* error = nullptr;
  ObjectName object = asked.object;
  ObjectPath* found =
      AssociatorNames(asked.handle.get, &object, nullptr, nullptr, nullptr, nullptr, &error);
  EXPECT_EQ(taken(found, Gen_ObjectPath, Free_ObjectPath),
            std::string("<VALUE.OBJECTPATH><INSTANCEPATH>") + namespace_bytes + fan_name_bytes +
                "</INSTANCEPATH></VALUE.OBJECTPATH>");
  EXPECT_TRUE(broker.was_called(
      "associatorNames root/cimv2:CIM_Fan.DeviceID=\"fan1\" null null null null"));
}

TEST(LocalAssociations, references_come_without_namespace) {
  ScriptedBroker broker;
  broker.script.elements = {sandbox_local::instance(fan({{"Speed", uint32(7)}}))};
  const Asked asked;
  Error* error = nullptr;
  ObjectName object = asked.object;
  ObjectWithPath* found =
      References(asked.handle.get, &object, asked.result, "r", 0, 0, nullptr, &error);
  EXPECT_EQ(taken(found, Gen_ObjectWithPath, Free_ObjectWithPath),
            std::string("<VALUE.OBJECTWITHPATH><INSTANCEPATH>") + fan_name_bytes +
                "</INSTANCEPATH>" + fan_instance_bytes + "</VALUE.OBJECTWITHPATH>");
  EXPECT_TRUE(broker.was_called(
      "references root/cimv2:CIM_Fan.DeviceID=\"fan1\" null \"CIM_Chassis\" \"r\" null"));
}

TEST(LocalAssociations, references_pass_an_empty_result_class_as_none_and_a_long_one_whole) {
  const std::string longest(200, 'c');
  for (const std::string& wanted : {std::string(), longest}) {
    ScriptedBroker broker;
    broker.script.elements.emplace();
    const Asked asked;
    Error* error = nullptr;
    ObjectName object = asked.object;
    ClassName* result = CIMC_CreateClassName(wanted.c_str());
    EXPECT_EQ(References(asked.handle.get, &object, result, nullptr, 0, 0, nullptr, &error),
              nullptr);
    EXPECT_TRUE(broker.was_called("references root/cimv2:CIM_Fan.DeviceID=\"fan1\" null " +
                                  (wanted.empty() ? "null" : '"' + wanted + '"') + " null null"));
    Free_ClassName(result);
  }
}

TEST(LocalAssociations, reference_names_come_one_path_each) {
  ScriptedBroker broker;
  broker.script.elements = {sandbox_local::reference(fan_path()),
                            sandbox_local::reference(fan_path())};
  const Asked asked;
  Error* error = nullptr;
  ObjectName object = asked.object;
  ObjectPath* found = ReferenceNames(asked.handle.get, &object, asked.result, nullptr, &error);
  const std::string one = std::string("<VALUE.OBJECTPATH><INSTANCEPATH>") + fan_name_bytes +
                          "</INSTANCEPATH></VALUE.OBJECTPATH>";
  EXPECT_EQ(taken(found, Gen_ObjectPath, Free_ObjectPath), one + one);
}

// The class of the path is the same whatever the query names, and the two strings change places
// on this route alone.
TEST(LocalAssociations, query_goes_out_under_a_fixed_class_and_without_user) {
  ScriptedBroker broker;
  broker.script.elements = {sandbox_local::reference(fan_path()),
                            sandbox_local::instance(fan({{"Speed", uint32(7)}}))};
  const LocalHandle handle;
  Error* error = nullptr;
  ObjectWithPath* found = ExecQuery(handle.get, "WQL", "SELECT * FROM CIM_Fan", &error);
  EXPECT_EQ(taken(found, Gen_ObjectWithPath, Free_ObjectWithPath),
            std::string("<VALUE.OBJECTWITHPATH><INSTANCEPATH>") + namespace_bytes + fan_name_bytes +
                "</INSTANCEPATH>" + fan_instance_bytes + "</VALUE.OBJECTWITHPATH>");
  EXPECT_TRUE(broker.was_called("connect \"localhost\" \"SfcbLocal\" null null null"));
  EXPECT_TRUE(
      broker.was_called("execQuery root/cimv2:CIM_Sensor \"SELECT * FROM CIM_Fan\" \"WQL\""));
}

TEST(LocalAssociations, a_namespace_without_known_segment_becomes_root_and_nothing) {
  for (const auto& [name_space, second] :
       {std::pair{"root/interop", "interop"}, {"root/a/cimv2/b", "cimv2/b"}, {"other", ""}}) {
    ScriptedBroker broker;
    broker.script.elements = {sandbox_local::reference(sandbox_local::Path(name_space, "CIM_Fan"))};
    const Asked asked;
    Error* error = nullptr;
    ObjectName object = asked.object;
    ObjectPath* found =
        AssociatorNames(asked.handle.get, &object, nullptr, nullptr, nullptr, nullptr, &error);
    ASSERT_NE(found, nullptr);
    const Namespace* segments = found->instancePath->namespacePath->localNamespacePath->namespaces;
    EXPECT_STREQ(segments->name, "root");
    EXPECT_STREQ(segments->next->name, second);
    EXPECT_EQ(segments->next->next, nullptr);
    Free_ObjectPath(found);
  }
}

}  // namespace
