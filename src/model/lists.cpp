// The AddTo...List functions.
#include <cstdlib>
#include <cstring>

#include "base/memory.h"
#include "cim_client.h"
#include "model/records.h"
#include "model/release.h"

namespace {

using cim::allocate;
using cim::release;

// Appends a zero-filled node to the list at *list.  Null when memory runs out or `list` is.
template <class Node>
Node* append(Node** list) {
  if (!list) return nullptr;
  while (*list) list = &(*list)->next;
  return *list = allocate<Node>();
}

// Stores a copy of `text`, or null for a null one.  False when memory runs out.
bool store(char*& field, const char* text) {
  field = cim::duplicate(text);
  return field || !text;
}

bool store(ClassName*& field, const char* name) {
  field = allocate<ClassName>();
  return field && store(field->name, name);
}

// Puts the boolean texts into the upper case that object managers expect, in place.
void normalise(char* value) {
  if (std::strcmp(value, "true") == 0) std::memcpy(value, "TRUE", 4);
  if (std::strcmp(value, "false") == 0) std::memcpy(value, "FALSE", 5);
}

// The end of a namespace that begins with the segment that local references are known to
// lie in; null when it has none.
const char* local_segment(const char* namespace_text) {
  if (!namespace_text) return nullptr;
  const char* found = std::strstr(namespace_text, "interop");
  return found ? found : std::strstr(namespace_text, "cimv2");
}

// A Namespace named `name`, "" for null.  Callers write into these names in place, so each
// has at least 32 bytes.
Namespace* make_segment(const char* name) {
  constexpr std::size_t room = 32;
  auto* segment = allocate<Namespace>();
  if (!segment) return nullptr;
  if (!name) name = "";
  const std::size_t length = std::strlen(name);
  segment->name = cim::duplicate(name, length, length + 1 < room ? room - length - 1 : 0);
  if (segment->name) return segment;
  std::free(segment);
  return nullptr;
}

// Fills `path` with the namespace "root" and `segment`, and a name without keys.
bool fill(LocalInstancePath& path, const char* segment, const char* class_name) {
  path.localNamespacePath = allocate<LocalNamespacePath>();
  if (!path.localNamespacePath) return false;
  Namespace*& namespaces = path.localNamespacePath->namespaces;
  namespaces = make_segment("root");
  if (!namespaces) return false;
  namespaces->next = make_segment(segment);
  if (!namespaces->next) return false;

  path.instanceName = allocate<InstanceName>();
  return path.instanceName && store(path.instanceName->className, class_name);
}

// A reference to the instance that `keys` name, which become its own: whatever the result,
// the caller has them no longer.  Null when memory runs out.
ValueReference* make_local_reference(const char* namespace_text, const char* class_name,
                                     KeyBinding* keys) {
  auto* reference = allocate<ValueReference>();
  if (reference) {
    LocalInstancePath*& path = reference->localInstancePath;
    path = allocate<LocalInstancePath>();
    if (path && fill(*path, local_segment(namespace_text), class_name)) {
      path->instanceName->keyBindings = keys;
      return reference;
    }
  }
  release(reference);
  release(keys);
  return nullptr;
}

// The name of an instance.  `keys` become its own, as above.
InstanceName* make_instance_name(const char* class_name, KeyBinding* keys) {
  auto* name = allocate<InstanceName>();
  if (name && store(name->className, class_name)) {
    name->keyBindings = keys;
    return name;
  }
  release(name);
  release(keys);
  return nullptr;
}

// Puts the path of `name` in `name_space` into `reference`.  Both are the reference's from here
// on: whatever the result, the caller has them no longer.
bool fill(ValueReference& reference, Namespace* name_space, InstanceName* name) {
  auto* path = reference.localInstancePath = allocate<LocalInstancePath>();
  if (path) path->localNamespacePath = allocate<LocalNamespacePath>();
  if (!path || !path->localNamespacePath) {
    release(name_space);
    release(name);
    return false;
  }
  path->localNamespacePath->namespaces = name_space;
  path->instanceName = name;
  return true;
}

// A reference to the instance that `keys` name; without a namespace it stays empty and the
// keys are released.  Null when memory runs out.  `name_space` and `keys` become its own, as
// above.
ValueReference* make_reference(Namespace* name_space, const char* class_name, KeyBinding* keys) {
  InstanceName* name = make_instance_name(class_name, keys);
  auto* reference = name ? allocate<ValueReference>() : nullptr;
  if (!reference || !name_space) {
    release(name_space);
    release(name);
    return reference;
  }
  if (fill(*reference, name_space, name)) return reference;
  release(reference);
  return nullptr;
}

// Takes the first node out of `namespaces`: callers count on the rest staying theirs.
Namespace* take_first(Namespace* namespaces) {
  if (namespaces) namespaces->next = nullptr;
  return namespaces;
}

// Appends a key with a value.  Null when memory runs out.
KeyBinding* append_key(KeyBinding** list, const char* name, const char* value,
                       const char* value_type) {
  KeyBinding* node = append(list);
  if (!node || !store(node->name, name)) return nullptr;
  if (!value) return node;
  node->keyValue = allocate<KeyValue>();
  if (!node->keyValue || !store(node->keyValue->text, value)) return nullptr;
  return store(node->keyValue->valueType, value_type) ? node : nullptr;
}

}  // namespace

