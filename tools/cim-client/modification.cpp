// Preparing modifications.
#include "modification.h"

#include <algorithm>
#include <utility>

#include "owners.h"
#include "records.h"
#include "utf8.h"
#include "views.h"

namespace cli {
namespace {

// Unhooks the node that `*place` is, and releases it.
template <auto free_list, class Node>
void drop(Node** place) {
  Node* node = std::exchange(*place, (*place)->next);
  node->next = nullptr;
  free_list(node);
}

template <class Node>
void forget_annotations(Node& property) {
  Free_Qualifier(std::exchange(property.qualifiers, nullptr));
  Free_ClassOrigin(std::exchange(property.classOrigin, nullptr));
  property.propagated = 0;
}

bool has_unread_array(const Value* list) {
  for (; list != nullptr; list = list->next) {
    if (list->instance == nullptr) continue;
    const std::vector<TypedView> properties = embedded_properties_of(*list->instance);
    if (std::any_of(properties.begin(), properties.end(),
                    [](const TypedView& view) { return view.unread; }))
      return true;
  }
  return false;
}

// A property with the name, type and value of a view.
Property* new_property(const TypedView& view) {
  Owner<Property, Free_Property> property(new_record<Property>());
  property->name = new_text(view.name);
  property->type = new_text(view.type);
  if (view.value != nullptr && view.value->text != nullptr) {
    property->value = new_record<Value>();
    property->value->text = new_text(view.value->text);
  }
  return property.release();
}

// Gives each embedded instance one record per property again, and has it written as one.
void rebuild_embedded(Value* list) {
  for (; list != nullptr; list = list->next) {
    if (list->instance == nullptr) continue;
    Property* rebuilt = nullptr;
    for (const TypedView& view : embedded_properties_of(*list->instance))
      append(&rebuilt, new_property(view));
    Free_Property(list->instance->properties);
    list->instance->properties = rebuilt;
    list->isCData = 1;
  }
}

const Value* values_of(const Property& property) { return property.value; }

const Value* values_of(const PropertyArray& property) {
  return property.valueArray == nullptr ? nullptr : property.valueArray->values;
}

// Prepares a list of properties; the names of those left out go into `left_out`.
template <auto free_list, class Node>
void prepare(Node** list, std::vector<std::string>& left_out) {
  for (Node** place = list; *place != nullptr;) {
    if (has_unread_array(values_of(**place))) {
      left_out.emplace_back(text_or_empty((*place)->name));
      drop<free_list>(place);
      continue;
    }
    forget_annotations(**place);
    rebuild_embedded(const_cast<Value*>(values_of(**place)));
    place = &(*place)->next;
  }
}

// Moves each node of `changes` into `list`.
template <auto free_list, class Node>
void replace(Node** list, Node** changes) {
  while (*changes != nullptr) {
    Node* change = std::exchange(*changes, (*changes)->next);
    Node** place = list;
    while (*place != nullptr && !same_name(text_or_empty((*place)->name), change->name))
      place = &(*place)->next;
    change->next = nullptr;
    if (*place != nullptr) {
      change->next = std::exchange((*place)->next, nullptr);
      free_list(*place);
    }
    *place = change;
  }
}

}  // namespace

std::vector<std::string> make_sendable(Instance& instance) {
  std::vector<std::string> left_out;
  Free_Qualifier(std::exchange(instance.qualifiers, nullptr));
  prepare<Free_Property>(&instance.properties, left_out);
  prepare<Free_PropertyArray>(&instance.propertyArrays, left_out);
  for (PropertyArray* array = instance.propertyArrays; array != nullptr; array = array->next)
    array->arraySize = 0;
  for (PropertyReference* reference = instance.propertyReferences; reference != nullptr;
       reference = reference->next)
    forget_annotations(*reference);
  return left_out;
}

void apply(Instance& instance, Instance& changes) {
  replace<Free_Property>(&instance.properties, &changes.properties);
  replace<Free_PropertyArray>(&instance.propertyArrays, &changes.propertyArrays);
  replace<Free_PropertyReference>(&instance.propertyReferences, &changes.propertyReferences);
}

}  // namespace cli
