// The table of intrinsic operations.
#include "cimxml/operations.h"

#include <array>

#include "cimxml/association_operations.h"
#include "cimxml/class_operations.h"
#include "cimxml/instance_operations.h"
#include "cimxml/query_operation.h"
#include "model/text.h"

namespace sandbox::cimxml {

Operation find_operation(std::string_view name) {
  struct Entry {
    std::string_view name;
    Operation operation;
  };
  static constexpr std::array<Entry, 14> table = {{
      {"GetClass", get_class},
      {"EnumerateClasses", enumerate_classes},
      {"EnumerateClassNames", enumerate_class_names},
      {"GetInstance", get_instance},
      {"EnumerateInstances", enumerate_instances},
      {"EnumerateInstanceNames", enumerate_instance_names},
      {"CreateInstance", create_instance},
      {"ModifyInstance", modify_instance},
      {"DeleteInstance", delete_instance},
      {"Associators", associators},
      {"AssociatorNames", associator_names},
      {"References", references},
      {"ReferenceNames", reference_names},
      {"ExecQuery", exec_query},
  }};
  for (const Entry& entry : table) {
    if (same_name(entry.name, name)) return entry.operation;
  }
  return nullptr;
}

}  // namespace sandbox::cimxml
