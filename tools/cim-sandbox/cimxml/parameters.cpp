// Look-up and reading of parameters.
#include "cimxml/parameters.h"

#include <algorithm>

#include "cimxml/names_in.h"
#include "model/text.h"

namespace sandbox::cimxml {
namespace {

std::string quoted(std::string_view name) { return '"' + std::string(name) + '"'; }

}  // namespace

Parameters::Parameters(const Element& call, std::initializer_list<std::string_view> known)
    : call_(call) {
  std::vector<std::string_view> seen;
  const auto same_as = [](std::string_view name) {
    return [name](std::string_view other) { return same_name(name, other); };
  };
  for (const Element& child : call.children) {
    if (child.name == "LOCALNAMESPACEPATH" || child.name == "RESPONSEDESTINATION") continue;
    const std::string* name = child.attribute("NAME");
    if (child.name != "IPARAMVALUE" || !name) {
      fail("IMETHODCALL holds a " + child.name);
    } else if (std::none_of(known.begin(), known.end(), same_as(*name))) {
      fail("unknown parameter " + quoted(*name));
    } else if (std::any_of(seen.begin(), seen.end(), same_as(*name))) {
      fail("parameter " + quoted(*name) + " is given twice");
    } else {
      seen.push_back(*name);
    }
  }
}

const Element* Parameters::element(std::string_view name) const {
  for (const Element& child : call_.children) {
    const std::string* given = child.attribute("NAME");
    if (child.name != "IPARAMVALUE" || !given || !same_name(*given, name)) continue;
    return child.children.empty() ? nullptr : &child.children.front();
  }
  return nullptr;
}

bool Parameters::boolean(std::string_view name, bool otherwise) {
  const std::optional<std::string> value = text(name);
  if (!value) return otherwise;
  const std::string_view word = trimmed(*value);
  if (!same_name(word, "true") && !same_name(word, "false")) {
    fail("parameter " + quoted(name) + " must be TRUE or FALSE");
  }
  return same_name(word, "true");
}

std::optional<std::string> Parameters::text(std::string_view name) {
  const Element* value = element(name);
  if (!value) return std::nullopt;
  if (value->name != "VALUE") fail("parameter " + quoted(name) + " must be a VALUE");
  return value->text;
}

std::optional<std::vector<std::string>> Parameters::texts(std::string_view name) {
  const Element* array = element(name);
  if (!array) return std::nullopt;
  if (array->name != "VALUE.ARRAY") fail("parameter " + quoted(name) + " must be a VALUE.ARRAY");
  std::vector<std::string> values;
  for (const Element& value : array->children) values.push_back(value.text);
  return values;
}

std::optional<std::string> Parameters::class_name(std::string_view name) {
  const Element* value = element(name);
  if (!value) return std::nullopt;
  const std::string* class_name = value->attribute("NAME");
  if (value->name != "CLASSNAME" || !class_name || class_name->empty()) {
    fail("parameter " + quoted(name) + " must be a CLASSNAME");
    return std::nullopt;
  }
  return *class_name;
}

std::string Parameters::required_class_name(std::string_view name) {
  if (const std::optional<std::string> value = class_name(name)) return *value;
  fail("parameter " + quoted(name) + " is missing");
  return {};
}

ObjectPath Parameters::required_object(std::string_view name, const std::string& name_space) {
  const Element* value = element(name);
  if (!value) {
    fail("parameter " + quoted(name) + " is missing");
    return {};
  }
  Outcome<ObjectPath> path = read_object_path(*value);
  if (!path) {
    fail("parameter " + quoted(name) + ": " + path.error().description);
    return {};
  }
  if (path->name_space.empty()) path->name_space = name_space;
  return std::move(*path);
}

void Parameters::fail(std::string text) {
  if (!problem_) problem_ = Error{ErrorCode::InvalidParameter, std::move(text)};
}

}  // namespace sandbox::cimxml
