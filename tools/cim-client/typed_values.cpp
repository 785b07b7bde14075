// Building records from typed values.
#include "typed_values.h"

#include <algorithm>
#include <utility>

#include "cim_types.h"
#include "exit_status.h"
#include "object_path.h"
#include "records.h"
#include "utf8.h"

namespace cli {
namespace {

using ValueOwner = Owner<Value, Free_Value>;
using ValueArrayOwner = Owner<ValueArray, Free_ValueArray>;
using ValueRefArrayOwner = Owner<ValueRefArray, Free_ValueRefArray>;

// What one name was given: everything that was typed for it.
struct Given {
  TypedView definition;
  std::vector<std::string> texts;
};

// The value of a flag qualifier, or `otherwise` without it.
bool flag_qualifier(const TypedView& view, std::string_view name, bool otherwise) {
  for (const TypedView& qualifier : views_of(view.qualifiers)) {
    if (!same_name(qualifier.name, name)) continue;
    return qualifier.value == nullptr || same_name(text_or_empty(qualifier.value->text), "true");
  }
  return otherwise;
}

bool has_qualifier(const TypedView& view, std::string_view name) {
  const std::vector<TypedView> qualifiers = views_of(view.qualifiers);
  return std::any_of(qualifiers.begin(), qualifiers.end(), [name](const TypedView& qualifier) {
    return same_name(qualifier.name, name);
  });
}

bool takes_embedded(const TypedView& view) {
  return has_qualifier(view, "EmbeddedInstance") || flag_qualifier(view, "EmbeddedObject", false);
}

std::string names_of(const std::vector<TypedView>& views) {
  std::string names;
  for (const TypedView& view : views) {
    if (!names.empty()) names += ", ";
    names += printable(view.name);
  }
  return names.empty() ? "none" : names;
}

// Sorts assignments by the definition that they belong to. `kind` and `owner` are for the failure:
// "CIM_Fan has no property Speed".
std::vector<Given> sorted(const std::vector<TypedView>& definitions,
                          const std::vector<Assignment>& assignments, std::string_view kind,
                          std::string_view owner) {
  std::vector<Given> result;
  const auto names = [](const std::string& name) {
    return [&name](const auto& view) { return same_name(view.name, name); };
  };
  for (const Assignment& assignment : assignments) {
    const auto definition =
        std::find_if(definitions.begin(), definitions.end(), names(assignment.name));
    if (definition == definitions.end())
      throw usage_failure(printable(owner) + " has no " + std::string(kind) + " " +
                          printable(assignment.name) + "; it has: " + names_of(definitions));
    const auto known = std::find_if(result.begin(), result.end(), [&](const Given& given) {
      return given.definition.name == definition->name;
    });
    if (known == result.end())
      result.push_back({*definition, {assignment.value}});
    else if (definition->is_array)
      known->texts.push_back(assignment.value);
    else
      throw usage_failure(printable(assignment.name) + " is given twice, and is no array");
  }
  return result;
}

// The library's writer sends of an embedded instance the plain properties and of each array the
// first element; more must not get lost without a word.
void require_sendable(const Instance& embedded) {
  for (const PropertyArray* array = embedded.propertyArrays; array != nullptr;
       array = array->next) {
    const ValueArray* values = array->valueArray;
    if (values == nullptr || (values->values != nullptr && values->values->next == nullptr))
      continue;
    throw usage_failure(printable(text_or_empty(array->name)) +
                        ": inside an embedded instance an array can be sent with one element only");
  }
  if (embedded.propertyReferences != nullptr)
    throw usage_failure(printable(text_or_empty(embedded.propertyReferences->name)) +
                        ": inside an embedded instance a reference cannot be sent");
}

// Makes the values of one name.
class ValueMaker {
 public:
  ValueMaker(const Given& given, const ClassSource& classes) : given_(given), classes_(classes) {}

  bool is_null() const { return given_.texts.size() == 1 && given_.texts.front() == "null"; }

  ValueOwner value() const { return is_null() ? nullptr : element(given_.texts.front()); }

  ValueArrayOwner array() const {
    if (is_null()) return nullptr;
    ValueArrayOwner array(new_record<ValueArray>());
    for (const std::string& text : elements()) append(&array->values, element(text).release());
    return array;
  }

  ValueReferenceOwner reference() const {
    return is_null() ? nullptr : reference_to(given_.texts.front());
  }

