// Object names and class names for the association operations.
#include <cstdlib>

#include "base/memory.h"
#include "cim_client.h"

extern "C" {

ObjectName* CIMC_CreateObjectName(const char* className, const InstanceName* instanceName) {
  auto* object = cim::allocate<ObjectName>();
  if (!object) return nullptr;
  if (className) object->className = CIMC_CreateClassName(className);
  if (Clone_InstanceName(instanceName, &object->instanceName) == 0 &&
      (object->className || !className))
    return object;
  Free_ObjectName(object);
  return nullptr;
}

ClassName* CIMC_CreateClassName(const char* name) {
  if (!name) return nullptr;
  auto* record = cim::allocate<ClassName>();
  if (!record) return nullptr;
  record->name = cim::duplicate(name);
  if (record->name) return record;
  Free_ClassName(record);
  return nullptr;
}

int Free_ObjectName(ObjectName* objectName) {
  if (!objectName) return 0;
  Free_ClassName(objectName->className);
  Free_InstanceName(objectName->instanceName);
  std::free(objectName);
  return 0;
}

int Free_InstanceName_New(InstanceName* instanceName) {
  if (!instanceName) return 0;
  Free_KeyBinding(instanceName->keyBindings);
  Free_KeyValue(instanceName->keyValue);
  Free_ValueReference(instanceName->valueReference);
  Free_ClassName(instanceName->className);
  std::free(instanceName);
  return 0;
}

}  // extern "C"
