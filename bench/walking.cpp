// Walking the records of answers.
#include "walking.h"

#include <malloc.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace bench {
namespace {

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
