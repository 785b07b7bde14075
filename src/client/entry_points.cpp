// The fifteen operations: each goes to the back end of its handle.
#include "cim_client.h"

namespace {

using Handle = struct client_Configuration;

// Values of Handle::interface.
enum Backend : int32_t { CimXml = 0, LocalBroker = 1 };

bool is_served_by(const Handle* handle, Backend backend) {
  return handle && handle->interface == backend;
}

// What a class name or an object name holds; null when it holds nothing or is null itself.
const char* text_of(const ClassName* name) { return name ? name->name : nullptr; }
InstanceName* instance_of(const ObjectName* object) {
  return object ? object->instanceName : nullptr;
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
  if (!is_served_by(handle, CimXml)) return nullptr;
  return CIMC_XML_EnumerateClasses(handle, className, deepInheritance, localOnly, includeQualifiers,
                                   includeClassOrigin, errorOut);
}

ClassName* EnumerateClassNames(struct client_Configuration* handle, ClassName* className,
                               uint32_t deepInheritance, Error** errorOut) {
  if (!is_served_by(handle, CimXml)) return nullptr;
  return CIMC_XML_EnumerateClassNames(handle, className, deepInheritance, errorOut);
}

NamedInstance* EnumerateInstances(struct client_Configuration* handle, ClassName* className,
                                  uint32_t localOnly, uint32_t deepInheritance,
                                  uint32_t includeQualifiers, uint32_t includeClassOrigin,
                                  char** propertyList, Error** errorOut) {
  if (is_served_by(handle, CimXml))
    return CIMC_XML_EnumerateInstances(handle, className, localOnly, deepInheritance,
                                       includeQualifiers, includeClassOrigin, propertyList,
                                       errorOut);
  NamedInstance* result = nullptr;
  if (is_served_by(handle, LocalBroker) && text_of(className))
    CIMC_EnumInstances(&result, className->name, handle->host, handle->user, handle->password,
                       deepInheritance, errorOut, handle->namespace_);
  return result;
}

InstanceName* EnumerateInstanceNames(struct client_Configuration* handle, ClassName* className,
                                     Error** errorOut) {
  if (is_served_by(handle, CimXml))
    return CIMC_XML_EnumerateInstanceNames(handle, className, errorOut);
  InstanceName* result = nullptr;
  if (is_served_by(handle, LocalBroker) && text_of(className))
    CIMC_EnumInstanceNames(&result, className->name, handle->host, handle->user, handle->password,
                           errorOut, handle->namespace_);
  return result;
}

Instance* GetInstance(struct client_Configuration* handle, InstanceName* instanceName,
                      uint32_t localOnly, uint32_t includeQualifiers, uint32_t includeClassOrigin,
                      char** propertyList, Error** errorOut) {
  if (is_served_by(handle, CimXml))
    return CIMC_XML_GetInstance(handle, instanceName, localOnly, includeQualifiers,
                                includeClassOrigin, propertyList, errorOut);
  Instance* result = nullptr;
  if (is_served_by(handle, LocalBroker))
    CIMC_GetInstance(&result, instanceName, handle->host, handle->user, handle->password, errorOut,
                     handle->namespace_);
  return result;
}

ObjectWithPath* Associators(struct client_Configuration* handle, ObjectName* objectName,
                            ClassName* assocClass, ClassName* resultClass, const char* role,
                            const char* resultRole, uint32_t includeQualifiers,
                            uint32_t includeClassOrigin, char** propertyList, Error** errorOut) {
  if (is_served_by(handle, CimXml))
    return CIMC_XML_Associators(handle, objectName, assocClass, resultClass, role, resultRole,
                                includeQualifiers, includeClassOrigin, propertyList, errorOut);
  ObjectWithPath* result = nullptr;
  if (is_served_by(handle, LocalBroker) && instance_of(objectName))
    CIMC_Associators(&result, objectName->instanceName, text_of(assocClass), text_of(resultClass),
                     role, resultRole, handle->host, handle->user, handle->password, errorOut,
                     handle->namespace_);
  return result;
}

ObjectPath* AssociatorNames(struct client_Configuration* handle, ObjectName* objectName,
                            ClassName* assocClass, ClassName* resultClass, const char* role,
                            const char* resultRole, Error** errorOut) {
  if (is_served_by(handle, CimXml))
    return CIMC_XML_AssociatorNames(handle, objectName, assocClass, resultClass, role, resultRole,
                                    errorOut);
  ObjectPath* result = nullptr;
  if (const InstanceName* name = instance_of(objectName); name && is_served_by(handle, LocalBroker))
    CIMC_AssociatorNames(&result, name, text_of(name->className), text_of(assocClass),
                         text_of(resultClass), role, resultRole, handle->host, handle->user,
                         handle->password, errorOut, handle->namespace_);
  return result;
}

ObjectWithPath* References(struct client_Configuration* handle, ObjectName* objectName,
                           ClassName* resultClass, const char* role, uint32_t includeQualifiers,
                           uint32_t includeClassOrigin, char** propertyList, Error** errorOut) {
  if (is_served_by(handle, CimXml))
    return CIMC_XML_References(handle, objectName, resultClass, role, includeQualifiers,
                               includeClassOrigin, propertyList, errorOut);
  ObjectWithPath* result = nullptr;
  if (is_served_by(handle, LocalBroker) && instance_of(objectName))
    CIMC_References(&result, objectName, resultClass, role, includeQualifiers, includeClassOrigin,
                    propertyList, handle->namespace_, handle->user, handle->password, errorOut);
  return result;
}

ObjectPath* ReferenceNames(struct client_Configuration* handle, ObjectName* objectName,
                           ClassName* resultClass, const char* role, Error** errorOut) {
  if (is_served_by(handle, CimXml))
    return CIMC_XML_ReferenceNames(handle, objectName, resultClass, role, errorOut);
  ObjectPath* result = nullptr;
  if (is_served_by(handle, LocalBroker))
    CIMC_ReferenceNames(&result, objectName, resultClass, role, handle->namespace_, handle->user,
                        handle->password, errorOut);
  return result;
}

InstanceName* CIM_CreateInstance(struct client_Configuration* handle, Instance* newInstance,
                                 Error** errorOut) {
  if (is_served_by(handle, CimXml)) return CIMC_XML_CreateInstance(handle, newInstance, errorOut);
  InstanceName* result = nullptr;
  if (is_served_by(handle, LocalBroker))
    CIMC_CreateInstance(&result, newInstance, handle->namespace_, handle->user, handle->password,
                        errorOut);
  return result;
}

intptr_t ModifyInstance(struct client_Configuration* handle, NamedInstance* modifiedInstance,
                        uint32_t includeQualifiers, char** propertyList, Error** errorOut) {
  if (!handle) return 0;
  if (is_served_by(handle, CimXml))
    return CIMC_XML_ModifyInstance(handle, modifiedInstance, includeQualifiers, propertyList,
                                   errorOut);
  if (is_served_by(handle, LocalBroker))
    return CIMC_ModifyInstance(modifiedInstance, nullptr, handle->namespace_, handle->user,
                               handle->password, errorOut);
  return reinterpret_cast<intptr_t>(modifiedInstance);  // callers of other back ends get it back
}

intptr_t DeleteInstance(struct client_Configuration* handle, InstanceName* instanceName,
                        Error** errorOut) {
  if (!handle) return 0;
  if (is_served_by(handle, CimXml)) return CIMC_XML_DeleteInstance(handle, instanceName, errorOut);
  if (is_served_by(handle, LocalBroker))
    return CIMC_DeleteInstance(instanceName, handle->namespace_, handle->user, handle->password,
                               errorOut);
  return reinterpret_cast<intptr_t>(instanceName);  // callers of other back ends get it back
}

int invokeMethod(struct client_Configuration* handle, InstanceName* instanceName,
                 const char* methodName, ParamValue* inParams, ParamValue** outParams,
                 Error** errorOut) {
  if (is_served_by(handle, CimXml))
    return CIMC_XML_invokeMethod(handle, instanceName, methodName, inParams, outParams, errorOut);
  if (is_served_by(handle, LocalBroker))
    return CIMC_InvokeMethod(instanceName, methodName, handle->namespace_, inParams, outParams,
                             handle->user, handle->password, errorOut);
  return -1;
}

ObjectWithPath* ExecQuery(struct client_Configuration* handle, const char* queryLanguage,
                          const char* query, Error** errorOut) {
  if (is_served_by(handle, CimXml))
    return CIMC_XML_ExecQuery(handle, queryLanguage, query, errorOut);
  ObjectWithPath* result = nullptr;
  if (is_served_by(handle, LocalBroker))  // where the two strings change places
    CIMC_ExecQuery(&result, handle->namespace_, query, queryLanguage, errorOut);
  return result;
}

}  // extern "C"
