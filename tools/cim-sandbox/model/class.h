// The declarations of a model: qualifiers, properties, methods and classes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/data_type.h"
#include "model/text.h"
#include "model/value.h"

namespace sandbox {

// How a qualifier spreads; the initial values are those of a qualifier nobody declared.
struct Flavor {
  bool overridable = true;
  bool to_subclass = true;
  bool to_instance = false;
  bool translatable = false;
};

struct Qualifier {
  std::string name;
  DataType type;
  Value value;
  Flavor flavor;
  bool propagated = false;  // inherited from the superclass's element
};

// Null when there is none of that name.
const Qualifier* find_qualifier(const std::vector<Qualifier>& qualifiers, std::string_view name);
// True for a boolean qualifier that is there and TRUE.
bool is_set(const std::vector<Qualifier>& qualifiers, std::string_view name);
// The text of a string qualifier; nothing when it is missing or of another type.
std::optional<std::string> text_of(const std::vector<Qualifier>& qualifiers, std::string_view name);

struct Property {
  std::string name;
  DataType type;
  Value initial;  // of a new instance's property that is not given
  std::vector<Qualifier> qualifiers;
  std::string origin;       // the class that declared it first
  bool propagated = false;  // neither declared nor overridden by the class at hand
  bool is_key = false;
  bool is_embedded = false;    // holds instances
  std::string embedded_class;  // the class they are of; empty: any
};

struct Parameter {
  std::string name;
  DataType type;
  std::vector<Qualifier> qualifiers;
  bool is_in = true;
  bool is_out = false;
  bool is_embedded = false;
  std::string embedded_class;
};

struct Method {
  std::string name;
  DataType type;
  std::vector<Parameter> parameters;
  std::vector<Qualifier> qualifiers;
  std::string origin;
  bool propagated = false;
};

// A class with everything that it inherits: inherited properties and methods first, in the
// superclass's order.  Classes never change once they are in a ClassTable.
struct Class {
  static constexpr std::size_t none = static_cast<std::size_t>(-1);

  std::string name;
  std::string superclass_name;        // empty: a root class
  const Class* superclass = nullptr;  // set by the ClassTable
  std::vector<Class*> subclasses;     // direct ones, in order of declaration
  std::vector<Qualifier> qualifiers;
  std::vector<Property> properties;
  std::vector<Method> methods;
  std::vector<std::size_t> keys;  // positions in `properties`
  std::unordered_map<std::string, std::size_t, NameHash, NameEqual> property_positions;
  bool is_abstract = false;
  bool is_association = false;
  bool is_indication = false;

  // The position of a property; `none` when there is none of that name.
  std::size_t position_of(std::string_view property) const;
  const Property* find_property(std::string_view property) const;
  const Method* find_method(std::string_view method) const;
  // True when this is the class of that name or derives from it.
  bool is_a(std::string_view class_name) const;
  bool is_a(const Class& other) const;
};

const Parameter* find_parameter(const Method& method, std::string_view name);

}  // namespace sandbox
