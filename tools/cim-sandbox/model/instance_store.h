// The instances of one namespace.
#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "model/instance.h"

namespace sandbox {

// Instances by class and key.  Addresses stay valid until the instance is removed.
class InstanceStore {
 public:
  explicit InstanceStore(std::string name_space) : name_space_(std::move(name_space)) {}
  InstanceStore(const InstanceStore&) = delete;
  InstanceStore& operator=(const InstanceStore&) = delete;

  // Null when its class has an instance with the same keys already.
  const Instance* add(Instance instance);

  // `identity`: identity_of() a path whose keys have their declared types.
  const Instance* find(const Class& of_class, const std::string& identity) const;

  // Replaces all values but the keys of an instance that is in the store.
  void replace(const Class& of_class, const std::string& identity, std::vector<Value> values);

  // Removes an instance together with the associations that refer to it, and hands them out.
  std::vector<Instance> remove(const Class& of_class, const std::string& identity);

  // The association instances that refer to the object of that identity.
  std::vector<const Instance*> referring_to(const std::string& identity) const;

  // The instances of this very class, in order of creation.
  const std::list<Instance>& of(const Class& of_class) const;

  std::size_t size() const { return size_; }

 private:
  using Position = std::list<Instance>::iterator;
  struct Shelf {
    std::list<Instance> instances;
    std::unordered_map<std::string, Position> by_identity;
  };

  void note_references(const Instance& instance);
  void forget_references(const Instance& instance);

  std::string name_space_;
  std::unordered_map<const Class*, Shelf> shelves_;
  std::unordered_map<std::string, std::vector<const Instance*>> referring_;
  std::size_t size_ = 0;
};

}  // namespace sandbox
