// Everything the object manager knows: its namespaces with their classes and instances.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "model/class_table.h"
#include "model/instance_store.h"
#include "model/outcome.h"

namespace sandbox {

struct NameSpace {
  explicit NameSpace(std::string given_name) : name(given_name), instances(std::move(given_name)) {}

  std::string name;
  ClassTable classes;
  InstanceStore instances;
};

class Repository {
 public:
  // Makes the namespace on first use.  Leading and trailing slashes do not count.
  NameSpace& open(std::string_view name);

  // Null when there is no such namespace.
  NameSpace* find(std::string_view name);
  const NameSpace* find(std::string_view name) const;

  // Gives a path as a client or a MOF file wrote it its namespace (`home` when it has none), the
  // declared names and types of its keys, and the same for the paths in its keys.
  Outcome<ObjectPath> identify(const ObjectPath& given, std::string_view home) const;

  // The same for the value of a reference, which may lead into a namespace that is not here.
  Outcome<ObjectPath> identify_reference(const ObjectPath& given, std::string_view home) const;

 private:
  Outcome<ObjectPath> identify(const ObjectPath& given, std::string_view home, int depth) const;
  Outcome<Scalar> identify_key(const Property& key, const KeyBinding& given, std::string_view home,
                               int depth) const;
  Outcome<ObjectPath> identify_reference(const ObjectPath& given, std::string_view home,
                                         int depth) const;

  std::map<std::string, std::unique_ptr<NameSpace>, NameLess> name_spaces_;
};

}  // namespace sandbox
