// The table of intrinsic operations.
#include "cimxml/operations.h"

#include <array>

#include "cimxml/class_operations.h"
#include "cimxml/instance_operations.h"
#include "model/text.h"

namespace sandbox::cimxml {

Operation find_operation(std::string_view name) {
  struct Entry {
    std::string_view name;
    Operation operation;
  };
  static constexpr std::array<Entry, 6> table = {{
      {"GetClass", get_class},
      {"EnumerateClasses", enumerate_classes},
      {"EnumerateClassNames", enumerate_class_names},
      {"GetInstance", get_instance},
      {"EnumerateInstances", enumerate_instances},
      {"EnumerateInstanceNames", enumerate_instance_names},
  }};
  for (const Entry& entry : table) {
    if (same_name(entry.name, name)) return entry.operation;
  }
  return nullptr;
}

}  // namespace sandbox::cimxml
