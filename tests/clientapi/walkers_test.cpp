// Lists of records from what the broker enumerates, and single records from its objects.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "clientapi/local_records.h"
#include "support/scripted_broker.h"

namespace {

using namespace support;
using sandbox_local::CIMCData;
using sandbox_local::Datum;
using sandbox_local::Enumeration;
namespace code = sandbox_local::code;

// An element as the map functions take it.
struct Element {
  explicit Element(Datum content) : datum(std::move(content)), data(datum.data()) {}
  Datum datum;
  CIMCData data;
};

Element path_element(const char* id = "fan1") {
  return Element(sandbox_local::reference(fan_path(id)));
}
Element instance_element() { return Element(sandbox_local::instance(fan({{"Speed", uint32(7)}}))); }
// An element that says what it is, and holds nothing.
Element null_element(sandbox_local::CIMCType type) { return Element(sandbox_local::null_of(type)); }

// The pointer that stands for an object in calls.
template <class Handle, class Made>
void* handle(Made& object) {
  return static_cast<Handle*>(&object);
}
void* handle(Enumeration& object) { return handle<sandbox_local::CIMCEnumeration>(object); }

constexpr char fan_instance_bytes[] =
    "<INSTANCE CLASSNAME=\"CIM_Fan\"><PROPERTY NAME=\"Speed\" TYPE=\"uint32\"><VALUE>7</VALUE>"
    "</PROPERTY></INSTANCE>";

std::string path_bytes(const std::string& last_segment) {
  return "<INSTANCEPATH><NAMESPACEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
         "<NAMESPACE NAME=\"" +
         last_segment + "\"/></LOCALNAMESPACEPATH></NAMESPACEPATH>" + fan_name_bytes +
         "</INSTANCEPATH>";
}

TEST(LocalWalkers, names_are_added_at_the_end) {
  ScriptedBroker broker;
  InstanceName* list = nullptr;
  const Element first = path_element("fan1");
  const Element second = path_element("fan2");
  EXPECT_EQ(AddToEnumInstanceNameList(&first.data, &list), 0);
  EXPECT_EQ(AddToEnumInstanceNameList(&second.data, &list), 0);
  ASSERT_TRUE(list && list->next);
  EXPECT_STREQ(list->className->name, "CIM_Fan");
  EXPECT_STREQ(list->keyBindings->keyValue->text, "fan1");
  EXPECT_STREQ(list->next->keyBindings->keyValue->text, "fan2");
  EXPECT_EQ(list->next->next, nullptr);
  Free_InstanceName(list);
}

// The record has been appended when its name turns out to be missing.
TEST(LocalWalkers, a_name_that_cannot_be_read_leaves_an_empty_record) {
  ScriptedBroker broker;
  for (const Element& element : {instance_element(), null_element(code::reference)}) {
    InstanceName* list = nullptr;
    EXPECT_EQ(AddToEnumInstanceNameList(&element.data, &list), -1);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->className, nullptr);
    Free_InstanceName(list);
  }
}

TEST(LocalWalkers, associators_are_added_at_the_end_with_paths) {
  ScriptedBroker broker;
  ObjectWithPath* list = nullptr;
  const Element element = instance_element();
  EXPECT_EQ(AddToAssociatorList(&element.data, &list), 0);
  EXPECT_EQ(AddToAssociatorList(&element.data, &list), 0);
  ASSERT_TRUE(list && list->next);
  EXPECT_EQ(list->next->next, nullptr);
  const std::string object = "<VALUE.OBJECTWITHPATH>" + path_bytes("cimv2") + fan_instance_bytes +
                             "</VALUE.OBJECTWITHPATH>";
  EXPECT_EQ(taken(list, Gen_ObjectWithPath, Free_ObjectWithPath), object + object);
}

TEST(LocalWalkers, associators_that_are_no_instances_fail) {
  ScriptedBroker broker;
  for (const Element& element : {path_element(), null_element(code::instance)}) {
    ObjectWithPath* list = nullptr;
    EXPECT_EQ(AddToAssociatorList(&element.data, &list), -1);
    Free_ObjectWithPath(list);
  }
}

