// The fifteen operations: each goes to the back end of its handle.
#include "cim_client.h"

namespace {

using Handle = struct client_Configuration;

// Values of Handle::interface.
enum Backend : int32_t { cim_xml = 0, local_broker = 1 };

bool is_served_by(const Handle* handle, Backend backend) {
  return handle && handle->interface == backend;
}

// What ModifyInstance() and DeleteInstance() give on a handle of an unknown back end: callers
// know that they hand back their own argument.
intptr_t unserved(const Handle* handle, const void* argument) {
  if (!handle || is_served_by(handle, local_broker)) return 0;
  return reinterpret_cast<intptr_t>(argument);
}

}  // namespace

extern "C" {

// Class definitions are read over CIM-XML whatever the back end.
Class* CIM_GetClass(struct client_Configuration* handle, ClassName* className, uint32_t localOnly,
                    uint32_t includeQualifiers, uint32_t includeClassOrigin, char** propertyList,
                    Error** errorOut) {
  return CIMC_XML_GetClass(handle, className, localOnly, includeQualifiers, includeClassOrigin,
                           propertyList, errorOut);
}

Class* CIM_EnumerateClasses(struct client_Configuration* handle, ClassName* className,
                            uint32_t deepInheritance, uint32_t localOnly,
                            uint32_t includeQualifiers, uint32_t includeClassOrigin,
                            Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return nullptr;
  return CIMC_XML_EnumerateClasses(handle, className, deepInheritance, localOnly, includeQualifiers,
                                   includeClassOrigin, errorOut);
}

ClassName* EnumerateClassNames(struct client_Configuration* handle, ClassName* className,
                               uint32_t deepInheritance, Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return nullptr;
  return CIMC_XML_EnumerateClassNames(handle, className, deepInheritance, errorOut);
}

NamedInstance* EnumerateInstances(struct client_Configuration* handle, ClassName* className,
                                  uint32_t localOnly, uint32_t deepInheritance,
                                  uint32_t includeQualifiers, uint32_t includeClassOrigin,
                                  char** propertyList, Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return nullptr;
  return CIMC_XML_EnumerateInstances(handle, className, localOnly, deepInheritance,
                                     includeQualifiers, includeClassOrigin, propertyList, errorOut);
}

InstanceName* EnumerateInstanceNames(struct client_Configuration* handle, ClassName* className,
                                     Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return nullptr;
  return CIMC_XML_EnumerateInstanceNames(handle, className, errorOut);
}

Instance* GetInstance(struct client_Configuration* handle, InstanceName* instanceName,
                      uint32_t localOnly, uint32_t includeQualifiers, uint32_t includeClassOrigin,
                      char** propertyList, Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return nullptr;
  return CIMC_XML_GetInstance(handle, instanceName, localOnly, includeQualifiers,
                              includeClassOrigin, propertyList, errorOut);
}

ObjectWithPath* Associators(struct client_Configuration* handle, ObjectName* objectName,
                            ClassName* assocClass, ClassName* resultClass, const char* role,
                            const char* resultRole, uint32_t includeQualifiers,
                            uint32_t includeClassOrigin, char** propertyList, Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return nullptr;
  return CIMC_XML_Associators(handle, objectName, assocClass, resultClass, role, resultRole,
                              includeQualifiers, includeClassOrigin, propertyList, errorOut);
}

ObjectPath* AssociatorNames(struct client_Configuration* handle, ObjectName* objectName,
                            ClassName* assocClass, ClassName* resultClass, const char* role,
                            const char* resultRole, Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return nullptr;
  return CIMC_XML_AssociatorNames(handle, objectName, assocClass, resultClass, role, resultRole,
                                  errorOut);
}

ObjectWithPath* References(struct client_Configuration* handle, ObjectName* objectName,
                           ClassName* resultClass, const char* role, uint32_t includeQualifiers,
                           uint32_t includeClassOrigin, char** propertyList, Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return nullptr;
  return CIMC_XML_References(handle, objectName, resultClass, role, includeQualifiers,
                             includeClassOrigin, propertyList, errorOut);
}

ObjectPath* ReferenceNames(struct client_Configuration* handle, ObjectName* objectName,
                           ClassName* resultClass, const char* role, Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return nullptr;
  return CIMC_XML_ReferenceNames(handle, objectName, resultClass, role, errorOut);
}

InstanceName* CIM_CreateInstance(struct client_Configuration* handle, Instance* newInstance,
                                 Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return nullptr;
  return CIMC_XML_CreateInstance(handle, newInstance, errorOut);
}

intptr_t ModifyInstance(struct client_Configuration* handle, NamedInstance* modifiedInstance,
                        uint32_t includeQualifiers, char** propertyList, Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return unserved(handle, modifiedInstance);
  return CIMC_XML_ModifyInstance(handle, modifiedInstance, includeQualifiers, propertyList,
                                 errorOut);
}

intptr_t DeleteInstance(struct client_Configuration* handle, InstanceName* instanceName,
                        Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return unserved(handle, instanceName);
  return CIMC_XML_DeleteInstance(handle, instanceName, errorOut);
}

int invokeMethod(struct client_Configuration* handle, InstanceName* instanceName,
                 const char* methodName, ParamValue* inParams, ParamValue** outParams,
                 Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return -1;
  return CIMC_XML_invokeMethod(handle, instanceName, methodName, inParams, outParams, errorOut);
}

ObjectWithPath* ExecQuery(struct client_Configuration* handle, const char* queryLanguage,
                          const char* query, Error** errorOut) {
  if (!is_served_by(handle, cim_xml)) return nullptr;
  return CIMC_XML_ExecQuery(handle, queryLanguage, query, errorOut);
}

}  // extern "C"
