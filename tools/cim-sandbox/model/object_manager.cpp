// The reading operations.
#include "model/object_manager.h"

namespace sandbox {

Outcome<const NameSpace*> ObjectManager::find_name_space(std::string_view name) const {
  if (const NameSpace* found = std::as_const(repository_).find(name)) return found;
  return Error{ErrorCode::InvalidNamespace, "unknown namespace \"" + std::string(name) + '"'};
}

Outcome<const Class*> ObjectManager::get_class(std::string_view name_space,
                                               std::string_view class_name) const {
  const Outcome<const NameSpace*> home = find_name_space(name_space);
  if (!home) return home.error();
  if (const Class* found = (*home)->classes.find(class_name)) return found;
  return Error{ErrorCode::NotFound, "unknown class \"" + std::string(class_name) + '"'};
}

Outcome<std::vector<const Class*>> ObjectManager::enumerate_classes(
    std::string_view name_space, const std::optional<std::string>& class_name, bool deep) const {
  const Outcome<const NameSpace*> home = find_name_space(name_space);
  if (!home) return home.error();
  const std::vector<Class*>* tops = &(*home)->classes.roots();
  if (class_name) {
    const Class* parent = (*home)->classes.find(*class_name);
    if (!parent) return Error{ErrorCode::InvalidClass, "unknown class \"" + *class_name + '"'};
    tops = &parent->subclasses;
  }
  std::vector<const Class*> found;
  for (const Class* top : *tops) {
    if (deep) {
      for_each_class(*top, [&found](const Class& each) { found.push_back(&each); });
    } else {
      found.push_back(top);
    }
  }
  return found;
}

Outcome<std::vector<const Instance*>> ObjectManager::enumerate_instances(
    std::string_view name_space, std::string_view class_name) const {
  const Outcome<const NameSpace*> home = find_name_space(name_space);
  if (!home) return home.error();
  const Class* top = (*home)->classes.find(class_name);
  if (!top) {
    return Error{ErrorCode::InvalidClass, "unknown class \"" + std::string(class_name) + '"'};
  }
  std::vector<const Instance*> found;
  for_each_class(*top, [&](const Class& each) {
    for (const Instance& instance : (*home)->instances.of(each)) found.push_back(&instance);
  });
  return found;
}

Outcome<const Instance*> ObjectManager::get_instance(const ObjectPath& path) const {
  const Outcome<Target> target = find_target(path);
  if (!target) return target.error();
  return target->instance;
}

Outcome<ObjectManager::Target> ObjectManager::find_target(const ObjectPath& path) const {
  Outcome<ObjectPath> identified = repository_.identify(path, path.name_space);
  if (!identified) return identified.error();
  NameSpace* home = repository_.find(identified->name_space);
  const Class* of_class = home->classes.find(identified->class_name);
  std::string identity = identity_of(*identified);
  const Instance* found = home->instances.find(*of_class, identity);
  if (!found) {
    return Error{ErrorCode::NotFound, "there is no instance " + to_text(*identified)};
  }
  return Target{home, std::move(*identified), std::move(identity), found};
}

}  // namespace sandbox