TEST(LocalWalkers, names_of_associators_are_added_empty) {
  ScriptedBroker broker;
  ObjectPath* list = nullptr;
  const Element element = path_element();
  EXPECT_EQ(AddToAssociatorNameList(&element.data, &list), 0);
  EXPECT_EQ(AddToAssociatorNameList(&element.data, &list), 0);
  ASSERT_TRUE(list && list->next);
  EXPECT_EQ(list->instancePath, nullptr);
  EXPECT_EQ(list->next->instancePath, nullptr);
  EXPECT_EQ(list->next->next, nullptr);
  Free_ObjectPath(list);
}

TEST(LocalWalkers, a_name_of_a_reference_has_no_namespace_and_one_of_an_associator_has) {
  ScriptedBroker broker;
  const Element element = path_element();
  auto* plain = static_cast<ObjectPath*>(std::calloc(1, sizeof(ObjectPath)));
  EXPECT_EQ(mapReferenceNames(&element.data, plain), 0);
  EXPECT_EQ(plain->instancePath->namespacePath, nullptr);
  EXPECT_STREQ(plain->instancePath->instanceName->className->name, "CIM_Fan");
  Free_ObjectPath(plain);
  auto* with = static_cast<ObjectPath*>(std::calloc(1, sizeof(ObjectPath)));
  EXPECT_EQ(mapAssociatorNames(&element.data, with), 0);
  EXPECT_EQ(taken(with, Gen_ObjectPath, Free_ObjectPath),
            "<VALUE.OBJECTPATH>" + path_bytes("cimv2") + "</VALUE.OBJECTPATH>");
}

// The namespace is root and one more segment, whatever it was.
TEST(LocalWalkers, the_last_segment_begins_with_interop_or_cimv2) {
  ScriptedBroker broker;
  for (const auto& [name_space, segment] : {std::pair{"root/interop", "interop"},
                                            {"root/cimv2/interop", "interop"},
                                            {"root/cimv2/deep", "cimv2/deep"},
                                            {"root/elsewhere", ""},
                                            {"", ""}}) {
    sandbox_local::InstanceObject object(fan({{"Speed", uint32(7)}}));
    object.path.name_space = name_space;
    auto* record = static_cast<ObjectWithPath*>(std::calloc(1, sizeof(ObjectWithPath)));
    EXPECT_EQ(mapObjectWithPath(handle<sandbox_local::CIMCInstance>(object), record), 0);
    EXPECT_EQ(taken(record, Gen_ObjectWithPath, Free_ObjectWithPath),
              "<VALUE.OBJECTWITHPATH>" + path_bytes(segment) + fan_instance_bytes +
                  "</VALUE.OBJECTWITHPATH>");
  }
}

TEST(LocalWalkers, what_holds_nothing_or_another_kind_is_not_mapped) {
  ScriptedBroker broker;
  const Element path = path_element();
  const Element instance = instance_element();
  ObjectWithPath object{};
  ObjectPath name{};
  InstanceName instance_name{};
  NamedInstance named{};
  EXPECT_EQ(mapInstance(nullptr, &named), -1);
  EXPECT_EQ(mapInstance(instance.data.value.inst, nullptr), -1);
  EXPECT_EQ(mapObjectWithPath(nullptr, &object), -1);
  EXPECT_EQ(map_to_object_with_path(&path.data, &object), -1);
  EXPECT_EQ(mapReferences(&path.data, &object), -1);
  EXPECT_EQ(mapReferenceNames(&instance.data, &name), -1);
  EXPECT_EQ(mapAssociatorNames(&instance.data, &name), -1);
  EXPECT_EQ(mapEnumInstanceNames(&instance.data, &instance_name), -1);
  EXPECT_EQ(mapCreateinstance(nullptr, &instance_name), -1);
  EXPECT_EQ(mapCreateinstance(path.data.value.ref, nullptr), -1);
  InstanceName* handed_out = nullptr;
  EXPECT_EQ(mapInvokeReturnValue(nullptr, &handed_out), -1);
  EXPECT_EQ(handed_out, nullptr);
}

