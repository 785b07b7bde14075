// Instances, as the model holds them and as a client gives them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/class.h"
#include "model/object_path.h"
#include "model/value.h"

namespace sandbox {

struct Instance {
  const Class* of_class = nullptr;
  std::vector<Value> values;  // one for each of the class's properties, in their order

  // Null when the class has no such property.
  const Value* find(std::string_view property) const;
  // Nothing happens when the class has no such property.
  void set(std::string_view property, Value value);
};

// An instance with every property at its initial value.
Instance new_instance(const Class& of_class);

// The name of an instance that lives in `name_space`, keys in the class's order.
ObjectPath path_of(const Instance& instance, std::string_view name_space);

// One property or argument as a client states it: the scalars are typed, or texts to be read as
// the declared type tells.
struct GivenValue {
  std::string name;
  std::optional<Type> stated_type;  // what the client wrote beside it, if it did
  std::optional<bool> stated_array;
  Value value;
};

struct GivenInstance {
  std::string class_name;
  std::vector<GivenValue> properties;
};

}  // namespace sandbox
