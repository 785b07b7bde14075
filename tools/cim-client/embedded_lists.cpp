// Remembering the properties of embedded instances.
#include "embedded_lists.h"

namespace cli {

EmbeddedLists::EmbeddedLists(const ParamValue* list) {
  for (; list != nullptr; list = list->next) {
    add(list->value);
    if (list->valueArray != nullptr) add(list->valueArray->values);
  }
}

EmbeddedLists::~EmbeddedLists() {
  for (const Entry& entry : entries_) {
    entry.instance->properties = entry.properties;
    entry.instance->propertyArrays = entry.arrays;
  }
}

void EmbeddedLists::add(const Instance* list) {
  for (; list != nullptr; list = list->next) {
    for (const Property* property = list->properties; property != nullptr;
         property = property->next)
      add(property->value);
    for (const PropertyArray* array = list->propertyArrays; array != nullptr; array = array->next) {
      if (array->valueArray != nullptr) add(array->valueArray->values);
    }
  }
}

void EmbeddedLists::add(const Value* list) {
  for (; list != nullptr; list = list->next) {
    if (list->instance == nullptr) continue;
    entries_.push_back(
        {list->instance, list->instance->properties, list->instance->propertyArrays});
    add(list->instance);
  }
}

}  // namespace cli
