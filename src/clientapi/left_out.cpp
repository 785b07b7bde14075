// The local back end of a build that leaves it out: every exported name is there, and its
// operations do what they do on a machine without the broker's client library.
#include <cstdio>
#include <cstdlib>

#include "base/memory.h"
#include "cim_client.h"
#include "clientapi/log.h"

using cim::broker::LoggedExit;

namespace {

// What an operation gives when there is no broker to ask; says so on standard error.
int without_broker(int result) {
  char* message = nullptr;
  getCIMCEnv("SfcbLocal", 0, nullptr, &message);
  std::fprintf(stderr, " local connect failed [%s] \n", message ? message : "");
  std::free(message);
  return result;
}

// The same, for operations that log their end.
int without_broker(int result, const char* operation) {
  const LoggedExit logged(operation);
  return without_broker(result);
}

}  // namespace

extern "C" {

void* getCIMCEnv(const char* id, uint32_t, int* rc, char** msg) {
  constexpr char format[] = "Unable to load libcimcClient%s.so library libcimcClient%s.so: %s";
  char text[512];
  std::snprintf(text, sizeof text, format, id, id, "this build leaves the local back end out");
  if (rc) *rc = 1;
  if (msg) *msg = cim::duplicate(text);
  return nullptr;
}

void setSFCBTrace(void*) {}

// ---- Operations ----

int CIMC_EnumInstances(NamedInstance**, const char*, const char*, const char*, const char*,
                       uint32_t, Error**, const char*) {
  return without_broker(-1, "EnumInstances");
}
int CIMC_EnumInstanceNames(InstanceName**, const char*, const char*, const char*, const char*,
                           Error**, const char*) {
  return without_broker(-1, "EnumInstanceNames");
}
int CIMC_GetInstance(Instance**, const InstanceName*, const char*, const char*, const char*,
                     Error**, const char*) {
  return without_broker(-1, "GetInstance");
}
int CIMC_GetClass(Class**, const ClassName*, uint32_t, uint32_t, uint32_t, char**, const char*,
                  const char*, const char*, Error**) {
  return without_broker(-1, "GetClass");
}
int CIMC_CreateInstance(InstanceName**, const Instance*, const char*, const char*, const char*,
                        Error**) {
  return without_broker(-1);
}
int CIMC_ModifyInstance(const NamedInstance*, const void*, const char*, const char*, const char*,
                        Error**) {
  return without_broker(-1, "ModifyInstance");
}
int CIMC_DeleteInstance(const InstanceName*, const char*, const char*, const char*, Error**) {
  return without_broker(-1);
}
int CIMC_Associators(ObjectWithPath**, const InstanceName*, const char*, const char*, const char*,
                     const char*, const char*, const char*, const char*, Error**, const char*) {
  return without_broker(-1, "Associators");
}
int CIMC_AssociatorNames(ObjectPath**, const InstanceName*, const char*, const char*, const char*,
                         const char*, const char*, const char*, const char*, const char*, Error**,
                         const char*) {
  return without_broker(-1, "AssociatorNames");
}
int CIMC_References(ObjectWithPath**, const ObjectName*, const ClassName*, const char*, uint32_t,
                    uint32_t, char**, const char*, const char*, const char*, Error**) {
  return without_broker(0, "References");
}
int CIMC_ReferenceNames(ObjectPath**, const ObjectName*, const ClassName*, const char*, const char*,
                        const char*, const char*, Error**) {
  return without_broker(-1, "ReferenceNames");
}
int CIMC_ExecQuery(ObjectWithPath**, const char*, const char*, const char*, Error**) {
  return without_broker(-1, "ExecQuery");
}
// 2: the value of a method that could not be called.
int CIMC_InvokeMethod(const InstanceName*, const char*, const char*, const ParamValue*,
                      ParamValue**, const char*, const char*, Error**) {
  return without_broker(2, "InvokeMethod");
}

// ---- What works on objects of a broker: there are none ----

int CIMC_AddKeyValues(const KeyBinding*, void*, const char*, void*) { return -1; }
int CDATASectionHandler(const Instance*, void*, void*) { return -1; }
int _add_property_array_to_req(const PropertyArray*, void*, void*) { return -1; }
int add_properties_to_req(const Property*, void*, void*) { return -1; }
int add_value_to_mi_req(const NamedInstance*, void*, void*) { return -1; }
int add_prop_to_create_inst_req(const Property*, void*, void*, void*) { return -1; }
int add_prop_array_to_create_inst_req(const PropertyArray*, void*, void*) { return -1; }
int add_prop_ref_to_create_inst_req(const char*, const PropertyReference*, void*, void*) {
  return -1;
}
int create_inst_req_add_props(const char*, const Instance*, void*, void*, void*) { return -1; }
int add_args_to_invoke_req(const ParamValue*, const char*, void*, void*) { return -1; }
int CIMC_CreatePropertyArguments(const ParamValue*, void*, void*) { return -1; }
int CIMC_CreatePropertyArrayArguments(const ParamValue*, const char*, void*, void*) { return -1; }
int CIMC_CreateValueRefArguments(const ParamValue*, const char*, void*, void*) { return -1; }
int CIMC_CreateCDataArgument(const ParamValue*, const char*, void*, void*) { return -1; }

int manage_enumerate_instance(void*, NamedInstance**) { return -1; }
int manage_object_with_path(void*, ObjectWithPath**) { return -1; }
int manage_references(void*, ObjectWithPath**) { return -1; }
int manage_associator_names(void*, ObjectPath**) { return -1; }
int manage_references_names(void*, ObjectPath**) { return -1; }
int mapInstance(void*, NamedInstance*) { return -1; }
int mapGetInstance(Instance*, void*) { return -1; }
int util_GetInstanceValues(void*, Instance**) { return -1; }
int mapGetClass(void*, Class*) { return -1; }
int mapCreateinstance(void*, InstanceName*) { return -1; }
int mapInvokeReturnValue(void*, InstanceName**) { return -1; }
int mapObjectWithPath(void*, ObjectWithPath*) { return -1; }
int map_to_object_with_path(const void*, ObjectWithPath*) { return -1; }
int mapReferences(const void*, ObjectWithPath*) { return -1; }
int mapEnumInstanceNames(const void*, InstanceName*) { return -1; }
int mapAssociatorNames(const void*, ObjectPath*) { return -1; }
int mapReferenceNames(const void*, ObjectPath*) { return -1; }
int mapToValueReferenceList(void*, ValueRefArray**) { return -1; }
int GetInstanceProperties(void*, void*, Property**, PropertyArray**, PropertyReference**) {
  return -1;
}
int GetKeyBindingValues(void*, KeyBinding**) { return -1; }
int GetKeysFromObjectPath(void*, KeyBinding**) { return -1; }
int getPropertyArrayData(Value**, uint32_t, void*) { return -1; }
int value2Chars(uint32_t, const void*, char**) { return -1; }
int add_args_to_invoke_response(void*, ParamValue**) { return -1; }
int CIMC_Handle_Invoke_ReturnValues(uint32_t, const void*, const char*, ParamValue*) { return -1; }
int assign_invoke_ret_values(const void*, int*) { return -1; }
int AddToEnumInstanceNameList(const void*, InstanceName**) { return -1; }
int AddToAssociatorList(const void*, ObjectWithPath**) { return -1; }
int AddToAssociatorNameList(const void*, ObjectPath**) { return -1; }

}  // extern "C"
