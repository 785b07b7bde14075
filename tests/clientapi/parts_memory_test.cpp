// What operations of a local broker consist of, called by itself while memory runs out, at each of
// its allocations.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "clientapi/local_records.h"
#include "support/allocations.h"
#include "support/scripted_broker.h"

namespace {

using namespace support;
using sandbox_local::Ledger;
namespace code = sandbox_local::code;

struct Outcome {
  std::string text;  // the return value, and the bytes of the record: "0 <CLASS ...>"
  bool has_failed;   // whether the allocation was made, and failed
};

// Calls a function with the allocation failing that has `successes` others before it.
struct Part {
  const char* name;
  std::function<Outcome(std::size_t successes)> call;
};

void PrintTo(const Part& part, std::ostream* out) { *out << part.name; }

// A function that fills a record at hand.
template <auto write, auto release, class R>
Part fills(const char* name, int (*function)(R*)) {
  return {
      name, [function](std::size_t successes) {
        auto* record = static_cast<R*>(std::calloc(1, sizeof(R)));
        bool has_failed = false;
        int result = 0;
        {
          const FailingAllocation failing(successes);
          result = function(record);
          has_failed = failing.has_failed();
        }
        return Outcome{std::to_string(result) + ' ' + taken<R>(record, write, release), has_failed};
      }};
}

// A function that stores a new record.
template <auto write, auto release, class R>
Part stores(const char* name, int (*function)(R**)) {
  return {
      name, [function](std::size_t successes) {
        R* record = nullptr;
        bool has_failed = false;
        int result = 0;
        {
          const FailingAllocation failing(successes);
          result = function(&record);
          has_failed = failing.has_failed();
        }
        return Outcome{std::to_string(result) + ' ' + taken<R>(record, write, release), has_failed};
      }};
}

// ---- Objects of the broker ----

sandbox_local::InstanceObject& full_instance() {
  static sandbox_local::InstanceObject object = [] {
    sandbox_local::ArrayObject levels(0, code::uint16);
    levels.elements = {uint16(1), uint16(2)};
    return fan({{"Speed", uint32(7)},
                {"Levels", sandbox_local::array(levels)},
                {"Antecedent", sandbox_local::reference(fan_path())}});
  }();
  return object;
}
sandbox_local::CIMCInstance* instance() { return &full_instance(); }

sandbox_local::CIMCObjectPath* path() {
  static sandbox_local::Path object = [] {
    sandbox_local::Path made = fan_path();
    sandbox_local::member(made.keys, "System") = sandbox_local::reference(fan_path("fan2"));
    return made;
  }();
  return &object;
}

sandbox_local::CIMCClass* broker_class() {
  static sandbox_local::ClassObject object = [] {
    sandbox_local::ClassObject made("CIM_Fan");
    sandbox_local::member(made.properties, "Name") = sandbox_local::text("x");
    return made;
  }();
  return &object;
}

sandbox_local::CIMCArray* numbers() {
  static sandbox_local::ArrayObject object = [] {
    sandbox_local::ArrayObject made(0, code::uint16);
    made.elements = {uint16(1), uint16(2)};
    return made;
  }();
  return &object;
}

sandbox_local::CIMCArray* paths() {
  static sandbox_local::ArrayObject object = [] {
    sandbox_local::ArrayObject made(0, code::reference);
    made.elements = {sandbox_local::reference(fan_path()), sandbox_local::reference(fan_path())};
    return made;
  }();
  return &object;
}

sandbox_local::CIMCData* instance_element() {
  static sandbox_local::Datum datum = sandbox_local::instance(full_instance());
  static sandbox_local::CIMCData data = datum.data();
  return &data;
}
sandbox_local::CIMCData* path_element() {
  static sandbox_local::Datum datum = sandbox_local::reference(fan_path());
  static sandbox_local::CIMCData data = datum.data();
  return &data;
}

// Two instances and two paths, from the first one on.
sandbox_local::CIMCEnumeration* elements() {
  static sandbox_local::Enumeration object(
      {sandbox_local::instance(full_instance()), sandbox_local::reference(fan_path()),
       sandbox_local::instance(full_instance()), sandbox_local::reference(fan_path())});
  object.next = 0;
  return &object;
}

// Output arguments of every kind.
sandbox_local::CIMCArgs* arguments() {
  static sandbox_local::Arguments object;
  if (object.members.empty()) {
    sandbox_local::ArrayObject instances(0, code::instance);
    instances.elements = {sandbox_local::instance(fan())};
    sandbox_local::ArrayObject references(0, code::reference);
    references.elements = {sandbox_local::reference(fan_path())};
    sandbox_local::ArrayObject texts(0, code::string);
    texts.elements = {sandbox_local::text("a"), sandbox_local::text("b")};
    object.members = {{"Number", uint32(1)},
                      {"Text", sandbox_local::text("text")},
                      {"Time", sandbox_local::time("20240101000000.000000+000")},
                      {"Reference", sandbox_local::reference(fan_path())},
                      {"References", sandbox_local::array(references)},
                      {"Texts", sandbox_local::array(texts)},
                      {"Instances", sandbox_local::array(instances)}};
  }
  return &object;
}

// ---- The parts ----

// clang-format off
std::vector<Part> parts() {
  return {
    fills<Gen_NamedInstance, Free_NamedInstance>("mapInstance",
        +[](NamedInstance* r) { return mapInstance(instance(), r); }),
    fills<Gen_Instance, Free_Instance>("mapGetInstance",
        +[](Instance* r) { return mapGetInstance(r, instance()); }),
    fills<Gen_Class, Free_Class>("mapGetClass",
        +[](Class* r) { return mapGetClass(broker_class(), r); }),
    fills<Gen_InstanceName, Free_InstanceName>("mapCreateinstance",
        +[](InstanceName* r) { return mapCreateinstance(path(), r); }),
    fills<Gen_InstanceName, Free_InstanceName>("mapEnumInstanceNames",
        +[](InstanceName* r) { return mapEnumInstanceNames(path_element(), r); }),
    fills<Gen_ObjectWithPath, Free_ObjectWithPath>("mapObjectWithPath",
        +[](ObjectWithPath* r) { return mapObjectWithPath(instance(), r); }),
    fills<Gen_ObjectWithPath, Free_ObjectWithPath>("map_to_object_with_path",
        +[](ObjectWithPath* r) { return map_to_object_with_path(instance_element(), r); }),
    fills<Gen_ObjectWithPath, Free_ObjectWithPath>("mapReferences",
        +[](ObjectWithPath* r) { return mapReferences(instance_element(), r); }),
    fills<Gen_ObjectPath, Free_ObjectPath>("mapReferenceNames",
        +[](ObjectPath* r) { return mapReferenceNames(path_element(), r); }),
    fills<Gen_ObjectPath, Free_ObjectPath>("mapAssociatorNames",
        +[](ObjectPath* r) { return mapAssociatorNames(path_element(), r); }),
    fills<Gen_ParamValue, Free_ParamValue>("CIMC_Handle_Invoke_ReturnValues",
        +[](ParamValue* r) {
          return CIMC_Handle_Invoke_ReturnValues(code::reference, &path_element()->value, "P", r);
        }),
    stores<Gen_InstanceName, Free_InstanceName>("mapInvokeReturnValue",
        +[](InstanceName** r) { return mapInvokeReturnValue(path(), r); }),
    stores<Gen_Instance, Free_Instance>("util_GetInstanceValues",
        +[](Instance** r) { return util_GetInstanceValues(instance(), r); }),
    stores<Gen_KeyBinding, Free_KeyBinding>("GetKeyBindingValues",
        +[](KeyBinding** r) { return GetKeyBindingValues(path(), r); }),
    stores<Gen_KeyBinding, Free_KeyBinding>("GetKeysFromObjectPath",
        +[](KeyBinding** r) { return GetKeysFromObjectPath(path(), r); }),
    stores<Gen_Value, Free_Value>("getPropertyArrayData",
        +[](Value** r) { return getPropertyArrayData(r, code::uint16, numbers()); }),
    stores<Gen_ValueRefArray, Free_ValueRefArray>("mapToValueReferenceList",
        +[](ValueRefArray** r) { return mapToValueReferenceList(paths(), r); }),
    stores<Gen_ParamValue, Free_ParamValue>("add_args_to_invoke_response",
        +[](ParamValue** r) { return add_args_to_invoke_response(arguments(), r); }),
    stores<Gen_NamedInstance, Free_NamedInstance>("manage_enumerate_instance",
        +[](NamedInstance** r) { return manage_enumerate_instance(elements(), r); }),
    stores<Gen_ObjectWithPath, Free_ObjectWithPath>("manage_object_with_path",
        +[](ObjectWithPath** r) { return manage_object_with_path(elements(), r); }),
    stores<Gen_ObjectWithPath, Free_ObjectWithPath>("manage_references",
        +[](ObjectWithPath** r) { return manage_references(elements(), r); }),
    stores<Gen_ObjectPath, Free_ObjectPath>("manage_references_names",
        +[](ObjectPath** r) { return manage_references_names(elements(), r); }),
    stores<Gen_ObjectPath, Free_ObjectPath>("manage_associator_names",
        +[](ObjectPath** r) { return manage_associator_names(elements(), r); }),
    stores<Gen_InstanceName, Free_InstanceName>("AddToEnumInstanceNameList",
        +[](InstanceName** r) { return AddToEnumInstanceNameList(path_element(), r); }),
    stores<Gen_ObjectWithPath, Free_ObjectWithPath>("AddToAssociatorList",
        +[](ObjectWithPath** r) { return AddToAssociatorList(instance_element(), r); }),
    stores<Gen_ObjectPath, Free_ObjectPath>("AddToAssociatorNameList",
        +[](ObjectPath** r) { return AddToAssociatorNameList(path_element(), r); }),
    stores<Gen_Property, Free_Property>("GetInstanceProperties",
        +[](Property** r) {
          PropertyArray* arrays = nullptr;
          PropertyReference* references = nullptr;
          const int result =
              GetInstanceProperties(instance(), nullptr, r, &arrays, &references);
          Free_PropertyArray(arrays);
          Free_PropertyReference(references);
          return result;
        }),
  };
}
// clang-format on

class LocalPart : public testing::TestWithParam<Part> {
 protected:
  LocalPart() {
    Ledger::of_process().listener = nullptr;
    Ledger::of_process().release_listener = nullptr;
  }

  ScriptedBroker broker_;
};

// It fails, and what it may have left in the record at hand can be released.
TEST_P(LocalPart, fails_when_an_allocation_fails) {
  const std::string complete = GetParam().call(SIZE_MAX).text;
  EXPECT_TRUE(complete.starts_with("0 <")) << complete;
  const long before = living_blocks();
  std::size_t successes = 0;
  for (bool has_failed = true; has_failed; ++successes) {
    {
      const Outcome outcome = GetParam().call(successes);
      has_failed = outcome.has_failed;
      EXPECT_TRUE(has_failed ? outcome.text.starts_with("-1 ") : outcome.text == complete)
          << successes << ": " << outcome.text;
    }
    ASSERT_EQ(living_blocks(), before) << successes;
    ASSERT_EQ(Ledger::of_process().live_count(), 0U) << successes;
  }
  EXPECT_GT(successes, 1U);  // the last one is complete
}

INSTANTIATE_TEST_SUITE_P(EveryPart, LocalPart, testing::ValuesIn(parts()),
                         [](const auto& part) { return part.param.name; });

}  // namespace
