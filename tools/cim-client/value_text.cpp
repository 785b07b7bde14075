// Writing values.
#include "value_text.h"

#include <algorithm>
#include <array>

#include "path_text.h"
#include "records.h"
#include "utf8.h"

namespace cli {
namespace {

constexpr std::array<std::string_view, 10> number_types = {"uint8",  "uint16", "uint32", "uint64",
                                                           "sint8",  "sint16", "sint32", "sint64",
                                                           "real32", "real64"};

std::string embedded_text(const Instance& instance) {
  std::string text(class_of(instance));
  text += '{';
  std::string_view separator;
  for (const TypedView& property : embedded_properties_of(instance)) {
    text.append(separator).append(property.name).append("=");
    text += property.unread ? "[...]" : quoted_value_text(property);
    separator = ", ";
  }
  return text + '}';
}

std::string element_text(const Value& value, std::string_view type, bool with_quotes) {
  if (value.instance != nullptr) return embedded_text(*value.instance);
  const std::string_view text = text_or_empty(value.text);
  if (same_name(type, "boolean")) return lower_case(text);
  return with_quotes && is_text_type(type) ? quoted(text) : std::string(text);
}

std::string array_text(const Value* list, std::string_view type) {
  std::string text = "[";
  for (const Value* value = list; value != nullptr; value = value->next) {
    if (value != list) text += ", ";
    text += element_text(*value, type, true);
  }
  return text + ']';
}

std::string reference_array_text(const ValueReference* list) {
  std::string text = "[";
  for (const ValueReference* reference = list; reference != nullptr; reference = reference->next) {
    if (reference != list) text += ", ";
    text += quoted(path_text(view_of(*reference)));
  }
  return text + ']';
}

std::string any_text(const TypedView& view, bool with_quotes) {
  if (view.values != nullptr) return array_text(view.values->values, view.type);
  if (view.value != nullptr) return element_text(*view.value, view.type, with_quotes);
  if (view.references != nullptr) return reference_array_text(view.references->valueReferences);
  if (view.reference == nullptr) return "null";
  const std::string path = path_text(view_of(*view.reference));
  return with_quotes ? quoted(path) : path;
}

}  // namespace

bool is_number_type(std::string_view type) {
  return std::any_of(number_types.begin(), number_types.end(),
                     [type](std::string_view name) { return same_name(name, type); });
}

bool is_text_type(std::string_view type) {
  return !is_number_type(type) && !same_name(type, "boolean");
}

std::string value_text(const TypedView& view) { return any_text(view, false); }

std::string quoted_value_text(const TypedView& view) { return any_text(view, true); }

}  // namespace cli
