// The choice of properties.
#include "model/view.h"

#include <algorithm>

namespace sandbox {
namespace {

// The class nearest to `of_class` that declares or overrides the property.
const Class& declarer_of(const Class& of_class, std::string_view property) {
  const Class* declarer = &of_class;
  while (declarer->superclass) {
    const Property* found = declarer->find_property(property);
    if (!found || !found->propagated) break;
    declarer = declarer->superclass;
  }
  return *declarer;
}

}  // namespace

bool Wishes::names(std::string_view property) const {
  if (!properties) return true;
  return std::any_of(properties->begin(), properties->end(),
                     [property](const std::string& name) { return same_name(name, property); });
}

const std::vector<std::size_t>& View::positions(const Class& of_class) const {
  const auto [entry, is_new] = known_.try_emplace(&of_class);
  if (!is_new) return entry->second;
  for (std::size_t i = 0; i < of_class.properties.size(); ++i) {
    if (shows(of_class, of_class.properties[i])) entry->second.push_back(i);
  }
  return entry->second;
}

bool View::shows(const Class& of_class, const Property& property) const {
  if (!wishes_.names(property.name)) return false;
  const Class& asked_for = asked_for_ ? *asked_for_ : of_class;
  if (!wishes_.deep && !asked_for.find_property(property.name)) return false;
  if (!wishes_.local_only) return true;
  const Class& lowest = wishes_.deep ? of_class : asked_for;
  return declarer_of(lowest, property.name).is_a(asked_for);
}

}  // namespace sandbox