  ValueRefArrayOwner reference_array() const {
    if (is_null()) return nullptr;
    ValueRefArrayOwner array(new_record<ValueRefArray>());
    for (const std::string& text : elements())
      append(&array->valueReferences, reference_to(text).release());
    return array;
  }

 private:
  std::string name() const { return std::string(given_.definition.name); }

  std::vector<std::string> elements() const {
    std::vector<std::string> all;
    for (const std::string& text : given_.texts) {
      for (std::string& part : elements_of(text)) all.push_back(std::move(part));
    }
    return all;
  }

  std::string present(const std::string& text) const {
    std::optional<std::string> scalar = scalar_of(text);
    if (!scalar) throw usage_failure(printable(name()) + ": an element of an array cannot be null");
    return std::move(*scalar);
  }

  ValueOwner element(const std::string& text) const {
    ValueOwner value(new_record<Value>());
    if (takes_embedded(given_.definition)) {
      const EmbeddedText embedded = embedded_of(text);
      value->isCData = 1;
      value->instance =
          make_instance(*classes_(embedded.class_name), embedded.members, classes_).release();
      require_sendable(*value->instance);
    } else {
      value->text = new_text(checked_value(present(text), given_.definition.type, name()));
    }
    return value;
  }

  ValueReferenceOwner reference_to(const std::string& text) const {
    ObjectUri path = parse_object(present(text));
    for (Key& key : path.keys) mark_reference(path.class_name, key);
    return make_reference(path);
  }

  // A quoted key that could be a reference is one when its class says so.
  void mark_reference(const std::string& class_name, Key& key) const {
    if (key.kind != Key::Kind::Text || !looks_like_instance(key.text)) return;
    const ClassOwner definition = classes_(class_name);
    for (const TypedView& property : properties_of(*definition)) {
      if (property.is_reference && same_name(property.name, key.name))
        key.kind = Key::Kind::Reference;
    }
  }

  const Given& given_;
  const ClassSource& classes_;
};

void add_property(Instance& instance, const Given& given, const ClassSource& classes) {
  const ValueMaker maker(given, classes);
  const TypedView& definition = given.definition;
  if (definition.is_reference) {
    auto* property = new_record<PropertyReference>();
    append(&instance.propertyReferences, property);
    property->name = new_text(definition.name);
    property->referenceClass = new_text(definition.reference_class);
    property->valueReference = maker.reference().release();
    return;
  }
  if (definition.is_array) {
    auto* property = new_record<PropertyArray>();
    append(&instance.propertyArrays, property);
    property->name = new_text(definition.name);
    property->type = new_text(definition.type);
    property->valueArray = maker.array().release();
    return;
  }
  auto* property = new_record<Property>();
  append(&instance.properties, property);
  property->name = new_text(definition.name);
  property->type = new_text(definition.type);
  property->value = maker.value().release();
}

void add_parameter(ParamValueOwner& list, const Given& given, const ClassSource& classes) {
  const ValueMaker maker(given, classes);
  const TypedView& definition = given.definition;
  auto* parameter = new_record<ParamValue>();
  if (list == nullptr)
    list.reset(parameter);
  else
    append(&list->next, parameter);
  parameter->name = new_text(definition.name);
  parameter->paramType = new_text(definition.is_reference ? "reference" : definition.type);
  if (definition.is_reference && definition.is_array)
    parameter->valueRefArray = maker.reference_array().release();
  else if (definition.is_reference)
    parameter->valueReference = maker.reference().release();
  else if (definition.is_array)
    parameter->valueArray = maker.array().release();
  else
    parameter->value = maker.value().release();
}

}  // namespace

InstanceOwner make_instance(const Class& definition, const std::vector<Assignment>& assignments,
                            const ClassSource& classes) {
  const std::string_view class_name = text_or_empty(definition.name);
  InstanceOwner instance(new_record<Instance>());
  instance->className = new_record<ClassName>();
  instance->className->name = new_text(class_name);
  for (const Given& given : sorted(properties_of(definition), assignments, "property", class_name))
    add_property(*instance, given, classes);
  return instance;
}

ParamValueOwner make_parameters(const Method& method, const std::vector<Assignment>& assignments,
                                const ClassSource& classes) {
  std::vector<TypedView> inputs;
  for (const TypedView& parameter : parameters_of(method)) {
    if (flag_qualifier(parameter, "In", true)) inputs.push_back(parameter);
  }
  ParamValueOwner list;
  for (const Given& given :
       sorted(inputs, assignments, "input parameter", text_or_empty(method.name)))
    add_parameter(list, given, classes);
  return list;
}

}  // namespace cli
