// The operations on classes over CIM-XML.
#include "operations/response.h"

using cim::Argument;
using cim::OperationRequest;
using cim::Response;

extern "C" {

Class* CIMC_XML_GetClass(struct client_Configuration* handle, ClassName* className,
                         uint32_t localOnly, uint32_t includeQualifiers,
                         uint32_t includeClassOrigin, char** /*propertyList*/, Error** errorOut) {
  if (!handle) return nullptr;
  Argument arguments[] = {{"ClassName", className},
                          {"LocalOnly", localOnly},
                          {"IncludeQualifiers", includeQualifiers},
                          {"IncludeClassOrigin", includeClassOrigin}};
  const OperationRequest request(*handle, "GetClass", arguments);
  return Response(*handle, request).take(&IReturnValue::class_, errorOut);
}

Class* CIMC_XML_EnumerateClasses(struct client_Configuration* handle, ClassName* className,
                                 uint32_t deepInheritance, uint32_t localOnly,
                                 uint32_t includeQualifiers, uint32_t includeClassOrigin,
                                 Error** errorOut) {
  if (!handle) return nullptr;
  Argument arguments[] = {{"ClassName", className},
                          {"DeepInheritance", deepInheritance},
                          {"LocalOnly", localOnly},
                          {"IncludeQualifiers", includeQualifiers},
                          {"IncludeClassOrigin", includeClassOrigin}};
  const OperationRequest request(*handle, "EnumerateClasses", arguments);
  return Response(*handle, request).take(&IReturnValue::class_, errorOut);
}

ClassName* CIMC_XML_EnumerateClassNames(struct client_Configuration* handle, ClassName* className,
                                        uint32_t deepInheritance, Error** errorOut) {
  if (!handle) return nullptr;
  Argument arguments[] = {{"ClassName", className}, {"DeepInheritance", deepInheritance}};
  const OperationRequest request(*handle, "EnumerateClassNames", arguments);
  return Response(*handle, request).take(&IReturnValue::className, errorOut);
}

}  // extern "C"
