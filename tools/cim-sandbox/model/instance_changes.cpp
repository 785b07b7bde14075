// The operations that create, modify and delete instances.
#include <algorithm>

#include "model/given_values.h"
#include "model/object_manager.h"

namespace sandbox {
namespace {

// More would exhaust a small machine's memory; a client in a loop gets there.
constexpr std::size_t most_instances = 10'000'000;

std::string quoted(std::string_view name) { return '"' + std::string(name) + '"'; }

// What is wrong when a property that must have a value has none.  `before` is null for a new
// instance; what had no value before may stay so.
std::optional<Error> missing_value(const Instance& instance, const Instance* before) {
  for (std::size_t i = 0; i < instance.values.size(); ++i) {
    const Property& property = instance.of_class->properties[i];
    if (!instance.values[i].null() || (before && before->values[i].null())) continue;
    if (property.is_key) {
      return Error{ErrorCode::InvalidParameter, "key " + quoted(property.name) + " is missing"};
    }
    if (is_set(property.qualifiers, "Required")) {
      return Error{ErrorCode::InvalidParameter,
                   "required property " + quoted(property.name) + " is missing"};
    }
  }
  return std::nullopt;
}

std::optional<Error> check_properties_differ(const std::vector<GivenValue>& given) {
  for (std::size_t i = 0; i < given.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) {
      if (same_name(given[i].name, given[k].name)) {
        return Error{ErrorCode::InvalidParameter,
                     "property " + quoted(given[i].name) + " is given twice"};
      }
    }
  }
  return std::nullopt;
}

bool lists(const std::vector<std::string>& names, std::string_view name) {
  return std::any_of(names.begin(), names.end(),
                     [name](const std::string& each) { return same_name(each, name); });
}

Error no_such_property(const Class& of_class, std::string_view name) {
  return {ErrorCode::NoSuchProperty,
          "class " + quoted(of_class.name) + " has no property " + quoted(name)};
}

Outcome<Done> assign(Instance& instance, const GivenValue& given, const Repository& repository,
                     std::string_view home) {
  const std::size_t position = instance.of_class->position_of(given.name);
  if (position == Class::none) return no_such_property(*instance.of_class, given.name);
  const Property& property = instance.of_class->properties[position];
  Outcome<Value> value = check_given(expectation_of(property), given, repository, home);
  if (!value) return value.error();
  instance.values[position] = std::move(*value);
  return Done{};
}

}  // namespace

Outcome<Instance> ObjectManager::build_instance(std::string_view name_space,
                                                const GivenInstance& given) const {
  const Outcome<const NameSpace*> home = find_name_space(name_space);
  if (!home) return home.error();
  const Class* of_class = (*home)->classes.find(given.class_name);
  if (!of_class) {
    return Error{ErrorCode::InvalidClass, "unknown class " + quoted(given.class_name)};
  }
  if (of_class->is_abstract) {
    return Error{ErrorCode::InvalidClass, "class " + quoted(of_class->name) + " is abstract"};
  }
  if (auto problem = check_properties_differ(given.properties)) return *problem;
  Instance instance = new_instance(*of_class);
  for (const GivenValue& property : given.properties) {
    const Outcome<Done> done = assign(instance, property, repository_, (*home)->name);
    if (!done) return done.error();
  }
  return instance;
}

Outcome<ObjectPath> ObjectManager::create_instance(std::string_view name_space,
                                                   const GivenInstance& given) {
  Outcome<Instance> instance = build_instance(name_space, given);
  if (!instance) return instance.error();
  if (instance->of_class->keys.empty()) {
    return Error{ErrorCode::InvalidClass, "class " + quoted(instance->of_class->name) +
                                              " has no key: its instances can only be embedded"};
  }
  if (auto problem = missing_value(*instance, nullptr)) return *problem;
  NameSpace& home = *repository_.find(name_space);
  if (home.instances.size() >= most_instances) {
    return Error{ErrorCode::Failed, "there are too many instances"};
  }
  ObjectPath path = path_of(*instance, home.name);
  const Instance* added = home.instances.add(std::move(*instance));
  if (!added) {
    return Error{ErrorCode::AlreadyExists, "instance " + to_text(path) + " exists already"};
  }
  if (listener_) listener_->created(path, *added);
  return path;
}

Outcome<Done> ObjectManager::modify_instance(
    const ObjectPath& path, const GivenInstance& given,
    const std::optional<std::vector<std::string>>& property_list) {
  const Outcome<Target> target = find_target(path);
  if (!target) return target.error();
  const Class& of_class = *target->instance->of_class;
  if (!same_name(given.class_name, of_class.name)) {
    return Error{ErrorCode::InvalidParameter, "the name is of class " + quoted(of_class.name) +
                                                  ", the instance of " + quoted(given.class_name)};
  }
  if (auto problem = check_properties_differ(given.properties)) return *problem;

  Instance changed = *target->instance;
  for (const std::string& name : property_list.value_or(std::vector<std::string>())) {
    const std::size_t position = of_class.position_of(name);
    if (position == Class::none) return no_such_property(of_class, name);
    if (!of_class.properties[position].is_key) {
      changed.values[position] = of_class.properties[position].initial;
    }
  }
  for (const GivenValue& property : given.properties) {
    if (property_list && !lists(*property_list, property.name)) continue;
    const Outcome<Done> done = assign(changed, property, repository_, target->home->name);
    if (!done) return done.error();
  }
  if (auto problem = missing_value(changed, target->instance)) return *problem;
  if (identity_of(path_of(changed, target->home->name)) != target->identity) {
    return Error{ErrorCode::InvalidParameter, "keys cannot be modified"};
  }
  replace_values(*target, std::move(changed.values));
  return Done{};
}

Outcome<Done> ObjectManager::delete_instance(const ObjectPath& path) {
  const Outcome<Target> target = find_target(path);
  if (!target) return target.error();
  const std::vector<Instance> removed =
      target->home->instances.remove(*target->instance->of_class, target->identity);
  if (!listener_) return Done{};
  for (const Instance& each : removed) listener_->deleted(path_of(each, target->home->name), each);
  return Done{};
}

void ObjectManager::replace_values(const Target& target, std::vector<Value> values) {
  const Instance before = *target.instance;
  target.home->instances.replace(*before.of_class, target.identity, std::move(values));
  if (listener_) listener_->modified(target.path, before, *target.instance);
}

}  // namespace sandbox
