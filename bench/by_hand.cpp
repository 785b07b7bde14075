// Walking the records of answers; releasing and copying those of an EnumerateInstances answer.
#include "by_hand.h"

#include <malloc.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace bench {
namespace {

// ---- Walking ----

template <class Visit>
void walk(const char* text, Visit& visit) {
  if (text) visit(text, std::strlen(text) + 1);
}

template <class Visit>
void walk(const ValueReference* list, Visit& visit);

template <class Visit>
void walk(const KeyValue* record, Visit& visit) {
  if (!record) return;
  visit(record, sizeof *record);
  walk(record->text, visit);
  walk(record->valueType, visit);
  walk(record->cimType, visit);
}

template <class Visit>
void walk(const ClassName* list, Visit& visit) {
  for (; list; list = list->next) {
    visit(list, sizeof *list);
    walk(list->name, visit);
  }
}

template <class Visit>
void walk(const InstanceName* list, Visit& visit) {
  for (; list; list = list->next) {
    visit(list, sizeof *list);
    walk(list->className, visit);
    for (const KeyBinding* key = list->keyBindings; key; key = key->next) {
      visit(key, sizeof *key);
      walk(key->name, visit);
      walk(key->keyValue, visit);
      walk(key->valueReference, visit);
    }
  }
}

template <class Visit>
void walk(const ValueReference* list, Visit& visit) {
  for (; list; list = list->next) {
    visit(list, sizeof *list);
    walk(list->instanceName, visit);
  }
}

template <class Visit>
void walk(const Value* list, Visit& visit) {
  for (; list; list = list->next) {
    visit(list, sizeof *list);
    walk(list->text, visit);
  }
}

template <class Visit>
void walk(const ValueArray* record, Visit& visit) {
  if (!record) return;
  visit(record, sizeof *record);
  walk(record->values, visit);
}

template <class Visit>
void walk(const Qualifier* list, Visit& visit) {
  for (; list; list = list->next) {
    visit(list, sizeof *list);
    walk(list->name, visit);
    walk(list->type, visit);
    if (list->qualifierFlavor) visit(list->qualifierFlavor, sizeof *list->qualifierFlavor);
    walk(list->value, visit);
    walk(list->valueArray, visit);
  }
}

template <class Visit>
void walk(const Property* list, Visit& visit) {
  for (; list; list = list->next) {
    visit(list, sizeof *list);
    walk(list->name, visit);
    walk(list->type, visit);
    walk(list->classOrigin, visit);
    walk(list->qualifiers, visit);
    walk(list->value, visit);
  }
}

template <class Visit>
void walk(const Class* list, Visit& visit) {
  for (; list; list = list->next) {
    visit(list, sizeof *list);
    walk(list->name, visit);
    walk(list->superClass, visit);
    walk(list->properties, visit);
  }
}

template <class Visit>
void walk(const Instance* list, Visit& visit) {
  for (; list; list = list->next) {
    visit(list, sizeof *list);
    walk(list->className, visit);
    walk(list->properties, visit);
    for (const PropertyArray* p = list->propertyArrays; p; p = p->next) {
      visit(p, sizeof *p);
      walk(p->name, visit);
      walk(p->type, visit);
      walk(p->classOrigin, visit);
      walk(p->valueArray, visit);
    }
    for (const PropertyReference* p = list->propertyReferences; p; p = p->next) {
      visit(p, sizeof *p);
      walk(p->name, visit);
      walk(p->referenceClass, visit);
      walk(p->classOrigin, visit);
      walk(p->valueReference, visit);
    }
  }
}

template <class Visit>
void walk(const NamedInstance* list, Visit& visit) {
  for (; list; list = list->next) {
    visit(list, sizeof *list);
    walk(list->instanceName, visit);
    walk(list->instance, visit);
  }
}

const IReturnValue* returned(const CIM* answer) {
  if (!answer || !answer->message || !answer->message->simpleRsp) return nullptr;
  const IMethodResponse* response = answer->message->simpleRsp->iMethodResponse;
  return response ? response->iReturnValue : nullptr;
}

template <class Visit>
void walk(const CIM* answer, Visit& visit) {
  const IReturnValue* values = returned(answer);
  if (!values) return;
  walk(values->class_, visit);
  walk(values->instance, visit);
  walk(values->namedInstance, visit);
}

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

namespace {

template <class Records>
std::vector<Block> collect_blocks(const Records* records) {
  std::vector<Block> blocks;
  auto add = [&](const void* address, std::size_t) {
    void* block = const_cast<void*>(address);
    blocks.push_back({block, malloc_usable_size(block)});
  };
  walk(records, add);
  return blocks;
}

}  // namespace

std::vector<Block> blocks_of(const NamedInstance* list) { return collect_blocks(list); }

std::vector<Block> blocks_of(const CIM* answer) { return collect_blocks(answer); }

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

namespace {

// FNV-1a over texts and the sizes of records.
struct Digest {
  std::size_t count = 0;
  std::uint64_t sum = 14695981039346656037U;

  void add(std::uint64_t value) { sum = (sum ^ value) * 1099511628211U; }
  void operator()(const void* /*record*/, std::size_t size) {
    ++count;
    add(size);
  }
  void operator()(const char* text, std::size_t size) {
    ++count;
    for (std::size_t i = 0; i < size; ++i) add(static_cast<unsigned char>(text[i]));
  }
};

template <class Records>
std::string digest(const Records* records) {
  Digest digest;
  walk(records, digest);
  char text[40];
  std::snprintf(text, sizeof text, "%zu:%016llx", digest.count,
                static_cast<unsigned long long>(digest.sum));
  return text;
}

}  // namespace

std::string digest_of(const NamedInstance* list) { return digest(list); }

std::string digest_of(const CIM* answer) { return digest(answer); }

NamedInstance* instances_of(const CIM* answer) {
  const IReturnValue* values = returned(answer);
  return values ? values->namedInstance : nullptr;
}

}  // namespace bench
