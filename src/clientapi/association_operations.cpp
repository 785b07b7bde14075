// Local operations that walk associations and run queries.
#include "cim_client.h"
#include "clientapi/log.h"
#include "clientapi/session.h"

namespace {

using namespace cim::broker;

const char* class_text(const ObjectName* object) {
  return class_of(object ? object->instanceName : nullptr);
}

// An empty or missing class name asks for any class.
const char* wanted_class(const ClassName* name) {
  const char* text = text_of(name);
  return text && *text ? text : nullptr;
}

}  // namespace

extern "C" {

int CIMC_Associators(ObjectWithPath** resultOut, const InstanceName* instanceName,
                     const char* assocClass, const char* resultClass, const char* role,
                     const char* resultRole, const char* /*host*/, const char* user,
                     const char* password, Error** errorOut, const char* nameSpace) {
  const LoggedExit logged("Associators");
  if (!is_complete(instanceName) || !nameSpace) return -1;
  const Session session(user, password);
  if (!session) return -1;
  log_entry("Associators: classname: %s, assoc: %s, result: %s", class_of(instanceName),
            shown(assocClass), shown(resultClass));

  Owned<CIMCObjectPath> path = make_instance_path(session, *instanceName, nameSpace);
  if (!path) return -1;
  Outcome outcome;
  const Owned<CIMCEnumeration> objects(
      session->associators(session.client(), path.get(), assocClass, resultClass, role, resultRole,
                           0, nullptr, outcome.receive()));
  path.reset(nullptr);
  return outcome.failed() ? report(outcome, errorOut)
                          : manage_object_with_path(objects.get(), resultOut);
}

int CIMC_AssociatorNames(ObjectPath** resultOut, const InstanceName* instanceName,
                         const char* className, const char* assocClass, const char* resultClass,
                         const char* role, const char* resultRole, const char* /*host*/,
                         const char* user, const char* password, Error** errorOut,
                         const char* nameSpace) {
  const LoggedExit logged("AssociatorNames");
  const Session session(user, password);
  if (!session) return -1;
  log_entry("AssociatorNames: classname: %s, assoc: %s, result: %s", shown(class_of(instanceName)),
            shown(assocClass), shown(resultClass));
  if (!className || !nameSpace || !instanceName || !instanceName->keyBindings) return -1;

  CIMCEnv* env = session.env();
  Owned<CIMCObjectPath> path(make_path(env, nameSpace, className));
  if (!path || CIMC_AddKeyValues(instanceName->keyBindings, path.get(), nameSpace, env) != 0)
    return -1;
  Outcome outcome;
  const Owned<CIMCEnumeration> names(session->associatorNames(
      session.client(), path.get(), assocClass, resultClass, role, resultRole, outcome.receive()));
  path.reset(nullptr);
  return outcome.failed() ? report(outcome, errorOut)
                          : manage_associator_names(names.get(), resultOut);
}

// Applications rely on 0, whatever happened.
int CIMC_References(ObjectWithPath** resultOut, const ObjectName* objectName,
                    const ClassName* resultClass, const char* role, uint32_t /*includeQualifiers*/,
                    uint32_t /*includeClassOrigin*/, char** /*propertyList*/, const char* nameSpace,
                    const char* user, const char* password, Error** errorOut) {
  const LoggedExit logged("References");
  const Session session(user, password);
  if (!session) return 0;
  log_entry("References classname: %s", shown(class_text(objectName)));
  if (!objectName || !is_complete(objectName->instanceName) || !nameSpace) return 0;

  Owned<CIMCObjectPath> path = make_instance_path(session, *objectName->instanceName, nameSpace);
  if (!path) return 0;
  Outcome outcome;
  const Owned<CIMCEnumeration> objects(session->references(session.client(), path.get(),
                                                           wanted_class(resultClass), role, 0,
                                                           nullptr, outcome.receive()));
  path.reset(nullptr);
  if (outcome.failed()) {
    report(outcome, errorOut);
  } else {
    manage_references(objects.get(), resultOut);
  }
  return 0;
}

int CIMC_ReferenceNames(ObjectPath** resultOut, const ObjectName* objectName,
                        const ClassName* resultClass, const char* role, const char* nameSpace,
                        const char* user, const char* password, Error** errorOut) {
  const LoggedExit logged("ReferenceNames");
  const Session session(user, password);
  if (!session) return -1;
  log_entry("ReferenceNames classname: %s", shown(class_text(objectName)));
  if (!class_text(objectName) || !nameSpace) return -1;

  Owned<CIMCObjectPath> path = make_instance_path(session, *objectName->instanceName, nameSpace);
  if (!path) return -1;
  Outcome outcome;
  const Owned<CIMCEnumeration> names(session->referenceNames(
      session.client(), path.get(), text_of(resultClass), role, outcome.receive()));
  path.reset(nullptr);
  return outcome.failed() ? report(outcome, errorOut)
                          : manage_references_names(names.get(), resultOut);
}

int CIMC_ExecQuery(ObjectWithPath** resultOut, const char* nameSpace, const char* query,
                   const char* queryLanguage, Error** errorOut) {
  const LoggedExit logged("ExecQuery");
  if (!query || !queryLanguage || !nameSpace) return -1;
  log_entry("ExecQuery:  Query %s", query);
  const Session session(nullptr, nullptr);
  if (!session) return -1;

  // The broker takes the namespace of this path alone.
  Owned<CIMCObjectPath> path(make_path(session.env(), nameSpace, "CIM_Sensor"));
  if (!path) return -1;
  Outcome outcome;
  const Owned<CIMCEnumeration> objects(
      session->execQuery(session.client(), path.get(), query, queryLanguage, outcome.receive()));
  path.reset(nullptr);
  return outcome.failed() ? report(outcome, errorOut)
                          : manage_object_with_path(objects.get(), resultOut);
}

}  // extern "C"
