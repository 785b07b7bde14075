// Filling instance records from what the broker enumerates.
#include "clientapi/instances.h"

#include <cstdlib>

#include "base/memory.h"
#include "clientapi/names.h"
#include "clientapi/owned.h"
#include "clientapi/types.h"
#include "model/records.h"
#include "model/release.h"

namespace cim::broker {
namespace {

// The three property lists of an instance or class, released unless they are taken.
struct PropertyLists {
  Property* properties = nullptr;
  PropertyArray* arrays = nullptr;
  PropertyReference* references = nullptr;

  PropertyLists() = default;
  ~PropertyLists() {
    release(properties);
    release(arrays);
    release(references);
  }
  PropertyLists(const PropertyLists&) = delete;
  PropertyLists& operator=(const PropertyLists&) = delete;

  void forget() {
    properties = nullptr;
    arrays = nullptr;
    references = nullptr;
  }
};

bool has_value(const CIMCData& data) { return data.state == state_good; }

bool add_simple(Property** list, const char* name, const CIMCData& data) {
  char* text = nullptr;
  if (value2Chars(data.type, &data.value, &text) != 0) return false;
  const int result = AddToProeprtyList(list, name, text, CIMC_getDataType(data.type));
  std::free(text);
  return result == 0;
}

bool add_array(PropertyArray** list, const char* name, const CIMCData& data) {
  if (!data.value.array) return true;
  auto* values = allocate<ValueArray>();
  if (!values || getPropertyArrayData(&values->values, data.type, data.value.array) != 0) {
    release(values);
    return false;
  }
  return AddToPropertyArrayList(list, name, values, CIMC_getDataType(data.type)) == 0;
}

// The whole namespace of a path as one segment; null when memory runs out.
Namespace* make_namespace(CIMCObjectPath* path) {
  const Owned<CIMCString> text(path->ft->getNameSpace(path, nullptr));
  const char* name = characters(text.get());
  auto* result = allocate<Namespace>();
  if (result && !(result->name = duplicate(name ? name : ""))) {
    release(result);
    return nullptr;
  }
  return result;
}

bool add_reference(PropertyReference** list, const char* name, const CIMCData& data) {
  CIMCObjectPath* path = data.value.ref;
  if (!path) return true;
  ClassName* class_name = class_name_of(path);
  KeyBinding* keys = nullptr;
  Namespace* name_space = nullptr;
  bool added = class_name && GetKeyBindingValues(path, &keys) == 0;
  // Without keys nothing would take the namespace.
  if (added && keys) added = (name_space = make_namespace(path));
  if (added) {
    added = AddToPropertyReferenceList(list, keys, name_space, class_name->name, name) == 0;
  } else {
    release(keys);
  }
  release(class_name);
  return added;
}

bool add_property(PropertyLists& lists, const char* name, const CIMCData& data) {
  if (!has_value(data)) return true;
  if (data.type & code::array) return add_array(&lists.arrays, name, data);
  if (data.type == code::reference) return add_reference(&lists.references, name, data);
  return add_simple(&lists.properties, name, data);
}

// Adds every property of an instance or class; the two tables differ in their slots alone.
template <class Object>
bool collect(PropertyLists& lists, Object* object) {
  const CIMCCount count = object->ft->getPropertyCount(object, nullptr);
  for (CIMCCount index = 0; index < count; ++index) {
    Owned<CIMCString> name;
    const CIMCData data = object->ft->getPropertyAt(object, index, name.receive(), nullptr);
    if (!add_property(lists, characters(name.get()), data)) return false;
  }
  return true;
}

// One element as a text; null for an element without one.  False when memory runs out.
bool element_text(const TypeInfo& type, const CIMCData& data, char** text) {
  *text = nullptr;
  if (!is_readable(type, data.type)) return true;
  return value2Chars(type.code, &data.value, text) == 0;
}

}  // namespace

bool make_values(Value** values, CIMCType element, CIMCArray* array) {
  *values = nullptr;
  const TypeInfo* type = type_of(element);
  if (!type || !(is_integer(*type) || type->kind == Kind::String)) return true;
  Value** last = values;
  const CIMCCount count = array->ft->getSize(array, nullptr);
  for (CIMCCount index = 0; index < count; ++index) {
    const CIMCData data = array->ft->getElementAt(array, index, nullptr);
    auto* value = *last = allocate<Value>();
    if (!value || !element_text(*type, data, &value->text)) {
      release(*values);
      *values = nullptr;
      return false;
    }
    last = &value->next;
  }
  return true;
}

Instance* make_instance_record(CIMCInstance* instance, CIMCObjectPath* path) {
  ClassName* class_name = class_name_of(path);
  PropertyLists lists;
  if (!class_name || !collect(lists, instance)) {
    release(class_name);
    return nullptr;
  }
  Instance* record = nullptr;
  AddToInstanceList(&record, class_name, lists.references, lists.arrays, lists.properties);
  lists.forget();
  return record;
}

}  // namespace cim::broker

using namespace cim::broker;

extern "C" {

int getPropertyArrayData(Value** valuesOut, uint32_t code, void* array) {
  if (!valuesOut || !array) return -1;
  const auto element = static_cast<CIMCType>(code & ~uint32_t{cim::broker::code::array});
  return make_values(valuesOut, element, static_cast<CIMCArray*>(array)) ? 0 : -1;
}

int GetInstanceProperties(void* instance, void* brokerClass, Property** propertiesOut,
                          PropertyArray** propertyArraysOut,
                          PropertyReference** propertyReferencesOut) {
  PropertyLists lists;
  const bool collected = brokerClass ? collect(lists, static_cast<CIMCClass*>(brokerClass))
                                     : collect(lists, static_cast<CIMCInstance*>(instance));
  if (!collected) return -1;
  *propertiesOut = lists.properties;
  *propertyArraysOut = lists.arrays;
  *propertyReferencesOut = lists.references;
  lists.forget();
  return 0;
}

int util_GetInstanceValues(void* instance, Instance** instanceOut) {
  auto* object = static_cast<CIMCInstance*>(instance);
  const Owned<CIMCObjectPath> path(object->ft->getObjectPath(object, nullptr));
  Instance* record = make_instance_record(object, path.get());
  if (!record) return -1;
  *instanceOut = record;
  return 0;
}

int mapGetInstance(Instance* record, void* instance) {
  Instance* made = nullptr;
  if (util_GetInstanceValues(instance, &made) != 0) return -1;
  *record = *made;
  std::free(made);
  return 0;
}

int mapGetClass(void* brokerClass, Class* record) {
  auto* object = static_cast<CIMCClass*>(brokerClass);
  const Owned<CIMCString> name(object->ft->getClassName(object, nullptr));
  const char* text = characters(name.get());
  if (!text) return -1;
  record->name = cim::duplicate(text);
  if (!record->name) return -1;
  return GetInstanceProperties(nullptr, object, &record->properties, &record->propertyArrays,
                               &record->propertyReferences);
}

}  // extern "C"
