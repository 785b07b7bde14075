// The local method call.
#include "cim_client.h"
#include "clientapi/arguments.h"
#include "clientapi/log.h"
#include "clientapi/session.h"

namespace {

using namespace cim::broker;

// What a call that did not reach the method returns.
constexpr int not_called = 2;

// The broker objects of one call.  Released in, out, path, then what the arguments refer to.
struct Call {
  Kept kept;
  Owned<CIMCObjectPath> path;
  Owned<CIMCArgs> out;
  Owned<CIMCArgs> in;
};

// Hands out what the method gave, and returns the operation's result.
int finish(const CIMCData& returned, const Outcome& outcome, CIMCArgs* out, ParamValue** parameters,
           Error** error) {
  int result = 0;
  assign_invoke_ret_values(&returned, &result);
  if (!outcome.failed()) {
    add_args_to_invoke_response(out, parameters);
    return result;
  }
  if (!outcome.has_text()) return result;
  report(outcome, error);
  return outcome.code();
}

}  // namespace

extern "C" int CIMC_InvokeMethod(const InstanceName* instanceName, const char* methodName,
                                 const char* nameSpace, const ParamValue* inParams,
                                 ParamValue** outParams, const char* user, const char* password,
                                 Error** errorOut) {
  const LoggedExit logged("InvokeMethod");
  const Session session(user, password);
  if (!session) return not_called;
  CIMCEnv* env = session.env();
  Call call;
  call.in.reset(env->ft->newArgs(env, nullptr));
  call.out.reset(env->ft->newArgs(env, nullptr));
  log_entry("InvokeMethod classname: %s", shown(class_of(instanceName)));
  if (!is_complete(instanceName) || !nameSpace || !call.in || !call.out) return not_called;

  call.path.reset(make_instance_path(session, *instanceName, nameSpace).give());
  const ArgumentTarget target = {call.in.get(), env, nameSpace, &call.kept};
  if (!call.path || !add_arguments(inParams, target)) return not_called;

  Outcome outcome;
  const CIMCData returned = session->invokeMethod(session.client(), call.path.get(), methodName,
                                                  call.in.get(), call.out.get(), outcome.receive());
  return finish(returned, outcome, call.out.get(), outParams, errorOut);
}
