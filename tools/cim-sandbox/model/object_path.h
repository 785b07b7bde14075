// The names of instances: class, keys, and the namespace where they live.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/data_type.h"
#include "model/outcome.h"
#include "model/value.h"

namespace sandbox {

// One key.  As a client sent it, a value is text or a reference and `type` is only what the text
// looked like; once the class is known, value and type are the declared ones.
struct KeyBinding {
  std::string name;
  Type type = Type::String;
  Scalar value;
};

// A class, or one instance of it when it has keys.
struct ObjectPath {
  std::string name_space;  // "root/cimv2"; empty: the namespace at hand
  std::string class_name;
  std::vector<KeyBinding> keys;
};

// A text that two paths share exactly when they name the same object: names in lower case, keys
// sorted, values as they print.  The keys must have their declared types.
std::string identity_of(const ObjectPath& path);

// The form that people read and MOF writes: CIM_Fan.DeviceID="fan1",SystemName="s", led by the
// namespace and a colon when `path` has one.
std::string to_text(const ObjectPath& path);

// Reads that form.  Values in quotes become text, TRUE and FALSE booleans, all others text of
// numbers, and a reference key stays the text of a path in quotes until its class tells.
// The error says what is wrong with the text.
Outcome<ObjectPath> object_path_from(std::string_view text);

}  // namespace sandbox
