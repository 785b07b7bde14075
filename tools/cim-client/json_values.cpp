// Building JSON values.
#include "json_values.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>

#include "output.h"
#include "path_text.h"
#include "records.h"
#include "utf8.h"
#include "value_text.h"

namespace cli {
namespace {

// Number types whose values every JSON reader keeps exactly: it may hold numbers as 64-bit reals.
bool fits_json_number(std::string_view type) {
  return is_number_type(type) && !same_name(type, "uint64") && !same_name(type, "sint64");
}

bool is_real(std::string_view type) {
  return same_name(type, "real32") || same_name(type, "real64");
}

template <class Number>
std::optional<Number> parsed(std::string_view text) {
  Number number = {};
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (problem != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// A number of the type, or the text as it came when it is none.
JsonValue number_of(std::string_view text, std::string_view type) {
  if (is_real(type)) {
    const std::optional<double> number = parsed<double>(text);
    return number && std::isfinite(*number) ? JsonValue(*number) : JsonValue(std::string(text));
  }
  const std::optional<std::int64_t> number = parsed<std::int64_t>(text);
  return number ? JsonValue(*number) : JsonValue(std::string(text));
}

JsonValue text_value(std::string_view text, std::string_view type) {
  if (same_name(type, "boolean")) {
    if (same_name(text, "true")) return true;
    if (same_name(text, "false")) return false;
  }
  if (fits_json_number(type)) return number_of(text, type);
  return std::string(text);
}

JsonValue properties_object(const std::vector<TypedView>& views) {
  JsonValue object = JsonValue::object();
  for (const TypedView& view : views) object[std::string(view.name)] = json_of(view);
  return object;
}

JsonValue embedded(const Instance& instance) {
  JsonValue object = JsonValue::object();
  object["class"] = std::string(class_of(instance));
  object["properties"] = properties_object(embedded_properties_of(instance));
  return object;
}

JsonValue value_of(const Value& value, std::string_view type) {
  if (value.instance != nullptr) return embedded(*value.instance);
  return text_value(text_or_empty(value.text), type);
}

JsonValue array_of(const Value* list, std::string_view type) {
  JsonValue array = JsonValue::array();
  for (; list != nullptr; list = list->next) array.push_back(value_of(*list, type));
  return array;
}

JsonValue array_of(const ValueReference* list) {
  JsonValue array = JsonValue::array();
  for (; list != nullptr; list = list->next) array.push_back(json_of(view_of(*list)));
  return array;
}

JsonValue any_value(const TypedView& view) {
  if (view.values != nullptr) return array_of(view.values->values, view.type);
  if (view.value != nullptr) return value_of(*view.value, view.type);
  if (view.references != nullptr) return array_of(view.references->valueReferences);
  if (view.reference != nullptr) return json_of(view_of(*view.reference));
  return nullptr;
}

// Type and shape, without a value.
JsonValue declaration(const TypedView& view) {
  JsonValue object = JsonValue::object();
  object["type"] = view.is_reference ? std::string("reference") : std::string(view.type);
  if (view.is_array) object["array"] = true;
  if (view.array_size > 0) object["size"] = view.array_size;
  if (!view.reference_class.empty()) object["class"] = std::string(view.reference_class);
  return object;
}

JsonValue qualifiers_object(const Qualifier* list) { return properties_object(views_of(list)); }

JsonValue method_object(const Method& method) {
  JsonValue object = JsonValue::object();
  object["type"] = std::string(text_or_empty(method.type));
  if (method.classOrigin != nullptr) object["origin"] = std::string(method.classOrigin);
  object["qualifiers"] = qualifiers_object(method.qualifiers);
  JsonValue parameters = JsonValue::object();
  for (const TypedView& view : parameters_of(method)) {
    JsonValue parameter = declaration(view);
    parameter["qualifiers"] = qualifiers_object(view.qualifiers);
    parameters[std::string(view.name)] = std::move(parameter);
  }
  object["parameters"] = std::move(parameters);
  return object;
}

JsonValue key_object(const KeyValue* value, const ValueReference* reference) {
  JsonValue object = JsonValue::object();
  if (reference != nullptr) {
    object["type"] = "reference";
    object["value"] = json_of(view_of(*reference));
    return object;
  }
  const std::string type =
      value == nullptr ? std::string() : lower_case(text_or_empty(value->valueType));
  const std::string_view text = value == nullptr ? std::string_view() : text_or_empty(value->text);
  object["type"] = type.empty() ? std::string("string") : type;
  object["value"] = text_value(text, type);
  return object;
}

JsonValue keys_object(const InstanceName& name) {
  JsonValue object = JsonValue::object();
  for (const KeyBinding* key = name.keyBindings; key != nullptr; key = key->next)
    object[std::string(text_or_empty(key->name))] = key_object(key->keyValue, key->valueReference);
  if (name.keyBindings == nullptr && (name.keyValue != nullptr || name.valueReference != nullptr))
    object[""] = key_object(name.keyValue, name.valueReference);
  return object;
}

}  // namespace

JsonValue json_of(const PathView& path) {
  JsonValue object = JsonValue::object();
  object["uri"] = path_text(path);
  if (!path.host.empty()) object["host"] = std::string(path.host);
  if (path.place != nullptr) object["namespace"] = namespace_text(path.place);
  if (path.instance != nullptr) {
    object["class"] = std::string(class_of(*path.instance));
    object["keys"] = keys_object(*path.instance);
    return object;
  }
  object["class"] = path.class_name == nullptr ? std::string()
                                               : std::string(text_or_empty(path.class_name->name));
  return object;
}

JsonValue json_of(const TypedView& view) {
  JsonValue object = declaration(view);
  object["value"] = any_value(view);
  if (view.unread) object["unread"] = true;
  if (!view.class_origin.empty()) object["origin"] = std::string(view.class_origin);
  if (view.qualifiers != nullptr) object["qualifiers"] = qualifiers_object(view.qualifiers);
  return object;
}

JsonValue json_of(const Instance& instance, const std::vector<std::string>& properties) {
  JsonValue object = JsonValue::object();
  object["class"] = std::string(class_of(instance));
  object["properties"] = properties_object(chosen(properties_of(instance), properties));
  return object;
}

JsonValue json_of(const Class& definition) {
  JsonValue object = JsonValue::object();
  object["class"] = std::string(text_or_empty(definition.name));
  object["superclass"] = definition.superClass == nullptr
                             ? JsonValue()
                             : JsonValue(std::string(definition.superClass));
  object["qualifiers"] = qualifiers_object(definition.qualifiers);
  object["properties"] = properties_object(properties_of(definition));
  JsonValue methods = JsonValue::object();
  for (const Method* method = definition.methods; method != nullptr; method = method->next)
    methods[std::string(text_or_empty(method->name))] = method_object(*method);
  object["methods"] = std::move(methods);
  return object;
}

JsonValue json_of(const ReturnValue* return_value, const ParamValue* parameters) {
  JsonValue object = JsonValue::object();
  object["returnValue"] = return_value == nullptr ? JsonValue() : json_of(view_of(*return_value));
  object["parameters"] = properties_object(views_of(parameters));
  return object;
}

}  // namespace cli
