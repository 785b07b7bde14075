// Local operations on classes and instances.
#include "base/memory.h"
#include "cim_client.h"
#include "clientapi/log.h"
#include "clientapi/session.h"
#include "clientapi/walkers.h"
#include "model/records.h"
#include "model/release.h"

using namespace cim::broker;
using cim::allocate;
using cim::release;

extern "C" {

int CIMC_EnumInstances(NamedInstance** resultOut, const char* className, const char* /*host*/,
                       const char* user, const char* password, uint32_t deepInheritance,
                       Error** errorOut, const char* nameSpace) {
  const LoggedExit logged("EnumInstances");
  const Session session(user, password);
  if (!session) return -1;
  if (className) {
    log_entry("EnumInstances: classname: %s", className);
  } else {
    log_entry("%s", "");
  }
  if (!className || !nameSpace) return -1;

  Owned<CIMCObjectPath> path(make_path(session.env(), nameSpace, className));
  if (!path) return -1;
  const CIMCFlags flags = deepInheritance == 1 ? deep_inheritance : 0;
  Outcome outcome;
  const Owned<CIMCEnumeration> instances(
      session->enumInstances(session.client(), path.get(), flags, nullptr, outcome.receive()));
  path.reset(nullptr);
  if (!instances) return report(outcome, errorOut);
  manage_enumerate_instance(instances.get(), resultOut);
  return 0;
}

int CIMC_EnumInstanceNames(InstanceName** resultOut, const char* className, const char* /*host*/,
                           const char* user, const char* password, Error** errorOut,
                           const char* nameSpace) {
  const LoggedExit logged("EnumInstanceNames");
  const Session session(user, password);
  if (!session) return -1;
  log_entry("EnumInstanceNames: classname: %s", shown(className));
  if (!className || !nameSpace) return -1;

  Owned<CIMCObjectPath> path(make_path(session.env(), nameSpace, className));
  if (!path) return -1;
  Outcome outcome;
  const Owned<CIMCEnumeration> names(
      session->enumInstanceNames(session.client(), path.get(), outcome.receive()));
  path.reset(nullptr);
  if (outcome.failed()) return report(outcome, errorOut);
  collect_names(names.get(), resultOut);
  return 0;
}

int CIMC_GetInstance(Instance** resultOut, const InstanceName* instanceName, const char* /*host*/,
                     const char* user, const char* password, Error** errorOut,
                     const char* nameSpace) {
  const LoggedExit logged("GetInstance");
  const Session session(user, password);
  if (!session) return -1;
  log_entry("GetInstance: classname: %s", shown(class_of(instanceName)));
  if (!is_complete(instanceName) || !nameSpace) return -1;

  Owned<CIMCObjectPath> path = make_instance_path(session, *instanceName, nameSpace);
  if (!path) return -1;
  Outcome outcome;
  const Owned<CIMCInstance> instance(
      session->getInstance(session.client(), path.get(), 0, nullptr, outcome.receive()));
  path.reset(nullptr);
  if (outcome.failed()) return report(outcome, errorOut);
  return instance ? util_GetInstanceValues(instance.get(), resultOut) : -1;
}

int CIMC_GetClass(Class** resultOut, const ClassName* className, uint32_t /*localOnly*/,
                  uint32_t /*includeQualifiers*/, uint32_t /*includeClassOrigin*/,
                  char** /*propertyList*/, const char* user, const char* password,
                  const char* nameSpace, Error** errorOut) {
  const LoggedExit logged("GetClass");
  const Session session(user, password);
  if (!session) return -1;
  const char* name = text_of(className);
  log_entry("GetClass: classname: %s", shown(name));
  if (!name || !nameSpace) return -1;

  Owned<CIMCObjectPath> path(make_path(session.env(), nameSpace, name));
  if (!path) return -1;
  Outcome outcome;
  const Owned<CIMCClass> found(
      session->getClass(session.client(), path.get(), 0, nullptr, outcome.receive()));
  path.reset(nullptr);
  if (outcome.failed()) return report(outcome, errorOut);
  auto* record = allocate<Class>();
  if (!record || !found || mapGetClass(found.get(), record) != 0) {
    release(record);
    return -1;
  }
  *resultOut = record;
  return 0;
}

int CIMC_CreateInstance(InstanceName** resultOut, const Instance* newInstance,
                        const char* nameSpace, const char* user, const char* password,
                        Error** errorOut) {
  const Session session(user, password);
  if (!session) return -1;
  const char* class_name = newInstance ? text_of(newInstance->className) : nullptr;
  if (!class_name || !nameSpace) return -1;

  CIMCEnv* env = session.env();
  Owned<CIMCObjectPath> path(make_path(env, nameSpace, class_name));
  if (!path) return -1;
  Owned<CIMCInstance> instance(env->ft->newInstance(env, path.get(), nullptr));
  if (!instance ||
      create_inst_req_add_props(nameSpace, newInstance, path.get(), instance.get(), env) != 0)
    return -1;

  Owned<CIMCObjectPath> target(instance->ft->getObjectPath(instance.get(), nullptr));
  if (!target) return -1;
  Outcome outcome;
  const Owned<CIMCObjectPath> created(
      session->createInstance(session.client(), target.get(), instance.get(), outcome.receive()));
  target.reset(nullptr);
  instance.reset(nullptr);
  path.reset(nullptr);
  if (outcome.failed()) return report(outcome, errorOut);
  auto* record = allocate<InstanceName>();
  if (!record) return -1;
  mapCreateinstance(created.get(), record);  // handed out as far as it could be read
  *resultOut = record;
  return 0;
}

int CIMC_ModifyInstance(const NamedInstance* modifiedInstance, const void* /*ignored*/,
                        const char* nameSpace, const char* user, const char* password,
                        Error** errorOut) {
  const LoggedExit logged("ModifyInstance");
  const Session session(user, password);
  if (!session) return -1;
  const InstanceName* name = modifiedInstance ? modifiedInstance->instanceName : nullptr;
  log_entry("ModifyInstance: classname: %s", shown(class_of(name)));
  if (!is_complete(name) || !nameSpace) return -1;

  const Owned<CIMCObjectPath> path = make_instance_path(session, *name, nameSpace);
  if (!path) return -1;
  CIMCEnv* env = session.env();
  const Owned<CIMCInstance> instance(env->ft->newInstance(env, path.get(), nullptr));
  if (!instance || add_value_to_mi_req(modifiedInstance, instance.get(), env) != 0) return -1;
  const Outcome outcome(
      session->setInstance(session.client(), path.get(), instance.get(), 0, nullptr));
  return outcome.failed() ? report(outcome, errorOut) : 0;
}

int CIMC_DeleteInstance(const InstanceName* instanceName, const char* nameSpace, const char* user,
                        const char* password, Error** errorOut) {
  const Session session(user, password);
  if (!session) return -1;
  if (!is_complete(instanceName) || !nameSpace) return -1;

  const Owned<CIMCObjectPath> path = make_instance_path(session, *instanceName, nameSpace);
  if (!path) return -1;
  const Outcome outcome(session->deleteInstance(session.client(), path.get()));
  if (!outcome.failed()) return 0;
  report(outcome, errorOut);
  return -1;
}

}  // extern "C"
