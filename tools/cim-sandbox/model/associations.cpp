// The operations that follow associations.
#include <unordered_set>

#include "model/object_manager.h"

namespace sandbox {
namespace {

// Calls `visit` with the name and target of each reference that an association has.
template <class Visitor>
void for_each_reference(const Instance& association, const Visitor& visit) {
  for (std::size_t i = 0; i < association.values.size(); ++i) {
    const Value& value = association.values[i];
    if (value.is_array()) continue;
    if (const auto* target = std::get_if<Reference>(&value.scalar())) {
      visit(association.of_class->properties[i].name, **target);
    }
  }
}

bool is_role(const std::optional<std::string>& wanted, std::string_view property) {
  return !wanted || wanted->empty() || same_name(*wanted, property);
}

// True when `association` refers to the source through the wanted role.
bool refers(const Instance& association, const std::string& source,
            const std::optional<std::string>& role) {
  bool found = false;
  for_each_reference(association, [&](const std::string& property, const ObjectPath& target) {
    found = found || (is_role(role, property) && identity_of(target) == source);
  });
  return found;
}

bool is_wanted(const Class& of_class, const Class* filter) {
  return !filter || of_class.is_a(*filter);
}

}  // namespace

// Null when there is no filter.
Outcome<const Class*> ObjectManager::filter_class(
    const NameSpace& home, const std::optional<std::string>& class_name) const {
  if (!class_name || class_name->empty()) return static_cast<const Class*>(nullptr);
  if (const Class* found = home.classes.find(*class_name)) return found;
  return Error{ErrorCode::InvalidParameter, "unknown class \"" + *class_name + '"'};
}

Outcome<std::vector<FoundInstance>> ObjectManager::references(const ObjectPath& path,
                                                              const ReferenceFilter& filter) const {
  const Outcome<Target> source = find_target(path);
  if (!source) return source.error();
  const Outcome<const Class*> wanted = filter_class(*source->home, filter.result_class);
  if (!wanted) return wanted.error();
  std::vector<FoundInstance> found;
  for (const Instance* association : source->home->instances.referring_to(source->identity)) {
    if (!is_wanted(*association->of_class, *wanted)) continue;
    if (!refers(*association, source->identity, filter.role)) continue;
    found.push_back({path_of(*association, source->home->name), association});
  }
  return found;
}

Outcome<std::vector<FoundInstance>> ObjectManager::associators(
    const ObjectPath& path, const AssociatorFilter& filter) const {
  const Outcome<std::vector<FoundInstance>> associations =
      references(path, {filter.association_class, filter.role});
  if (!associations) return associations.error();
  const Outcome<Target> source = find_target(path);
  const Outcome<const Class*> wanted = filter_class(*source->home, filter.result_class);
  if (!wanted) return wanted.error();
  std::vector<FoundInstance> found;
  std::unordered_set<std::string> seen;
  const auto follow = [&](const Instance& association) {
    bool near_end_passed = false;  // an association may have the source at both ends
    for_each_reference(association, [&](const std::string& property, const ObjectPath& end) {
      const std::string identity = identity_of(end);
      if (identity == source->identity && !near_end_passed && is_role(filter.role, property)) {
        near_end_passed = true;
        return;
      }
      if (!is_role(filter.result_role, property)) return;
      const Outcome<Target> target = find_target(end);  // a reference may lead nowhere
      if (!target || !is_wanted(*target->instance->of_class, *wanted)) return;
      if (seen.insert(identity).second) found.push_back({target->path, target->instance});
    });
  };
  for (const FoundInstance& each : *associations) follow(*each.instance);
  return found;
}

}  // namespace sandbox
