// Which associations and which associated objects a client wants to see.
#pragma once

#include <optional>
#include <string>

namespace sandbox {

// Each part that is there narrows the choice; classes stand for their subclasses too.
struct ReferenceFilter {
  std::optional<std::string> result_class;  // of the association
  std::optional<std::string> role;          // the reference that names the source object
};

struct AssociatorFilter {
  std::optional<std::string> association_class;
  std::optional<std::string> result_class;  // of the object at the other end
  std::optional<std::string> role;
  std::optional<std::string> result_role;  // the reference that names the object at the other end
};

}  // namespace sandbox
