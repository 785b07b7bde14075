// The operations on instances over CIM-XML.
#include "operations/response.h"

using cim::Argument;
using cim::OperationRequest;
using cim::Response;

namespace {

// Sends a request that returns nothing, and reports the error that it ended in.  Not 0 when
// user or password were refused.
intptr_t run(const cim::Handle& handle, const cim::Request& request, Error** error_out) {
  Response response(handle, request, Response::LeftOver::Parsed);
  response.take_error(error_out);
  return response.is_refused() ? 1 : 0;
}

}  // namespace

extern "C" {

NamedInstance* CIMC_XML_EnumerateInstances(struct client_Configuration* handle,
                                           ClassName* className, uint32_t localOnly,
                                           uint32_t deepInheritance, uint32_t includeQualifiers,
                                           uint32_t includeClassOrigin, char** /*propertyList*/,
                                           Error** errorOut) {
  if (!handle) return nullptr;
  Argument arguments[] = {{"ClassName", className},
                          {"LocalOnly", localOnly},
                          {"DeepInheritance", deepInheritance},
                          {"IncludeQualifiers", includeQualifiers},
                          {"IncludeClassOrigin", includeClassOrigin}};
  const OperationRequest request(*handle, "EnumerateInstances", arguments);
  return Response(*handle, request).take(&IReturnValue::namedInstance, errorOut);
}

InstanceName* CIMC_XML_EnumerateInstanceNames(struct client_Configuration* handle,
                                              ClassName* className, Error** errorOut) {
  if (!handle) return nullptr;
  Argument arguments[] = {{"ClassName", className}};
  const OperationRequest request(*handle, "EnumerateInstanceNames", arguments);
  return Response(*handle, request).take(&IReturnValue::instanceName, errorOut);
}

// Of a list of names only the first is sent.  Callers know that the list stays cut when no
// answer came or user or password were refused.
Instance* CIMC_XML_GetInstance(struct client_Configuration* handle, InstanceName* instanceName,
                               uint32_t localOnly, uint32_t includeQualifiers,
                               uint32_t includeClassOrigin, char** /*propertyList*/,
                               Error** errorOut) {
  if (!handle) return nullptr;
  InstanceName* rest = instanceName ? std::exchange(instanceName->next, nullptr) : nullptr;
  Argument arguments[] = {{"InstanceName", instanceName},
                          {"LocalOnly", localOnly},
                          {"IncludeQualifiers", includeQualifiers},
                          {"IncludeClassOrigin", includeClassOrigin}};
  const OperationRequest request(*handle, "GetInstance", arguments);
  Response response(*handle, request);
  if (instanceName && response.is_parsed()) instanceName->next = rest;
  return response.take(&IReturnValue::instance, errorOut);
}

InstanceName* CIMC_XML_CreateInstance(struct client_Configuration* handle, Instance* newInstance,
                                      Error** errorOut) {
  if (!handle) return nullptr;
  Argument arguments[] = {{"NewInstance", newInstance}};
  const OperationRequest request(*handle, "CreateInstance", arguments);
  return Response(*handle, request).take(&IReturnValue::instanceName, errorOut);
}

intptr_t CIMC_XML_ModifyInstance(struct client_Configuration* handle,
                                 NamedInstance* modifiedInstance, uint32_t includeQualifiers,
                                 char** /*propertyList*/, Error** errorOut) {
  if (!handle) return 0;
  Argument arguments[] = {{"IncludeQualifiers", includeQualifiers},
                          {"ModifiedInstance", modifiedInstance}};
  return run(*handle, OperationRequest(*handle, "ModifyInstance", arguments), errorOut);
}

intptr_t CIMC_XML_DeleteInstance(struct client_Configuration* handle, InstanceName* instanceName,
                                 Error** errorOut) {
  if (!handle) return 0;
  Argument arguments[] = {{"InstanceName", instanceName}};
  return run(*handle, OperationRequest(*handle, "DeleteInstance", arguments), errorOut);
}

}  // extern "C"
