// Keys of records as keys of broker paths.
#include <gtest/gtest.h>

#include <utility>

#include "clientapi/local_records.h"
#include "support/scripted_broker.h"

namespace {

using namespace support;
using sandbox_local::CIMCEnv;
using sandbox_local::CIMCObjectPath;

// An environment and a path to add keys to.
struct Target {
  CIMCEnv* env = static_cast<CIMCEnv*>(getCIMCEnv("SfcbLocal", 0, &code, &message));
  CIMCObjectPath* path = env->ft->newObjectPath(env, "root/cimv2", "CIM_Fan", nullptr);
  int code = -1;
  char* message = nullptr;

  Target() = default;
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;
  ~Target() {
    path->ft->release(path);
    env->ft->release(env);
  }

  int add(const KeyBinding* keys) { return CIMC_AddKeyValues(keys, path, "root/cimv2", env); }
  std::string text() const { return describe(sandbox_local::self(path)); }
};

KeyBinding* reference_key(const char* name) {
  KeyBinding* keys = nullptr;
  KeyBinding* referenced = nullptr;
  AddToKeyBindingListRef(&referenced, "Tag", "chassis1", "string", nullptr);
  AddToKeyBindingList(&keys, name, nullptr, nullptr, "CIM_Chassis", "root/cimv2", referenced);
  return keys;
}

TEST(LocalKeys, texts_go_as_characters) {
  ScriptedBroker broker;
  Target target;
  const Named name("CIM_Fan", {{"A", "1"}, {"B", "TRUE"}});
  EXPECT_EQ(target.add(name.get->keyBindings), 0);
  EXPECT_EQ(target.text(), "root/cimv2:CIM_Fan.A=\"1\",B=\"TRUE\"");
}

TEST(LocalKeys, a_reference_is_carried_over_to_the_plain_key_after_it) {
  ScriptedBroker broker;
  Target target;
  KeyBinding* keys = reference_key("A");
  AddToKeyBindingListRef(&keys, "B", "text", "string", nullptr);
  EXPECT_EQ(target.add(keys), 0);
  EXPECT_EQ(target.text(),
            "root/cimv2:CIM_Fan.A=reference root/cimv2:CIM_Chassis.Tag=\"chassis1\","
            "B=reference root/cimv2:CIM_Chassis.Tag=\"chassis1\"");
  Free_KeyBinding(keys);
}

TEST(LocalKeys, a_reference_is_carried_over_until_the_next_reference) {
  ScriptedBroker broker;
  Target target;
  KeyBinding* keys = reference_key("A");
  AddToKeyBindingListRef(&keys, "B", "text", "string", nullptr);
  keys->next->next = reference_key("C");
  InstanceName* third = keys->next->next->valueReference->localInstancePath->instanceName;
  Free_PCData(third->keyBindings->keyValue->text);
  Clone_PCData("chassis2", &third->keyBindings->keyValue->text);
  AddToKeyBindingListRef(&keys, "D", "text", "string", nullptr);
  EXPECT_EQ(target.add(keys), 0);
  EXPECT_EQ(target.text(),
            "root/cimv2:CIM_Fan.A=reference root/cimv2:CIM_Chassis.Tag=\"chassis1\","
            "B=reference root/cimv2:CIM_Chassis.Tag=\"chassis1\","
            "C=reference root/cimv2:CIM_Chassis.Tag=\"chassis2\","
            "D=reference root/cimv2:CIM_Chassis.Tag=\"chassis2\"");
  Free_KeyBinding(keys);
}

// A reference that holds neither a local path nor a name ends the carrying over.
TEST(LocalKeys, an_empty_reference_is_no_reference) {
  ScriptedBroker broker;
  Target target;
  KeyBinding* keys = reference_key("A");
  AddToKeyBindingListRef(&keys, "B", "text", "string", nullptr);
  keys->next->valueReference = static_cast<ValueReference*>(std::calloc(1, sizeof(ValueReference)));
  EXPECT_EQ(target.add(keys), 0);
  EXPECT_EQ(target.text(),
            "root/cimv2:CIM_Fan.A=reference root/cimv2:CIM_Chassis.Tag=\"chassis1\",B=\"text\"");
  Free_KeyBinding(keys);
}

TEST(LocalKeys, a_reference_is_also_a_plain_name_and_the_local_path_goes_first) {
  ScriptedBroker broker;
  KeyBinding* keys = reference_key("A");
  const Named plain("CIM_Rack", {{"Tag", "rack1"}});
  keys->valueReference->instanceName = plain.get;
  Target both;
  EXPECT_EQ(both.add(keys), 0);
  EXPECT_EQ(both.text(), "root/cimv2:CIM_Fan.A=reference root/cimv2:CIM_Chassis.Tag=\"chassis1\"");
  LocalInstancePath* path = std::exchange(keys->valueReference->localInstancePath, nullptr);
  Target alone;
  EXPECT_EQ(alone.add(keys), 0);
  EXPECT_EQ(alone.text(), "root/cimv2:CIM_Fan.A=reference root/cimv2:CIM_Rack.Tag=\"rack1\"");
  keys->valueReference->localInstancePath = path;
  keys->valueReference->instanceName = nullptr;
  Free_KeyBinding(keys);
}

TEST(LocalKeys, a_local_path_without_a_name_or_keys_fails_and_without_a_class_adds_nothing) {
  ScriptedBroker broker;
  Target target;
  KeyBinding* keys = reference_key("A");
  InstanceName*& name = keys->valueReference->localInstancePath->instanceName;
  char* class_text = std::exchange(name->className->name, nullptr);
  EXPECT_EQ(target.add(keys), 0);
  name->className->name = class_text;
  KeyBinding* inner = std::exchange(name->keyBindings, nullptr);
  EXPECT_EQ(target.add(keys), -1);
  name->keyBindings = inner;
  InstanceName* whole = std::exchange(name, nullptr);
  EXPECT_EQ(target.add(keys), -1);
  keys->valueReference->localInstancePath->instanceName = whole;
  EXPECT_EQ(target.text(), "root/cimv2:CIM_Fan");
  Free_KeyBinding(keys);
}

// The status of a text's key is ignored, that of a reference's is not.
TEST(LocalKeys, a_reference_that_the_broker_refuses_fails_and_a_text_does_not) {
  ScriptedBroker broker;
  broker.script.refused = {"addKey"};
  Target target;
  const Named texts("CIM_Fan");
  EXPECT_EQ(target.add(texts.get->keyBindings), 0);
  KeyBinding* keys = reference_key("A");
  EXPECT_EQ(target.add(keys), -1);
  Free_KeyBinding(keys);
}

TEST(LocalKeys, a_key_without_name_fails_and_one_without_value_is_passed_over) {
  ScriptedBroker broker;
  Target target;
  KeyBinding empty{};
  EXPECT_EQ(target.add(&empty), -1);
  char name[] = "A";
  KeyBinding without_value{nullptr, nullptr, name, nullptr};
  EXPECT_EQ(target.add(&without_value), 0);
  EXPECT_EQ(target.text(), "root/cimv2:CIM_Fan");
}

TEST(LocalKeys, a_reference_with_an_incomplete_key_adds_nothing) {
  ScriptedBroker broker;
  Target target;
  KeyBinding* keys = reference_key("A");
  KeyBinding* inner = keys->valueReference->localInstancePath->instanceName->keyBindings;
  Free_KeyValue(inner->keyValue);
  inner->keyValue = nullptr;
  EXPECT_EQ(target.add(keys), -1);
  EXPECT_EQ(target.text(), "root/cimv2:CIM_Fan");
  Free_KeyBinding(keys);
}

TEST(LocalKeys, no_keys_are_no_failure_and_no_path_is) {
  ScriptedBroker broker;
  Target target;
  EXPECT_EQ(target.add(nullptr), 0);
  EXPECT_EQ(CIMC_AddKeyValues(nullptr, nullptr, "root/cimv2", target.env), -1);
  EXPECT_EQ(CIMC_AddKeyValues(nullptr, target.path, nullptr, target.env), -1);
}

TEST(LocalKeys, a_key_that_cannot_be_added_stops_the_operation) {
  ScriptedBroker broker;
  const LocalHandle handle;
  const Named name("CIM_Fan");
  Free_CIMName(name.get->keyBindings->name);
  name.get->keyBindings->name = nullptr;
  Error* error = nullptr;
  EXPECT_EQ(GetInstance(handle.get, name.get, 0, 0, 0, nullptr, &error), nullptr);
  for (const std::string& call : broker.calls()) EXPECT_EQ(call.find("getInstance"), call.npos);
}

TEST(LocalKeys, a_reference_among_the_keys_of_a_path_comes_back_with_class_and_keys) {
  ScriptedBroker broker;
  sandbox_local::Path path("root/cimv2", "CIM_SystemDevice");
  sandbox_local::Path chassis("root/cimv2", "CIM_Chassis");
  sandbox_local::member(chassis.keys, "Tag") = sandbox_local::text("chassis1");
  sandbox_local::member(path.keys, "GroupComponent") = sandbox_local::reference(chassis);
  sandbox_local::member(path.keys, "Number") = uint32(5);
  KeyBinding* keys = nullptr;
  EXPECT_EQ(GetKeyBindingValues(static_cast<CIMCObjectPath*>(&path), &keys), 0);
  EXPECT_EQ(taken(keys, Gen_KeyBinding, Free_KeyBinding),
            "<KEYBINDING NAME=\"GroupComponent\"><VALUE.REFERENCE><LOCALINSTANCEPATH>"
            "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/>"
            "</LOCALNAMESPACEPATH><INSTANCENAME CLASSNAME=\"CIM_Chassis\">"
            "<KEYBINDING NAME=\"Tag\"><KEYVALUE VALUETYPE = \"string\">chassis1</KEYVALUE>"
            "</KEYBINDING></INSTANCENAME></LOCALINSTANCEPATH></VALUE.REFERENCE></KEYBINDING>"
            "<KEYBINDING NAME=\"Number\"><KEYVALUE VALUETYPE = \"uint32\">5</KEYVALUE>"
            "</KEYBINDING>");
}

TEST(LocalKeys, a_null_reference_among_the_keys_of_a_path_is_passed_over) {
  ScriptedBroker broker;
  sandbox_local::Path path("root/cimv2", "CIM_SystemDevice");
  sandbox_local::member(path.keys, "GroupComponent") =
      sandbox_local::null_of(sandbox_local::code::reference);
  sandbox_local::member(path.keys, "Number") = uint32(5);
  KeyBinding* keys = nullptr;
  EXPECT_EQ(GetKeysFromObjectPath(static_cast<CIMCObjectPath*>(&path), &keys), 0);
  EXPECT_EQ(taken(keys, Gen_KeyBinding, Free_KeyBinding),
            "<KEYBINDING NAME=\"Number\"><KEYVALUE VALUETYPE = \"uint32\">5</KEYVALUE>"
            "</KEYBINDING>");
}

TEST(LocalKeys, a_referenced_path_without_a_class_name_gives_no_keys_at_all) {
  ScriptedBroker broker;
  broker.script.refused = {"getClassName"};
  sandbox_local::Path path("root/cimv2", "CIM_SystemDevice");
  sandbox_local::member(path.keys, "Number") = uint32(5);
  sandbox_local::member(path.keys, "GroupComponent") = sandbox_local::reference(fan_path());
  KeyBinding* keys = nullptr;
  EXPECT_EQ(GetKeyBindingValues(static_cast<CIMCObjectPath*>(&path), &keys), -1);
  EXPECT_EQ(keys, nullptr);
}

TEST(LocalKeys, no_path_and_no_place_for_keys_fail) {
  sandbox_local::Path path = fan_path();
  KeyBinding* keys = nullptr;
  EXPECT_EQ(GetKeyBindingValues(nullptr, &keys), -1);
  EXPECT_EQ(GetKeyBindingValues(static_cast<CIMCObjectPath*>(&path), nullptr), -1);
  EXPECT_EQ(keys, nullptr);
}

// Brokers in the field leave slots of a path's table empty, or hand out paths that have gone.
TEST(LocalKeys, a_path_that_cannot_tell_its_class_gives_no_name) {
  sandbox_local::Path path = fan_path();
  sandbox_local::CIMCObjectPathFT without = *path.ft;
  without.getClassName = nullptr;
  path.ft = &without;
  InstanceName name{};
  EXPECT_EQ(mapCreateinstance(static_cast<CIMCObjectPath*>(&path), &name), -1);
  path.ft = nullptr;
  EXPECT_EQ(mapCreateinstance(static_cast<CIMCObjectPath*>(&path), &name), -1);
  EXPECT_EQ(name.className, nullptr);
}

TEST(LocalKeys, a_path_that_cannot_tell_its_namespace_is_root_and_nothing) {
  ScriptedBroker broker;
  sandbox_local::Path path = fan_path();
  sandbox_local::CIMCObjectPathFT without = *path.ft;
  without.getNameSpace = nullptr;
  path.ft = &without;
  sandbox_local::CIMCData data{};
  data.type = sandbox_local::code::reference;
  data.value.ref = &path;
  ObjectPath record{};
  EXPECT_EQ(mapAssociatorNames(&data, &record), 0);
  const Namespace* segments = record.instancePath->namespacePath->localNamespacePath->namespaces;
  EXPECT_STREQ(segments->name, "root");
  EXPECT_STREQ(segments->next->name, "");
  Free_InstancePath(record.instancePath);
}

TEST(LocalKeys, a_reference_to_an_empty_class_or_without_keys_adds_nothing) {
  ScriptedBroker broker;
  Target target;
  KeyBinding* keys = reference_key("A");
  LocalInstancePath* path = std::exchange(keys->valueReference->localInstancePath, nullptr);
  const Named empty("", {{"Tag", "rack1"}});
  keys->valueReference->instanceName = empty.get;
  EXPECT_EQ(target.add(keys), 0);
  const Named keyless("CIM_Rack", {});
  keys->valueReference->instanceName = keyless.get;
  EXPECT_EQ(target.add(keys), 0);
  EXPECT_EQ(target.text(), "root/cimv2:CIM_Fan");
  keys->valueReference->instanceName = nullptr;
  keys->valueReference->localInstancePath = path;
  Free_KeyBinding(keys);
}

TEST(LocalKeys, a_key_value_without_text_is_passed_over) {
  ScriptedBroker broker;
  Target target;
  const Named name("CIM_Fan");
  Free_PCData(name.get->keyBindings->keyValue->text);
  name.get->keyBindings->keyValue->text = nullptr;
  EXPECT_EQ(target.add(name.get->keyBindings), 0);
  EXPECT_EQ(target.text(), "root/cimv2:CIM_Fan");
}

}  // namespace
