// The operations on associations, and the query, over CIM-XML.
#include "base/memory.h"
#include "operations/response.h"

using cim::Argument;
using cim::OperationRequest;
using cim::Response;

namespace {

// The argument for the object.  A class is sent as "ClassName" instead of "ObjectName": callers
// know it so, although object managers refuse it.
Argument object(const ObjectName* name) {
  if (name && name->className) return {"ClassName", name->className};
  return {"ObjectName", name ? name->instanceName : nullptr};
}

// An object path around the list `names`, which becomes its own; null for a null list.  When
// memory runs out the result is null, and the list is released.
ObjectPath* wrap(InstanceName* names) {
  if (!names) return nullptr;
  auto* path = cim::allocate<ObjectPath>();
  if (path) path->instancePath = cim::allocate<InstancePath>();
  if (path && path->instancePath) {
    path->instancePath->instanceName = names;
    return path;
  }
  cim::release(path);
  cim::release(names);
  return nullptr;
}

}  // namespace

extern "C" {

ObjectWithPath* CIMC_XML_Associators(struct client_Configuration* handle, ObjectName* objectName,
                                     ClassName* assocClass, ClassName* resultClass,
                                     const char* role, const char* resultRole,
                                     uint32_t includeQualifiers, uint32_t includeClassOrigin,
                                     char** /*propertyList*/, Error** errorOut) {
  if (!handle) return nullptr;
  Argument arguments[] = {object(objectName),
                          {"AssocClass", assocClass},
                          {"ResultClass", resultClass},
                          {"Role", role},
                          {"ResultRole", resultRole},
                          {"IncludeQualifiers", includeQualifiers},
                          {"IncludeClassOrigin", includeClassOrigin}};
  const OperationRequest request(*handle, "Associators", arguments);
  return Response(*handle, request).take(&IReturnValue::objectWithPath, errorOut);
}

ObjectPath* CIMC_XML_AssociatorNames(struct client_Configuration* handle, ObjectName* objectName,
                                     ClassName* assocClass, ClassName* resultClass,
                                     const char* role, const char* resultRole, Error** errorOut) {
  if (!handle) return nullptr;
  Argument arguments[] = {object(objectName),
                          {"AssocClass", assocClass},
                          {"ResultClass", resultClass},
                          {"Role", role},
                          {"ResultRole", resultRole}};
  const OperationRequest request(*handle, "AssociatorNames", arguments);
  return Response(*handle, request).take(&IReturnValue::objectPath, errorOut);
}

// Unlike in the other three, "Role" comes last.
ObjectWithPath* CIMC_XML_References(struct client_Configuration* handle, ObjectName* objectName,
                                    ClassName* resultClass, const char* role,
                                    uint32_t includeQualifiers, uint32_t includeClassOrigin,
                                    char** /*propertyList*/, Error** errorOut) {
  if (!handle) return nullptr;
  Argument arguments[] = {object(objectName),
                          {"ResultClass", resultClass},
                          {"IncludeQualifiers", includeQualifiers},
                          {"IncludeClassOrigin", includeClassOrigin},
                          {"Role", role}};
  const OperationRequest request(*handle, "References", arguments);
  return Response(*handle, request).take(&IReturnValue::objectWithPath, errorOut);
}

ObjectPath* CIMC_XML_ReferenceNames(struct client_Configuration* handle, ObjectName* objectName,
                                    ClassName* resultClass, const char* role, Error** errorOut) {
  if (!handle) return nullptr;
  Argument arguments[] = {object(objectName), {"ResultClass", resultClass}, {"Role", role}};
  const OperationRequest request(*handle, "ReferenceNames", arguments);
  return wrap(Response(*handle, request).take(&IReturnValue::instanceName, errorOut));
}

ObjectWithPath* CIMC_XML_ExecQuery(struct client_Configuration* handle, const char* queryLanguage,
                                   const char* query, Error** errorOut) {
  if (!handle) return nullptr;
  Argument arguments[] = {{"QueryLanguage", queryLanguage}, {"Query", query}};
  const OperationRequest request(*handle, "ExecQuery", arguments);
  return Response(*handle, request).take(&IReturnValue::objectWithPath, errorOut);
}

}  // extern "C"
