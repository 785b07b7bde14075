// The CIM operations over a repository, free of any protocol.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/instance.h"
#include "model/outcome.h"
#include "model/repository.h"

namespace sandbox {

// Every operation answers a CIM error when it cannot do as asked.  Instances and classes handed
// out belong to the repository: classes for its lifetime, instances until the next change.
class ObjectManager {
 public:
  explicit ObjectManager(Repository& repository) : repository_(repository) {}

  Outcome<const Class*> get_class(std::string_view name_space, std::string_view class_name) const;

  // The classes below `class_name` (nothing: below the root): direct ones, or with `deep` all.
  Outcome<std::vector<const Class*>> enumerate_classes(std::string_view name_space,
                                                       const std::optional<std::string>& class_name,
                                                       bool deep) const;

  // The instances of a class and of its subclasses.
  Outcome<std::vector<const Instance*>> enumerate_instances(std::string_view name_space,
                                                            std::string_view class_name) const;

  // `path` as the client gave it, with its namespace.
  Outcome<const Instance*> get_instance(const ObjectPath& path) const;

 private:
  Outcome<const NameSpace*> find_name_space(std::string_view name) const;

  Repository& repository_;
};

}  // namespace sandbox
