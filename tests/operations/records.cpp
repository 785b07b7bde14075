// Records as callers give them to operations, and owners for what they get back.
#include "operations/records.h"

#include <cstdlib>
#include <cstring>

namespace operations_test {
namespace {

template <class R>
R* make() {
  return static_cast<R*>(std::calloc(1, sizeof(R)));
}

}  // namespace

OwnedClassName class_name(const char* name) { return OwnedClassName(CIMC_CreateClassName(name)); }

OwnedInstanceName instance_name(const char* class_name, const char* key) {
  auto* name = make<InstanceName>();
  name->className = CIMC_CreateClassName(class_name);
  AddToKeyBindingListRef(&name->keyBindings, "Name", key, "string", nullptr);
  return OwnedInstanceName(name);
}

OwnedInstance instance(const char* class_name, const char* speed) {
  auto* record = make<Instance>();
  record->className = CIMC_CreateClassName(class_name);
  std::string value = speed;
  AddToProeprtyList(&record->properties, "Speed", value.data(), "uint32");
  return OwnedInstance(record);
}

OwnedNamedInstance named_instance(const char* class_name, const char* key, const char* speed) {
  auto* named = make<NamedInstance>();
  named->instanceName = instance_name(class_name, key).release();
  named->instance = instance(class_name, speed).release();
  return OwnedNamedInstance(named);
}

OwnedObjectName object_name(const char* class_name, OwnedInstanceName instance_name) {
  auto* object = make<ObjectName>();
  if (class_name) object->className = CIMC_CreateClassName(class_name);
  object->instanceName = instance_name.release();
  return OwnedObjectName(object);
}

OwnedParamValue param_value(const char* name, const char* number) {
  auto* parameter = make<ParamValue>();
  parameter->name = strdup(name);
  parameter->paramType = strdup("uint32");
  AddToValueList(&parameter->value, number);
  return OwnedParamValue(parameter);
}

std::string text_of(const Error* error) {
  if (!error) return "null";
  return std::string(error->code ? error->code : "") + " " +
         (error->description ? error->description : "");
}

}  // namespace operations_test
