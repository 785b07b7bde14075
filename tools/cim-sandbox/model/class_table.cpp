// Inheritance: how a declared class becomes a whole one.
#include "model/class_table.h"

#include <algorithm>

namespace sandbox {
namespace {

using Problem = std::optional<DeclarationError>;

// Adds the qualifiers that spread from an inherited element and are not stated anew.
void inherit_qualifiers(std::vector<Qualifier>& own, const std::vector<Qualifier>& inherited) {
  for (const Qualifier& qualifier : inherited) {
    if (!qualifier.flavor.to_subclass || find_qualifier(own, qualifier.name)) continue;
    own.push_back(qualifier);
    own.back().propagated = true;
  }
}

// The first name that two elements share; empty when all differ.
template <class Element>
std::string repeated_name(const std::vector<Element>& elements) {
  for (std::size_t i = 1; i < elements.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) {
      if (same_name(elements[i].name, elements[k].name)) return elements[i].name;
    }
  }
  return {};
}

bool same_type(const DataType& left, const DataType& right) {
  return left.type == right.type && left.is_array == right.is_array;
}

// Which instances a string property or parameter holds, as its qualifiers tell.
template <class Element>
void note_embedding(Element& element) {
  if (element.type.type != Type::String) return;
  const auto of_class = text_of(element.qualifiers, "EmbeddedInstance");
  element.is_embedded = of_class.has_value() || is_set(element.qualifiers, "EmbeddedObject");
  element.embedded_class = of_class.value_or(std::string());
}

// Works on one class until it is whole.
class Completion {
 public:
  Completion(Class& declared, const Class* superclass)
      : declared_(declared), superclass_(superclass) {}

  Problem complete() {
    if (Problem problem = check_names()) return problem;
    note_own_elements();
    if (superclass_) {
      if (Problem problem = inherit_properties()) return problem;
      inherit_methods();
      inherit_qualifiers(declared_.qualifiers, superclass_->qualifiers);
    }
    note_nature();
    return note_keys();
  }

 private:
  Problem check_names() const {
    if (const std::string name = repeated_name(declared_.properties); !name.empty()) {
      return DeclarationError{name, "property \"" + name + "\" is declared twice"};
    }
    if (const std::string name = repeated_name(declared_.methods); !name.empty()) {
      return DeclarationError{name, "method \"" + name + "\" is declared twice"};
    }
    for (const Method& method : declared_.methods) {
      const std::string name = repeated_name(method.parameters);
      if (!name.empty()) {
        return DeclarationError{method.name, "parameter \"" + name + "\" is declared twice"};
      }
    }
    return std::nullopt;
  }

  void note_own_elements() {
    for (Property& property : declared_.properties) property.origin = declared_.name;
    for (Method& method : declared_.methods) {
      method.origin = declared_.name;
      for (Parameter& parameter : method.parameters) {
        const Qualifier* in = find_qualifier(parameter.qualifiers, "In");
        parameter.is_out = is_set(parameter.qualifiers, "Out");
        parameter.is_in = in ? is_set(parameter.qualifiers, "In") : true;
        note_embedding(parameter);
      }
    }
  }

  Problem inherit_properties() {
    std::vector<Property> whole = superclass_->properties;
    for (Property& property : whole) {
      property.propagated = true;
      std::erase_if(property.qualifiers,
                    [](const Qualifier& qualifier) { return !qualifier.flavor.to_subclass; });
      for (Qualifier& qualifier : property.qualifiers) qualifier.propagated = true;
    }
    for (Property& own : declared_.properties) {
      const std::size_t position = superclass_->position_of(own.name);
      if (position == Class::none) {
        whole.push_back(std::move(own));
        continue;
      }
      const Property& inherited = superclass_->properties[position];
      if (!same_type(own.type, inherited.type)) {
        return DeclarationError{own.name, "property \"" + own.name + "\" is " +
                                              describe(inherited.type) + " in class \"" +
                                              inherited.origin + "\", not " + describe(own.type)};
      }
      own.origin = inherited.origin;
      if (own.initial.null()) own.initial = inherited.initial;
      inherit_qualifiers(own.qualifiers, inherited.qualifiers);
      whole[position] = std::move(own);
    }
    declared_.properties = std::move(whole);
    return std::nullopt;
  }

  void inherit_methods() {
    std::vector<Method> whole = superclass_->methods;
    for (Method& method : whole) method.propagated = true;
    for (Method& own : declared_.methods) {
      const auto inherited = std::find_if(whole.begin(), whole.end(), [&own](const Method& method) {
        return same_name(method.name, own.name);
      });
      if (inherited == whole.end()) {
        whole.push_back(std::move(own));
        continue;
      }
      own.origin = inherited->origin;
      inherit_qualifiers(own.qualifiers, inherited->qualifiers);
      *inherited = std::move(own);
    }
    declared_.methods = std::move(whole);
  }

  void note_nature() {
    declared_.superclass = superclass_;
    declared_.is_abstract = is_set(declared_.qualifiers, "Abstract");
    declared_.is_association =
        is_set(declared_.qualifiers, "Association") || (superclass_ && superclass_->is_association);
    declared_.is_indication =
        is_set(declared_.qualifiers, "Indication") || (superclass_ && superclass_->is_indication);
    for (Property& property : declared_.properties) note_embedding(property);
  }

  Problem note_keys() {
    const bool keys_are_settled = superclass_ && !superclass_->keys.empty();
    for (std::size_t i = 0; i < declared_.properties.size(); ++i) {
      Property& property = declared_.properties[i];
      declared_.property_positions.emplace(property.name, i);
      const bool was_key =
          superclass_ && i < superclass_->properties.size() && superclass_->properties[i].is_key;
      property.is_key = was_key || is_set(property.qualifiers, "Key");
      if (!property.is_key) continue;
      if (property.type.is_array || property.is_embedded) {
        return DeclarationError{property.name,
                                "key \"" + property.name + "\" must be a single plain value"};
      }
      if (keys_are_settled && !was_key) {
        return DeclarationError{property.name, "key \"" + property.name +
                                                   "\" comes too late: class \"" +
                                                   superclass_->name + "\" has its keys already"};
      }
      declared_.keys.push_back(i);
    }
    return std::nullopt;
  }

  Class& declared_;
  const Class* superclass_;
};

}  // namespace

std::optional<DeclarationError> ClassTable::add(Class declared) {
  if (find(declared.name)) {
    return DeclarationError{"", "class \"" + declared.name + "\" is already declared"};
  }
  Class* superclass = nullptr;
  if (!declared.superclass_name.empty()) {
    const auto found = classes_.find(declared.superclass_name);
    if (found == classes_.end()) {
      return DeclarationError{declared.superclass_name,
                              "unknown superclass \"" + declared.superclass_name + '"'};
    }
    superclass = found->second.get();
    declared.superclass_name = superclass->name;
  }
  if (Problem problem = Completion(declared, superclass).complete()) return problem;
  auto whole = std::make_unique<Class>(std::move(declared));
  (superclass ? superclass->subclasses : roots_).push_back(whole.get());
  const std::string name = whole->name;
  classes_.emplace(name, std::move(whole));
  return std::nullopt;
}

const Class* ClassTable::find(std::string_view name) const {
  const auto found = classes_.find(name);
  return found == classes_.end() ? nullptr : found->second.get();
}

}  // namespace sandbox
