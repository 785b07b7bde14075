// Instances, properties and arguments in requests.
#include "cimxml/instances_in.h"

#include <memory>

#include "cimxml/names_in.h"
#include "model/text.h"

namespace sandbox::cimxml {
namespace {

constexpr int deepest_embedding = 8;

Error wrong(std::string text) { return {ErrorCode::InvalidParameter, std::move(text)}; }

Outcome<std::string> name_in(const Element& element, std::string_view attribute) {
  const std::string* name = element.attribute(attribute);
  if (name && !name->empty()) return *name;
  return wrong(element.name + " has no " + std::string(attribute));
}

bool is_property(const Element& element) {
  return element.name == "PROPERTY" || element.name == "PROPERTY.ARRAY" ||
         element.name == "PROPERTY.REFERENCE";
}

// The type that an attribute states; an unknown one is an error.
Outcome<std::optional<Type>> stated_type(const Element& element, std::string_view attribute) {
  const std::string* text = element.attribute(attribute);
  if (!text) return std::optional<Type>();
  const std::optional<Type> type = type_named(*text);
  if (!type) return wrong('"' + *text + "\" is no CIM type");
  return type;
}

}  // namespace

Outcome<GivenInstance> InstanceInput::read_instance(const Element& element) const {
  return read_instance(element, 0);
}

Outcome<GivenInstance> InstanceInput::read_instance(const Element& element, int depth) const {
  if (element.name != "INSTANCE") return wrong("expected an INSTANCE, not a " + element.name);
  Outcome<std::string> class_name = name_in(element, "CLASSNAME");
  if (!class_name) return class_name.error();
  const auto of_class = manager_.get_class(name_space_, *class_name);
  if (!of_class) {
    const bool unknown = of_class.error().code == ErrorCode::NotFound;
    return unknown ? Error{ErrorCode::InvalidClass, of_class.error().description}
                   : of_class.error();
  }
  GivenInstance instance{std::move(*class_name), {}};
  for (const Element& child : element.children) {
    if (child.name == "QUALIFIER") continue;  // instances have no qualifiers of their own
    if (!is_property(child)) return wrong("INSTANCE holds a " + child.name);
    Outcome<GivenValue> property = read_property(child, **of_class, depth);
    if (!property) return property.error();
    instance.properties.push_back(std::move(*property));
  }
  return instance;
}

Outcome<GivenValue> InstanceInput::read_property(const Element& element, const Class& of_class,
                                                 int depth) const {
  Outcome<std::string> name = name_in(element, "NAME");
  if (!name) return name.error();
  GivenValue given{std::move(*name), std::nullopt, element.name == "PROPERTY.ARRAY", {}};
  if (element.name == "PROPERTY.REFERENCE") {
    given.stated_type = Type::Reference;
  } else {
    const auto type = stated_type(element, "TYPE");
    if (!type) return type.error();
    given.stated_type = *type;
  }
  const Property* property = of_class.find_property(given.name);
  Outcome<Value> value = read_value(element, property && property->is_embedded, depth);
  if (!value) return value.error();
  given.value = std::move(*value);
  return given;
}

Outcome<GivenValue> InstanceInput::read_argument(const Element& element,
                                                 const Method* method) const {
  Outcome<std::string> name = name_in(element, "NAME");
  if (!name) return name.error();
  GivenValue given{std::move(*name), std::nullopt, std::nullopt, {}};
  const auto type = stated_type(element, "PARAMTYPE");
  if (!type) return type.error();
  given.stated_type = *type;
  const Parameter* parameter = method ? find_parameter(*method, given.name) : nullptr;
  Outcome<Value> value = read_value(element, parameter && parameter->is_embedded, 0);
  if (!value) return value.error();
  given.value = std::move(*value);
  return given;
}

// An element without a value is null.
Outcome<Value> InstanceInput::read_value(const Element& holder, bool is_embedded, int depth) const {
  for (const Element& child : holder.children) {
    if (child.name == "QUALIFIER") continue;
    if (child.name == "VALUE.ARRAY" || child.name == "VALUE.REFARRAY") {
      return read_array(child, is_embedded, depth);
    }
    Outcome<Scalar> scalar = read_scalar(child, is_embedded, depth);
    if (!scalar) return scalar.error();
    return Value(std::move(*scalar));
  }
  return Value();
}

Outcome<Value> InstanceInput::read_array(const Element& array, bool is_embedded, int depth) const {
  std::vector<Scalar> elements;
  elements.reserve(array.children.size());
  for (const Element& child : array.children) {
    Outcome<Scalar> scalar = read_scalar(child, is_embedded, depth);
    if (!scalar) return scalar.error();
    elements.push_back(std::move(*scalar));
  }
  return Value(std::move(elements));
}

Outcome<Scalar> InstanceInput::read_scalar(const Element& value, bool is_embedded,
                                           int depth) const {
  if (value.name == "VALUE.NULL") return Scalar();
  if (value.name == "VALUE.REFERENCE") {
    Outcome<ObjectPath> path = read_reference(value);
    if (!path) return path.error();
    return Scalar(std::make_shared<const ObjectPath>(std::move(*path)));
  }
  if (value.name != "VALUE") return wrong(value.name + " is no value");
  return is_embedded ? read_embedded(value.text, depth) : Scalar(value.text);
}

Outcome<Scalar> InstanceInput::read_embedded(std::string_view text, int depth) const {
  if (depth >= deepest_embedding) return wrong("instances are embedded too deeply");
  auto parsed = parse_document(text);
  if (const auto* malformed = std::get_if<Malformed>(&parsed)) {
    return Error{ErrorCode::TypeMismatch, "the embedded instance is no XML: " + malformed->text};
  }
  const Outcome<GivenInstance> given = read_instance(std::get<Element>(parsed), depth + 1);
  if (!given) return given.error();
  Outcome<Instance> built = manager_.build_instance(name_space_, *given);
  if (!built) return built.error();
  return Scalar(std::make_shared<const Instance>(std::move(*built)));
}

}  // namespace sandbox::cimxml
