// Namespaces, and the identification of paths within them.
#include "model/repository.h"

#include <algorithm>

#include "model/fitting.h"

namespace sandbox {
namespace {

constexpr int deepest_reference = 16;

std::string_view without_slashes(std::string_view name) {
  while (name.starts_with('/')) name.remove_prefix(1);
  while (name.ends_with('/')) name.remove_suffix(1);
  return name;
}

Error wrong_key(std::string text) { return {ErrorCode::InvalidParameter, std::move(text)}; }

const KeyBinding* find_key(const std::vector<KeyBinding>& keys, std::string_view name) {
  const auto found = std::find_if(keys.begin(), keys.end(), [name](const KeyBinding& key) {
    return same_name(key.name, name);
  });
  return found == keys.end() ? nullptr : &*found;
}

// A key without a name is the only key of its class.
std::optional<Error> check_key_names(const Class& of_class, const std::vector<KeyBinding>& keys) {
  for (const KeyBinding& key : keys) {
    if (key.name.empty() && keys.size() == 1 && of_class.keys.size() == 1) return std::nullopt;
    const Property* property = of_class.find_property(key.name);
    if (!property || !property->is_key) {
      return wrong_key('"' + key.name + "\" is no key of class \"" + of_class.name + '"');
    }
    if (find_key(keys, key.name) != &key) {
      return wrong_key("key \"" + key.name + "\" is given twice");
    }
  }
  return std::nullopt;
}

}  // namespace

NameSpace& Repository::open(std::string_view name) {
  name = without_slashes(name);
  const auto found = name_spaces_.find(name);
  if (found != name_spaces_.end()) return *found->second;
  auto made = std::make_unique<NameSpace>(std::string(name));
  return *name_spaces_.emplace(made->name, std::move(made)).first->second;
}

NameSpace* Repository::find(std::string_view name) {
  const auto found = name_spaces_.find(without_slashes(name));
  return found == name_spaces_.end() ? nullptr : found->second.get();
}

const NameSpace* Repository::find(std::string_view name) const {
  const auto found = name_spaces_.find(without_slashes(name));
  return found == name_spaces_.end() ? nullptr : found->second.get();
}

Outcome<ObjectPath> Repository::identify(const ObjectPath& given, std::string_view home) const {
  return identify(given, home, 0);
}

Outcome<ObjectPath> Repository::identify_reference(const ObjectPath& given,
                                                   std::string_view home) const {
  return identify_reference(given, home, 0);
}

Outcome<ObjectPath> Repository::identify(const ObjectPath& given, std::string_view home,
                                         int depth) const {
  const std::string_view wanted = given.name_space.empty() ? home : given.name_space;
  const NameSpace* name_space = find(wanted);
  if (!name_space) {
    return Error{ErrorCode::InvalidNamespace, "unknown namespace \"" + std::string(wanted) + '"'};
  }
  const Class* of_class = name_space->classes.find(given.class_name);
  if (!of_class) {
    return Error{ErrorCode::InvalidClass, "unknown class \"" + given.class_name + '"'};
  }
  if (auto problem = check_key_names(*of_class, given.keys)) return *problem;

  ObjectPath path{name_space->name, of_class->name, {}};
  for (const std::size_t position : of_class->keys) {
    const Property& key = of_class->properties[position];
    const bool nameless = given.keys.size() == 1 && given.keys.front().name.empty();
    const KeyBinding* binding = nameless ? &given.keys.front() : find_key(given.keys, key.name);
    if (!binding || is_null(binding->value)) {
      return wrong_key("key \"" + key.name + "\" of class \"" + of_class->name + "\" is missing");
    }
    Outcome<Scalar> value = identify_key(key, *binding, wanted, depth);
    if (!value) return value.error();
    path.keys.push_back({key.name, key.type.type, std::move(*value)});
  }
  return path;
}

Outcome<Scalar> Repository::identify_key(const Property& key, const KeyBinding& given,
                                         std::string_view home, int depth) const {
  Outcome<Scalar> value = fit_scalar(given.value, key.type);
  if (!value) return wrong_key("key \"" + key.name + "\": " + value.error().description);
  const auto* reference = std::get_if<Reference>(&*value);
  if (!reference) return value;
  Outcome<ObjectPath> target = identify_reference(**reference, home, depth + 1);
  if (!target) return target.error();
  return Scalar(std::make_shared<const ObjectPath>(std::move(*target)));
}

// A path to a namespace that is not here stays as it is: it may well exist elsewhere.
Outcome<ObjectPath> Repository::identify_reference(const ObjectPath& given, std::string_view home,
                                                   int depth) const {
  if (depth > deepest_reference) return wrong_key("references are nested too deeply");
  if (!given.name_space.empty() && !find(given.name_space)) return given;
  return identify(given, home, depth);
}

}  // namespace sandbox
