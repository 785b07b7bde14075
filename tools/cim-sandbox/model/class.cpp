// Look-ups in declarations.
#include "model/class.h"

#include <algorithm>

namespace sandbox {
namespace {

template <class Element>
const Element* find_named(const std::vector<Element>& elements, std::string_view name) {
  const auto found = std::find_if(elements.begin(), elements.end(), [name](const Element& element) {
    return same_name(element.name, name);
  });
  return found == elements.end() ? nullptr : &*found;
}

}  // namespace

const Qualifier* find_qualifier(const std::vector<Qualifier>& qualifiers, std::string_view name) {
  return find_named(qualifiers, name);
}

bool is_set(const std::vector<Qualifier>& qualifiers, std::string_view name) {
  const Qualifier* qualifier = find_qualifier(qualifiers, name);
  if (!qualifier || qualifier->value.is_array()) return false;
  const bool* flag = std::get_if<bool>(&qualifier->value.scalar());
  return flag && *flag;
}

std::optional<std::string> text_of(const std::vector<Qualifier>& qualifiers,
                                   std::string_view name) {
  const Qualifier* qualifier = find_qualifier(qualifiers, name);
  if (!qualifier || qualifier->value.is_array()) return std::nullopt;
  const auto* text = std::get_if<std::string>(&qualifier->value.scalar());
  return text ? std::optional(*text) : std::nullopt;
}

std::size_t Class::position_of(std::string_view property) const {
  const auto found = property_positions.find(property);
  return found == property_positions.end() ? none : found->second;
}

const Property* Class::find_property(std::string_view property) const {
  const std::size_t position = position_of(property);
  return position == none ? nullptr : &properties[position];
}

const Method* Class::find_method(std::string_view method) const {
  return find_named(methods, method);
}

bool Class::is_a(std::string_view class_name) const {
  for (const Class* ancestor = this; ancestor; ancestor = ancestor->superclass) {
    if (same_name(ancestor->name, class_name)) return true;
  }
  return false;
}

bool Class::is_a(const Class& other) const {
  for (const Class* ancestor = this; ancestor; ancestor = ancestor->superclass) {
    if (ancestor == &other) return true;
  }
  return false;
}

const Parameter* find_parameter(const Method& method, std::string_view name) {
  return find_named(method.parameters, name);
}

}  // namespace sandbox