TEST(LocalWalkers, a_class_name_that_the_broker_does_not_tell_fails) {
  ScriptedBroker broker;
  broker.script.refused = {"getClassName"};
  const Element path = path_element();
  const Element instance = instance_element();
  ObjectPath name{};
  ObjectWithPath object{};
  EXPECT_EQ(mapReferenceNames(&path.data, &name), -1);
  EXPECT_EQ(name.instancePath, nullptr);
  EXPECT_EQ(mapReferences(&instance.data, &object), -1);
  EXPECT_EQ(object.instance, nullptr);
  Instance* record = nullptr;
  EXPECT_EQ(util_GetInstanceValues(instance.data.value.inst, &record), -1);
  EXPECT_EQ(record, nullptr);
}

// ---- Whole enumerations ----

TEST(LocalWalkers, each_takes_the_elements_of_its_kind) {
  ScriptedBroker broker;
  const std::vector<Datum> mixed = {
      sandbox_local::reference(fan_path()), sandbox_local::instance(fan({{"Speed", uint32(7)}})),
      uint32(5), sandbox_local::null_of(code::reference), sandbox_local::null_of(code::instance)};
  Enumeration first(mixed);
  NamedInstance* instances = nullptr;
  EXPECT_EQ(manage_enumerate_instance(handle(first), &instances), 0);
  EXPECT_EQ(taken(instances, Gen_NamedInstance, Free_NamedInstance),
            std::string("<VALUE.NAMEDINSTANCE>") + fan_name_bytes + fan_instance_bytes +
                "</VALUE.NAMEDINSTANCE>");
  Enumeration second(mixed);
  ObjectWithPath* objects = nullptr;
  EXPECT_EQ(manage_object_with_path(handle(second), &objects), 0);
  EXPECT_EQ(taken(objects, Gen_ObjectWithPath, Free_ObjectWithPath),
            "<VALUE.OBJECTWITHPATH>" + path_bytes("cimv2") + fan_instance_bytes +
                "</VALUE.OBJECTWITHPATH>");
  Enumeration third(mixed);
  EXPECT_EQ(manage_references(handle(third), &objects), 0);
  EXPECT_EQ(taken(objects, Gen_ObjectWithPath, Free_ObjectWithPath),
            std::string("<VALUE.OBJECTWITHPATH><INSTANCEPATH>") + fan_name_bytes +
                "</INSTANCEPATH>" + fan_instance_bytes + "</VALUE.OBJECTWITHPATH>");
  Enumeration fourth(mixed);
  ObjectPath* names = nullptr;
  EXPECT_EQ(manage_references_names(handle(fourth), &names), 0);
  EXPECT_EQ(taken(names, Gen_ObjectPath, Free_ObjectPath),
            std::string("<VALUE.OBJECTPATH><INSTANCEPATH>") + fan_name_bytes +
                "</INSTANCEPATH></VALUE.OBJECTPATH>");
  Enumeration fifth(mixed);
  EXPECT_EQ(manage_associator_names(handle(fifth), &names), 0);
  EXPECT_EQ(taken(names, Gen_ObjectPath, Free_ObjectPath),
            "<VALUE.OBJECTPATH>" + path_bytes("cimv2") + "</VALUE.OBJECTPATH>");
}

template <class Record>
void expect_nothing(int (*walker)(void*, Record**)) {
  Record kept{};
  Record* list = &kept;
  Enumeration empty({});
  EXPECT_EQ(walker(handle(empty), &list), 0);
  EXPECT_EQ(list, &kept);
  EXPECT_EQ(walker(nullptr, &list), -1);
  EXPECT_EQ(walker(handle(empty), nullptr), -1);
  EXPECT_EQ(list, &kept);
}

TEST(LocalWalkers, nothing_is_stored_when_there_is_nothing) {
  ScriptedBroker broker;
  expect_nothing(manage_enumerate_instance);
  expect_nothing(manage_object_with_path);
  expect_nothing(manage_references);
  expect_nothing(manage_references_names);
  expect_nothing(manage_associator_names);
}

}  // namespace
