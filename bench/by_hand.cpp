// Releasing and copying the records of an EnumerateInstances answer.
#include "by_hand.h"

#include <cstdlib>
#include <cstring>

namespace bench {
namespace {

// ---- Releasing ----

void release(ValueReference* list);

void release(KeyValue* record) {
  if (!record) return;
  std::free(record->text);
  std::free(record->valueType);
  std::free(record->cimType);
  std::free(record);
}

void release(ClassName* list) {
  while (list) {
    ClassName* next = list->next;
    std::free(list->name);
    std::free(list);
    list = next;
  }
}

void release(InstanceName* list) {
  while (list) {
    InstanceName* next = list->next;
    while (list->keyBindings) {
      KeyBinding* key = list->keyBindings;
      list->keyBindings = key->next;
      release(key->keyValue);
      release(key->valueReference);
      std::free(key->name);
      std::free(key);
    }
    release(list->keyValue);
    release(list->valueReference);
    release(list->className);
    std::free(list);
    list = next;
  }
}

void release(ValueReference* list) {
  while (list) {
    ValueReference* next = list->next;
    release(list->className);
    release(list->instanceName);
    std::free(list);
    list = next;
  }
}

void release(Value* list) {
  while (list) {
    Value* next = list->next;
    std::free(list->text);
    std::free(list);
    list = next;
  }
}

void release(Property* list) {
  while (list) {
    Property* next = list->next;
    release(list->value);
    std::free(list->name);
    std::free(list->type);
    std::free(list->classOrigin);
    std::free(list);
    list = next;
  }
}

void release(PropertyArray* list) {
  while (list) {
    PropertyArray* next = list->next;
    if (list->valueArray) release(list->valueArray->values);
    std::free(list->valueArray);
    std::free(list->name);
    std::free(list->type);
    std::free(list->classOrigin);
    std::free(list);
    list = next;
  }
}

void release(PropertyReference* list) {
  while (list) {
    PropertyReference* next = list->next;
    release(list->valueReference);
    std::free(list->name);
    std::free(list->referenceClass);
    std::free(list->classOrigin);
    std::free(list);
    list = next;
  }
}

void release(Instance* list) {
  while (list) {
    Instance* next = list->next;
    release(list->className);
    release(list->properties);
    release(list->propertyArrays);
    release(list->propertyReferences);
    std::free(list);
    list = next;
  }
}

// ---- Copying ----

template <class Record>
Record* made() {
  return static_cast<Record*>(std::calloc(1, sizeof(Record)));
}

char* copy(const char* text) { return text ? strdup(text) : nullptr; }

// What the library keeps of class origins and reference classes.
char* first_character(const char* text) {
  if (!text) return nullptr;
  char* result = static_cast<char*>(std::calloc(2, 1));
  result[0] = text[0];
  return result;
}

template <class Record>
Record* copy_list(const Record* source, Record* (*copy_node)(const Record&)) {
  Record* first = nullptr;
  Record** end = &first;
  for (; source; source = source->next) {
    *end = copy_node(*source);
    end = &(*end)->next;
  }
  return first;
}

ValueReference* copy_node(const ValueReference& source);

KeyValue* copy(const KeyValue* source) {
  if (!source) return nullptr;
  auto* result = made<KeyValue>();
  result->text = copy(source->text);
  result->valueType = copy(source->valueType);
  result->cimType = copy(source->cimType);
  return result;
}

ClassName* copy_node(const ClassName& source) {
  auto* result = made<ClassName>();
  result->name = copy(source.name);
  return result;
}

KeyBinding* copy_node(const KeyBinding& source) {
  auto* result = made<KeyBinding>();
  result->name = copy(source.name);
  result->keyValue = copy(source.keyValue);
  result->valueReference = copy_list<ValueReference>(source.valueReference, copy_node);
  return result;
}

InstanceName* copy_node(const InstanceName& source) {
  auto* result = made<InstanceName>();
  result->keyBindings = copy_list<KeyBinding>(source.keyBindings, copy_node);
  result->keyValue = copy(source.keyValue);
  result->valueReference = copy_list<ValueReference>(source.valueReference, copy_node);
  result->className = copy_list<ClassName>(source.className, copy_node);
  return result;
}

ValueReference* copy_node(const ValueReference& source) {
  auto* result = made<ValueReference>();
  result->className = copy_list<ClassName>(source.className, copy_node);
  result->instanceName = copy_list<InstanceName>(source.instanceName, copy_node);
  return result;
}

Value* copy_node(const Value& source) {
  auto* result = made<Value>();
  result->text = copy(source.text);
  result->isCData = source.isCData;
  return result;
}

Property* copy_node(const Property& source) {
  auto* result = made<Property>();
  result->value = copy_list<Value>(source.value, copy_node);
  result->name = copy(source.name);
  result->type = copy(source.type);
  result->classOrigin = first_character(source.classOrigin);
  result->propagated = source.propagated;
  return result;
}

PropertyArray* copy_node(const PropertyArray& source) {
  auto* result = made<PropertyArray>();
  if (source.valueArray) {
    result->valueArray = made<ValueArray>();
    result->valueArray->values = copy_list<Value>(source.valueArray->values, copy_node);
  }
  result->name = copy(source.name);
  result->type = copy(source.type);
  result->arraySize = source.arraySize;
  result->classOrigin = first_character(source.classOrigin);
  result->propagated = source.propagated;
  return result;
}

PropertyReference* copy_node(const PropertyReference& source) {
  auto* result = made<PropertyReference>();
  result->valueReference = copy_list<ValueReference>(source.valueReference, copy_node);
  result->name = copy(source.name);
  result->referenceClass = first_character(source.referenceClass);
  result->classOrigin = first_character(source.classOrigin);
  result->propagated = source.propagated;
  return result;
}

Instance* copy_node(const Instance& source) {
  auto* result = made<Instance>();
  result->className = copy_list<ClassName>(source.className, copy_node);
  result->properties = copy_list<Property>(source.properties, copy_node);
  result->propertyArrays = copy_list<PropertyArray>(source.propertyArrays, copy_node);
  result->propertyReferences = copy_list<PropertyReference>(source.propertyReferences, copy_node);
  return result;
}

NamedInstance* copy_node(const NamedInstance& source) {
  auto* result = made<NamedInstance>();
  result->instanceName = copy_list<InstanceName>(source.instanceName, copy_node);
  result->instance = copy_list<Instance>(source.instance, copy_node);
  return result;
}

}  // namespace

Replay::Replay(const std::vector<Block>& blocks) : made_(blocks.size()) {
  for (const Block& block : blocks) {
    sizes_.push_back(block.size);
    source_.append(static_cast<const char*>(block.address), block.size);
  }
}

void Replay::run() {
  const char* from = source_.data();
  for (std::size_t i = 0; i < sizes_.size(); ++i) {
    made_[i] = std::malloc(sizes_[i]);
    std::memcpy(made_[i], from, sizes_[i]);
    from += sizes_[i];
  }
  for (void* block : made_) std::free(block);
}

void free_by_hand(NamedInstance* list) {
  while (list) {
    NamedInstance* next = list->next;
    release(list->instanceName);
    release(list->instance);
    std::free(list);
    list = next;
  }
}

NamedInstance* copy_by_hand(const NamedInstance* list) {
  return copy_list<NamedInstance>(list, copy_node);
}

}  // namespace bench
