// The functions of records and their lists: Free_, Clone_, Gen_ and AddTo.
#include <cstdlib>
#include <cstring>
#include <type_traits>

#include "cim_client.h"
#include "support/allocations.h"
#include "support/filled_records.h"
#include "torture/functions.h"

namespace torture {
namespace {

using support::UncountedAllocations;

// A record with children and grandchildren; of char, a text.
template <class R>
R* make() {
  const UncountedAllocations uncounted;
  if constexpr (std::is_same_v<R, char>)
    return strdup("t");
  else {
    R* record = support::filled<R>("t", 2);
    // Writing an embedded instance would leave its properties to nobody.
    if constexpr (std::is_same_v<R, Value>) record->isCData = 0;
    return record;
  }
}

template <class R>
Function freeing(const char* name, int (*release)(R*)) {
  return {.name = name,
          .call = [release] { return std::to_string(release(make<R>())); },
          .may_fail_as = never_fails(),
          .allocates = false};
}

template <class R>
Function cloning(const char* name, int (*clone)(const R*, R**), int (*release)(R*)) {
  return {.name = name,
          .call =
              [clone, release] {
                R* source = make<R>();
                R* copy = nullptr;
                const int result = clone(source, &copy);
                release(copy);
                release(source);
                return std::to_string(result);
              },
          .may_fail_as = gives({"-1"})};
}

// What is written stays a true beginning of the whole.
template <class R>
Function writing(const char* name, int (*write)(R*, char**), int (*release)(R*),
                 std::size_t vital = 0) {
  return {.name = name,
          .call =
              [write, release] {
                R* record = make<R>();
                char* output = nullptr;
                const int result = write(record, &output);
                Outcome outcome = std::to_string(result) + " " + (output ? output : "");
                std::free(output);
                release(record);
                return outcome;
              },
          .may_fail_as = gives_a_beginning(),
          .vital = vital};
}

// `add` appends to a list that has a node already, and takes its other arguments over.
template <class R, class Add>
Function adding(const char* name, int (*release)(R*), Add add) {
  return {.name = name,
          .call =
              [release, add] {
                R* list = make<R>();
                const int result = add(&list);
                release(list);
                return std::to_string(result);
              },
          .may_fail_as = gives({"-1"})};
}

// Free_Header() leaves what hangs on the message's responses to its caller: here is nothing.
Outcome free_header() {
  CIM* root = nullptr;
  {
    const UncountedAllocations uncounted;
    root = static_cast<CIM*>(std::calloc(1, sizeof(CIM)));
    root->cimVersion = strdup("2.0");
    root->message = support::filled<Message>("t", 0);
  }
  return Free_Header(root) ? "a record" : "null";
}

// The parts of a name that Free_InstanceName_New() does not release.
Outcome free_instance_name_new() {
  InstanceName* name = nullptr;
  {
    const UncountedAllocations uncounted;
    AddToInstanceNameList(&name, nullptr, CIMC_CreateClassName("C"), nullptr);
  }
  return std::to_string(Free_InstanceName_New(name));
}

void add_releases(std::vector<Function>& functions) {
#define FREE(name) functions.push_back(freeing("Free_" #name, Free_##name));
#define FREE6(a, b, c, d, e, f) FREE(a) FREE(b) FREE(c) FREE(d) FREE(e) FREE(f)
  FREE6(CIM, CIMName, CIMType, Class, ClassName, ClassOrigin)
  FREE6(ClassPath, DeclGroup, DeclGroupWithName, DeclGroupWithPath, Declaration, Error)
  FREE6(ExpMethodCall, ExpMethodResponse, ExpParamValue, Host, IMethodCall, IMethodResponse)
  FREE6(IParamValue, IParamValue_New, IReturnValue, Instance, InstanceName, InstancePath)
  FREE6(KeyBinding, KeyValue, LocalClassPath, LocalInstancePath, LocalNamespacePath, Message)
  FREE6(Method, MethodCall, MethodResponse, MultiExpReq, MultiExpRsp, MultiReq)
  FREE6(MultiRsp, NamedInstance, NamedObject, Namespace, NamespacePath, Object)
  FREE6(ObjectName, ObjectPath, ObjectWithLocalPath, ObjectWithPath, PCData, ParamType)
  FREE6(ParamValue, Parameter, ParameterArray, ParameterRefArray, ParameterReference, Property)
  FREE6(PropertyArray, PropertyReference, Qualifier, QualifierDecl, QualifierFlavor, ReferenceClass)
  FREE6(ResponseDestination, ReturnValue, Scope, SimpleExpReq, SimpleExpRsp, SimpleReq)
  FREE6(SimpleReqAck, SimpleRsp, Table, TableCellDecl, TableCellReference, TableRow)
  FREE6(TableRowDecl, Value, ValueArray, ValueNull, ValueRefArray, ValueReference)
  FREE(ValueType)
  functions.push_back({.name = "Free_Header",
                       .call = free_header,
                       .may_fail_as = never_fails(),
                       .allocates = false});
  functions.push_back({.name = "Free_InstanceName_New",
                       .call = free_instance_name_new,
                       .may_fail_as = never_fails(),
                       .allocates = false});
}

void add_clones(std::vector<Function>& functions) {
#define CLONE(name) functions.push_back(cloning("Clone_" #name, Clone_##name, Free_##name));
#define CLONE6(a, b, c, d, e, f) CLONE(a) CLONE(b) CLONE(c) CLONE(d) CLONE(e) CLONE(f)
  CLONE6(CIMName, CIMType, ClassName, ClassOrigin, ClassPath, Host)
  CLONE6(Instance, InstanceName, InstancePath, KeyBinding, KeyValue, LocalClassPath)
  CLONE6(LocalInstancePath, LocalNamespacePath, NamedInstance, Namespace, NamespacePath, PCData)
  CLONE6(ParamType, Property, PropertyArray, PropertyReference, Qualifier, QualifierFlavor)
  CLONE(ReferenceClass) CLONE(Value) CLONE(ValueArray) CLONE(ValueReference) CLONE(ValueType)
}

void add_writers(std::vector<Function>& functions) {
#define GEN(name) functions.push_back(writing("Gen_" #name, Gen_##name, Free_##name));
#define GEN6(a, b, c, d, e, f) GEN(a) GEN(b) GEN(c) GEN(d) GEN(e) GEN(f)
  GEN6(CIMName, CIMType, Class, ClassName, ClassOrigin, ClassPath)
  GEN6(DeclGroup, DeclGroupWithName, DeclGroupWithPath, Declaration, Error, IMethodCall)
  GEN6(IMethodResponse, IParamValue, IReturnValue, Instance, InstanceName, InstancePath)
  GEN6(KeyBinding, KeyValue, LocalClassPath, LocalInstancePath, LocalNamespacePath, Message)
  GEN6(Method, MethodCall, MethodResponse, MultiReq, MultiRsp, NamedInstance)
  GEN6(NamedObject, Namespace, NamespacePath, Object, ObjectPath, ObjectWithLocalPath)
  GEN6(ObjectWithPath, ParamValue, Parameter, ParameterArray, ParameterRefArray, ParameterReference)
  GEN6(Property, PropertyArray, PropertyReference, Qualifier, QualifierDecl, QualifierFlavor)
  GEN6(ReferenceClass, ResponseDestination, ReturnValue, Scope, SimpleReq, SimpleRsp)
  GEN(Value)
  GEN(ValueArray)
  GEN(ValueNull)
  GEN(ValueRefArray)
  GEN(ValueReference) functions.push_back(writing("Gen_CIM", Gen_CIM, Free_CIM, 1));
}

void add_lists(std::vector<Function>& functions) {
  functions.push_back(adding("AddToValueList", Free_Value,
                             [](Value** list) { return AddToValueList(list, "text"); }));
  functions.push_back(adding("AddToProeprtyList", Free_Property, [](Property** list) {
    char value[] = "true";
    return AddToProeprtyList(list, "name", value, "boolean");
  }));
  functions.push_back(
      adding("AddToPropertyArrayList", Free_PropertyArray, [](PropertyArray** list) {
        return AddToPropertyArrayList(list, "name", make<ValueArray>(), "string");
      }));
  functions.push_back(adding("AddToInstanceList", Free_Instance, [](Instance** list) {
    return AddToInstanceList(list, make<ClassName>(), make<PropertyReference>(),
                             make<PropertyArray>(), make<Property>());
  }));
  functions.push_back(adding("AddToInstanceNameList", Free_InstanceName, [](InstanceName** list) {
    return AddToInstanceNameList(list, make<KeyBinding>(), make<ClassName>(), nullptr);
  }));
  functions.push_back(adding("AddToKeyBindingListRef", Free_KeyBinding, [](KeyBinding** list) {
    return AddToKeyBindingListRef(list, "name", "value", "string", nullptr);
  }));
  functions.push_back(adding("AddToKeyBindingList", Free_KeyBinding, [](KeyBinding** list) {
    return AddToKeyBindingList(list, "name", "value", "string", "CIM_Fan", "root/interop",
                               make<KeyBinding>());
  }));
  functions.push_back(
      adding("AddToPropertyReferenceList", Free_PropertyReference, [](PropertyReference** list) {
        return AddToPropertyReferenceList(list, make<KeyBinding>(), make<Namespace>(), "CIM_Fan",
                                          "name");
      }));
}

}  // namespace

std::vector<Function> record_functions() {
  std::vector<Function> functions;
  add_releases(functions);
  add_clones(functions);
  add_writers(functions);
  add_lists(functions);
  return functions;
}

}  // namespace torture
