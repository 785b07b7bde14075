// The method call over CIM-XML.
#include <algorithm>
#include <cstdlib>
#include <limits>

#include "operations/response.h"

namespace {

// The leading decimal digits of `text`, else 0.  Numbers beyond 32 bits give the limit that
// they pass, whatever the width of long.
int number_of(const char* text) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<int>(
      std::clamp<long>(std::strtol(text, nullptr, 10), Limits::min(), Limits::max()));
}

// The method's own return value, -1 when it is no text.
int number_of(const ReturnValue& returned) {
  return returned.value && returned.value->text ? number_of(returned.value->text) : -1;
}

}  // namespace

extern "C" {

// Callers know that a refused user or password gives no Error here, and that output
// parameters come only with a return value.
int CIMC_XML_invokeMethod(struct client_Configuration* handle, InstanceName* instanceName,
                          const char* methodName, ParamValue* inParams, ParamValue** outParams,
                          Error** errorOut) {
  if (!handle) return -1;
  const cim::MethodRequest request(*handle, methodName, instanceName, inParams);
  const cim::Response response(*handle, request, cim::Response::LeftOver::Parsed);

  MethodResponse* answer = response.method_response();
  if (!answer) return -1;
  if (answer->error) {
    cim::hand_out(answer->error, errorOut);
    return -1;
  }
  if (!answer->returnValue) return -1;
  if (outParams && answer->paramValues) *outParams = std::exchange(answer->paramValues, nullptr);
  return number_of(*answer->returnValue);
}

}  // extern "C"
