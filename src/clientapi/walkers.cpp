// Walking enumerations, element by element.
#include "clientapi/walkers.h"

#include "base/memory.h"
#include "clientapi/instances.h"
#include "clientapi/names.h"
#include "clientapi/owned.h"
#include "model/records.h"
#include "model/release.h"

namespace {

using namespace cim::broker;
using cim::allocate;
using cim::release;

const CIMCData& data_of(const void* data) { return *static_cast<const CIMCData*>(data); }

// The objects of elements; null when an element holds another kind or none.
CIMCInstance* instance_of(const CIMCData& data) {
  return data.type == code::instance ? data.value.inst : nullptr;
}
CIMCObjectPath* path_of(const CIMCData& data) {
  return data.type == code::reference ? data.value.ref : nullptr;
}

bool holds_instance(const CIMCData& data) { return instance_of(data); }
bool holds_path(const CIMCData& data) { return path_of(data); }

// A new path of an instance's or association's name; null when that cannot be read.
InstancePath* make_instance_path(CIMCObjectPath* path) {
  auto* result = allocate<InstancePath>();
  if (result && (result->instanceName = make_name(path))) return result;
  release(result);
  return nullptr;
}

// Fills an object with path from an instance; its namespace is added when wanted.
bool fill(ObjectWithPath& record, CIMCInstance* instance, bool with_namespace) {
  const Owned<CIMCObjectPath> path(instance->ft->getObjectPath(instance, nullptr));
  record.instance = make_instance_record(instance, path.get());
  if (!record.instance) return false;
  record.instancePath = make_instance_path(path.get());
  if (!record.instancePath) return false;
  if (!with_namespace) return true;
  record.instancePath->namespacePath = namespace_path_of(path.get());
  return record.instancePath->namespacePath;
}

// Appends a record per element that `wanted` takes, filled by `map`.  Stores the list when it
// is not empty and nothing failed.
template <class Record>
int walk(void* enumeration, Record** result, bool (*wanted)(const CIMCData&),
         int (*map)(const void* data, Record* record)) {
  if (!enumeration || !result) return -1;
  auto* elements = static_cast<CIMCEnumeration*>(enumeration);
  Record* list = nullptr;
  Record** last = &list;
  while (elements->ft->hasNext(elements, nullptr)) {
    const CIMCData data = elements->ft->getNext(elements, nullptr);
    if (!wanted(data)) continue;
    Record* record = *last = allocate<Record>();
    if (!record || map(&data, record) != 0) {
      release(list);
      return -1;
    }
    last = &record->next;
  }
  if (list) *result = list;
  return 0;
}

template <class Record>
Record* append(Record** list) {
  while (*list) list = &(*list)->next;
  return *list = allocate<Record>();
}

int map_named_instance(const void* data, NamedInstance* record) {
  return mapInstance(instance_of(data_of(data)), record);
}

}  // namespace

namespace cim::broker {

int collect_names(void* enumeration, InstanceName** result) {
  return walk(enumeration, result, holds_path, mapEnumInstanceNames);
}

}  // namespace cim::broker

extern "C" {

// ---- One record ----

int mapInstance(void* instance, NamedInstance* record) {
  if (!instance || !record) return -1;
  auto* object = static_cast<CIMCInstance*>(instance);
  const Owned<CIMCObjectPath> path(object->ft->getObjectPath(object, nullptr));
  record->instance = make_instance_record(object, path.get());
  if (!record->instance) return -1;
  record->instanceName = make_name(path.get());
  return record->instanceName ? 0 : -1;
}

int mapObjectWithPath(void* instance, ObjectWithPath* record) {
  return instance && fill(*record, static_cast<CIMCInstance*>(instance), true) ? 0 : -1;
}

int map_to_object_with_path(const void* data, ObjectWithPath* record) {
  return mapObjectWithPath(instance_of(data_of(data)), record);
}

int mapReferences(const void* data, ObjectWithPath* record) {
  CIMCInstance* instance = instance_of(data_of(data));
  return instance && fill(*record, instance, false) ? 0 : -1;
}

int mapReferenceNames(const void* data, ObjectPath* record) {
  CIMCObjectPath* path = path_of(data_of(data));
  if (!path) return -1;
  record->instancePath = make_instance_path(path);
  return record->instancePath ? 0 : -1;
}

int mapAssociatorNames(const void* data, ObjectPath* record) {
  if (mapReferenceNames(data, record) != 0) return -1;
  record->instancePath->namespacePath = namespace_path_of(path_of(data_of(data)));
  return record->instancePath->namespacePath ? 0 : -1;
}

int mapEnumInstanceNames(const void* data, InstanceName* record) {
  return mapCreateinstance(path_of(data_of(data)), record);
}

// ---- Lists ----

int manage_enumerate_instance(void* enumeration, NamedInstance** resultOut) {
  return walk(enumeration, resultOut, holds_instance, map_named_instance);
}

int manage_object_with_path(void* enumeration, ObjectWithPath** resultOut) {
  return walk(enumeration, resultOut, holds_instance, map_to_object_with_path);
}

int manage_references(void* enumeration, ObjectWithPath** resultOut) {
  return walk(enumeration, resultOut, holds_instance, mapReferences);
}

int manage_references_names(void* enumeration, ObjectPath** resultOut) {
  return walk(enumeration, resultOut, holds_path, mapReferenceNames);
}

int manage_associator_names(void* enumeration, ObjectPath** resultOut) {
  return walk(enumeration, resultOut, holds_path, mapAssociatorNames);
}

int AddToEnumInstanceNameList(const void* data, InstanceName** list) {
  InstanceName* record = append(list);
  return record && mapEnumInstanceNames(data, record) == 0 ? 0 : -1;
}

int AddToAssociatorList(const void* data, ObjectWithPath** list) {
  ObjectWithPath* record = append(list);
  return record && map_to_object_with_path(data, record) == 0 ? 0 : -1;
}

int AddToAssociatorNameList(const void* /*data*/, ObjectPath** list) {
  return append(list) ? 0 : -1;
}

}  // extern "C"
