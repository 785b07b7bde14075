// One look at the records that the library keeps in several lists: properties, qualifiers and
// parameters of every kind, and paths of every kind. Views borrow the records they are made from.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "cim_client.h"

namespace cli {

// What has a name, a type and perhaps a value: a property, a qualifier, a parameter, a method's
// return value.
struct TypedView {
  std::string_view name;
  std::string_view type;             // CIM type of the value or of its elements; "reference"
  std::string_view reference_class;  // of a reference; empty: not given
  std::string_view class_origin;     // empty: not given
  bool is_array = false;
  bool is_reference = false;
  bool unread = false;  // an array inside an embedded instance: the library drops its values
  std::int32_t array_size = 0;  // 0: not bounded
  const Qualifier* qualifiers = nullptr;
  // The value. All null: it is null, or there is none.
  const Value* value = nullptr;
  const ValueArray* values = nullptr;
  const ValueReference* reference = nullptr;
  const ValueRefArray* references = nullptr;

  bool is_null() const {
    return value == nullptr && values == nullptr && reference == nullptr && references == nullptr;
  }
};

// The properties: plain ones, arrays, references, each in the order of the document.
std::vector<TypedView> properties_of(const Instance& instance);
std::vector<TypedView> properties_of(const Class& definition);

// The properties of an instance embedded in a value. The library reads each of them as one record
// per attribute; here they are one again.
std::vector<TypedView> embedded_properties_of(const Instance& instance);

// The parameters: plain ones, references, arrays, arrays of references.
std::vector<TypedView> parameters_of(const Method& method);

std::vector<TypedView> views_of(const Qualifier* list);
std::vector<TypedView> views_of(const ParamValue* list);
TypedView view_of(const ReturnValue& result);

// The class of an instance; empty when it is not given.
std::string_view class_of(const Instance& instance);
std::string_view class_of(const InstanceName& name);

// The path of an instance or a class: whichever of `instance` and `class_name` is there.
struct PathView {
  std::string_view host;                      // empty: not given
  const LocalNamespacePath* place = nullptr;  // null: not given
  const InstanceName* instance = nullptr;     // one node; its list is not followed
  const ClassName* class_name = nullptr;
};

PathView view_of(const InstanceName& name);
PathView view_of(const InstancePath& path);
PathView view_of(const ClassPath& path);
PathView view_of(const ValueReference& reference);

// One view per name, also of those that share one instance path.
std::vector<PathView> paths_of(const InstanceName* list);
std::vector<PathView> paths_of(const ObjectPath* list);

}  // namespace cli
