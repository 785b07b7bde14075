// Making views of records.
#include "views.h"

#include "records.h"

namespace cli {
namespace {

// What every such record has.
template <class Record>
TypedView named_view(const Record& record) {
  TypedView view;
  view.name = text_or_empty(record.name);
  view.qualifiers = record.qualifiers;
  return view;
}

template <class Record>
TypedView reference_view(const Record& record) {
  TypedView view = named_view(record);
  view.is_reference = true;
  view.type = "reference";
  view.reference_class = text_or_empty(record.referenceClass);
  return view;
}

template <class Record>
TypedView array_view(const Record& record) {
  TypedView view = named_view(record);
  view.is_array = true;
  view.type = text_or_empty(record.type);
  view.array_size = record.arraySize;
  return view;
}

TypedView view_of(const Property& property) {
  TypedView view = named_view(property);
  view.type = text_or_empty(property.type);
  view.class_origin = text_or_empty(property.classOrigin);
  view.value = property.value;
  return view;
}

TypedView view_of(const PropertyArray& property) {
  TypedView view = array_view(property);
  view.class_origin = text_or_empty(property.classOrigin);
  view.values = property.valueArray;
  return view;
}

TypedView view_of(const PropertyReference& property) {
  TypedView view = reference_view(property);
  view.class_origin = text_or_empty(property.classOrigin);
  view.reference = property.valueReference;
  return view;
}

TypedView view_of(const Parameter& parameter) {
  TypedView view = named_view(parameter);
  view.type = text_or_empty(parameter.type);
  return view;
}

TypedView view_of(const ParameterReference& parameter) { return reference_view(parameter); }

TypedView view_of(const ParameterArray& parameter) { return array_view(parameter); }

TypedView view_of(const ParameterRefArray& parameter) {
  TypedView view = reference_view(parameter);
  view.is_array = true;
  view.array_size = parameter.arraySize;
  return view;
}

TypedView view_of(const Qualifier& qualifier) {
  TypedView view;
  view.name = text_or_empty(qualifier.name);
  view.type = text_or_empty(qualifier.type);
  view.is_array = qualifier.valueArray != nullptr;
  view.value = qualifier.value;
  view.values = qualifier.valueArray;
  return view;
}

TypedView view_of(const ParamValue& parameter) {
  TypedView view;
  view.name = text_or_empty(parameter.name);
  view.type = text_or_empty(parameter.paramType);
  view.is_array = parameter.valueArray != nullptr || parameter.valueRefArray != nullptr;
  view.is_reference = parameter.valueReference != nullptr || parameter.valueRefArray != nullptr;
  view.value = parameter.value;
  view.values = parameter.valueArray;
  view.reference = parameter.valueReference;
  view.references = parameter.valueRefArray;
  return view;
}

template <class Node>
void add(std::vector<TypedView>& views, const Node* list) {
  for (; list != nullptr; list = list->next) views.push_back(view_of(*list));
}

template <class Record>
std::vector<TypedView> all_properties(const Record& record) {
  std::vector<TypedView> views;
  add(views, record.properties);
  add(views, record.propertyArrays);
  add(views, record.propertyReferences);
  return views;
}

// Joins the views that belong to one property: a view belongs to the property before it unless
// it says again what is known of that already.
std::vector<TypedView> joined(const std::vector<TypedView>& parts) {
  std::vector<TypedView> views;
  for (const TypedView& part : parts) {
    const bool begins = views.empty() || (!part.name.empty() && !views.back().name.empty()) ||
                        (!part.type.empty() && !views.back().type.empty());
    if (begins) {
      views.push_back(part);
      continue;
    }
    TypedView& view = views.back();
    if (!part.name.empty()) view.name = part.name;
    if (!part.type.empty()) view.type = part.type;
  }
  return views;
}

PathView view_of(const NamespacePath* place, const InstanceName* instance,
                 const ClassName* class_name) {
  PathView view;
  if (place != nullptr) {
    view.host = text_or_empty(place->host);
    view.place = place->localNamespacePath;
  }
  view.instance = instance;
  view.class_name = class_name;
  return view;
}

}  // namespace

std::vector<TypedView> properties_of(const Instance& instance) { return all_properties(instance); }

std::vector<TypedView> properties_of(const Class& definition) { return all_properties(definition); }

std::vector<TypedView> embedded_properties_of(const Instance& instance) {
  std::vector<TypedView> parts;
  add(parts, instance.properties);
  std::vector<TypedView> views = joined(parts);
  parts.clear();
  add(parts, instance.propertyArrays);
  for (TypedView view : joined(parts)) {
    view.unread = true;
    view.values = nullptr;
    views.push_back(view);
  }
  return views;
}

std::vector<TypedView> parameters_of(const Method& method) {
  std::vector<TypedView> views;
  add(views, method.parameters);
  add(views, method.parameterReferences);
  add(views, method.parameterArrays);
  add(views, method.parameterRefArrays);
  return views;
}

std::vector<TypedView> views_of(const Qualifier* list) {
  std::vector<TypedView> views;
  add(views, list);
  return views;
}

std::vector<TypedView> views_of(const ParamValue* list) {
  std::vector<TypedView> views;
  add(views, list);
  return views;
}

TypedView view_of(const ReturnValue& result) {
  TypedView view;
  view.type = text_or_empty(result.paramType);
  view.is_reference = result.valueReference != nullptr;
  view.value = result.value;
  view.reference = result.valueReference;
  return view;
}

std::string_view class_of(const Instance& instance) {
  return instance.className == nullptr ? std::string_view()
                                       : text_or_empty(instance.className->name);
}

std::string_view class_of(const InstanceName& name) {
  return name.className == nullptr ? std::string_view() : text_or_empty(name.className->name);
}

PathView view_of(const InstanceName& name) { return view_of(nullptr, &name, nullptr); }

PathView view_of(const InstancePath& path) {
  return view_of(path.namespacePath, path.instanceName, nullptr);
}

PathView view_of(const ClassPath& path) {
  return view_of(path.namespacePath, nullptr, path.className);
}

PathView view_of(const ValueReference& reference) {
  if (reference.instancePath != nullptr) return view_of(*reference.instancePath);
  if (reference.classPath != nullptr) return view_of(*reference.classPath);
  PathView view;
  if (reference.localInstancePath != nullptr) {
    view.place = reference.localInstancePath->localNamespacePath;
    view.instance = reference.localInstancePath->instanceName;
  } else if (reference.localClassPath != nullptr) {
    view.place = reference.localClassPath->localNamespacePath;
    view.class_name = reference.localClassPath->className;
  } else {
    view.instance = reference.instanceName;
    view.class_name = reference.className;
  }
  return view;
}

std::vector<PathView> paths_of(const InstanceName* list) {
  std::vector<PathView> views;
  for (; list != nullptr; list = list->next) views.push_back(view_of(*list));
  return views;
}

std::vector<PathView> paths_of(const ObjectPath* list) {
  std::vector<PathView> views;
  for (; list != nullptr; list = list->next) {
    if (list->classPath != nullptr) views.push_back(view_of(*list->classPath));
    if (list->instancePath == nullptr) continue;
    const InstanceName* name = list->instancePath->instanceName;
    for (; name != nullptr; name = name->next)
      views.push_back(view_of(list->instancePath->namespacePath, name, nullptr));
  }
  return views;
}

}  // namespace cli
