// The CIM operations over a repository, free of any protocol.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/association_filter.h"
#include "model/change_listener.h"
#include "model/instance.h"
#include "model/outcome.h"
#include "model/repository.h"

namespace sandbox {

// An instance with its whole path.
struct FoundInstance {
  ObjectPath path;
  const Instance* instance;
};

// What a query selects; without names, all properties.
struct QueryResult {
  std::vector<FoundInstance> instances;
  std::optional<std::vector<std::string>> properties;
};

struct OutArgument {
  const Parameter* parameter;
  Value value;
};

struct MethodResult {
  const Method* method;
  Value return_value;
  std::vector<OutArgument> out;
};

// Every operation answers a CIM error when it cannot do as asked.  Paths are taken as clients give
// them, with their namespace.  Instances and classes handed out belong to the repository: classes
// for its lifetime, instances until the next change.
class ObjectManager {
 public:
  explicit ObjectManager(Repository& repository) : repository_(repository) {}

  // Tells `listener` of every change from now on; null: nobody.  It must outlive this object.
  void set_listener(ChangeListener* listener) { listener_ = listener; }

  Outcome<const Class*> get_class(std::string_view name_space, std::string_view class_name) const;

  // The classes below `class_name` (nothing: below the root): direct ones, or with `deep` all.
  Outcome<std::vector<const Class*>> enumerate_classes(std::string_view name_space,
                                                       const std::optional<std::string>& class_name,
                                                       bool deep) const;

  // The instances of a class and of its subclasses.
  Outcome<std::vector<const Instance*>> enumerate_instances(std::string_view name_space,
                                                            std::string_view class_name) const;

  Outcome<const Instance*> get_instance(const ObjectPath& path) const;

  // A checked instance that is in no repository, such as an embedded one.
  Outcome<Instance> build_instance(std::string_view name_space, const GivenInstance& given) const;

  Outcome<ObjectPath> create_instance(std::string_view name_space, const GivenInstance& given);

  // Changes the given properties; with a property list those it names, which become initial again
  // when they are not given.
  Outcome<Done> modify_instance(const ObjectPath& path, const GivenInstance& given,
                                const std::optional<std::vector<std::string>>& property_list);

  // The associations that refer to the instance go with it.
  Outcome<Done> delete_instance(const ObjectPath& path);

  // The objects at the other ends of the associations that refer to an instance, each one once.
  Outcome<std::vector<FoundInstance>> associators(const ObjectPath& path,
                                                  const AssociatorFilter& filter) const;

  // The associations that refer to an instance.
  Outcome<std::vector<FoundInstance>> references(const ObjectPath& path,
                                                 const ReferenceFilter& filter) const;

  Outcome<QueryResult> exec_query(std::string_view name_space, std::string_view language,
                                  std::string_view query) const;

  // `path` names an instance, or for a static method a class.
  Outcome<MethodResult> invoke_method(const ObjectPath& path, std::string_view method_name,
                                      const std::vector<GivenValue>& arguments);

 private:
  struct Target {  // an instance that exists, and where
    NameSpace* home;
    ObjectPath path;
    std::string identity;
    const Instance* instance;
  };

  Outcome<const NameSpace*> find_name_space(std::string_view name) const;
  Outcome<Target> find_target(const ObjectPath& path) const;
  Outcome<const Class*> filter_class(const NameSpace& home,
                                     const std::optional<std::string>& class_name) const;
  void replace_values(const Target& target, std::vector<Value> values);

  Repository& repository_;
  ChangeListener* listener_ = nullptr;
};

}  // namespace sandbox