extern "C" {

int AddToValueList(Value** list, const char* text) {
  Value* node = append(list);
  return node && store(node->text, text) ? 0 : -1;
}

int AddToProeprtyList(Property** list, const char* name, char* value, const char* type) {
  Property* node = append(list);
  if (!node || !store(node->name, name) || !store(node->type, type)) return -1;
  if (!value) return 0;
  normalise(value);
  node->value = allocate<Value>();
  return node->value && store(node->value->text, value) ? 0 : -1;
}

int AddToPropertyArrayList(PropertyArray** list, const char* name, ValueArray* valueArray,
                           const char* type) {
  PropertyArray* node = append(list);
  if (!node) {
    release(valueArray);
    return -1;
  }
  node->valueArray = valueArray;
  return store(node->name, name) && store(node->type, type) ? 0 : -1;
}

int AddToInstanceList(Instance** list, ClassName* className, PropertyReference* propertyReferences,
                      PropertyArray* propertyArrays, Property* properties) {
  Instance* node = append(list);
  if (!node) {
    release(className);
    release(propertyReferences);
    release(propertyArrays);
    release(properties);
    return -1;
  }
  node->className = className;
  node->propertyReferences = propertyReferences;
  node->propertyArrays = propertyArrays;
  node->properties = properties;
  return 0;
}

int AddToInstanceNameList(InstanceName** list, KeyBinding* keyBindings, ClassName* className,
                          const void* /*ignored*/) {
  const bool named = className && className->name;
  InstanceName* node = append(list);
  if (!node) {
    if (named) release(className), release(keyBindings);
    return -1;
  }
  if (named) {
    node->className = className;
    node->keyBindings = keyBindings;
  }
  return 0;
}

int AddToKeyBindingListRef(KeyBinding** list, const char* name, const char* value,
                           const char* valueType, const void* /*ignored*/) {
  return append_key(list, name, value, valueType) ? 0 : -1;
}

int AddToKeyBindingList(KeyBinding** list, const char* name, const char* value,
                        const char* valueType, const char* referenceClass,
                        const char* namespaceText, KeyBinding* referenceKeys) {
  KeyBinding* node = append_key(list, name, value, valueType);
  if (!node) {
    release(referenceKeys);
    return -1;
  }
  if (!referenceKeys) return 0;
  node->valueReference = make_local_reference(namespaceText, referenceClass, referenceKeys);
  return node->valueReference ? 0 : -1;
}

int AddToPropertyReferenceList(PropertyReference** list, KeyBinding* keyBindings,
                               Namespace* namespaces, const char* referenceClass,
                               const char* name) {
  PropertyReference* node = append(list);
  const bool named =
      node && (!name || (store(node->name, name) && store(node->referenceClass, referenceClass)));
  if (!keyBindings) return named ? 0 : -1;
  Namespace* name_space = take_first(namespaces);
  if (!named) {
    release(name_space);
    release(keyBindings);
    return -1;
  }
  node->valueReference = make_reference(name_space, referenceClass, keyBindings);
  return node->valueReference ? 0 : -1;
}

}  // extern "C"
