// Access to an instance's values.
#include "model/instance.h"

namespace sandbox {

const Value* Instance::find(std::string_view property) const {
  const std::size_t position = of_class->position_of(property);
  return position == Class::none ? nullptr : &values[position];
}

void Instance::set(std::string_view property, Value value) {
  const std::size_t position = of_class->position_of(property);
  if (position != Class::none) values[position] = std::move(value);
}

Instance new_instance(const Class& of_class) {
  Instance instance{&of_class, {}};
  instance.values.reserve(of_class.properties.size());
  for (const Property& property : of_class.properties) instance.values.push_back(property.initial);
  return instance;
}

ObjectPath path_of(const Instance& instance, std::string_view name_space) {
  ObjectPath path{std::string(name_space), instance.of_class->name, {}};
  path.keys.reserve(instance.of_class->keys.size());
  for (const std::size_t position : instance.of_class->keys) {
    const Property& property = instance.of_class->properties[position];
    path.keys.push_back({property.name, property.type.type, instance.values[position].scalar()});
  }
  return path;
}

}  // namespace sandbox
