// Keeping instances, and who refers to whom.
#include "model/instance_store.h"

#include <algorithm>

namespace sandbox {
namespace {

// Calls `visit` with the identity of each object that an association refers to.
template <class Visitor>
void for_each_target(const Instance& instance, const Visitor& visit) {
  if (!instance.of_class->is_association) return;
  for (std::size_t i = 0; i < instance.values.size(); ++i) {
    const Value& value = instance.values[i];
    if (instance.of_class->properties[i].type.type != Type::Reference || value.is_array()) continue;
    if (const auto* target = std::get_if<Reference>(&value.scalar())) visit(identity_of(**target));
  }
}

}  // namespace

const Instance* InstanceStore::add(Instance instance) {
  std::string identity = identity_of(path_of(instance, name_space_));
  Shelf& shelf = shelves_[instance.of_class];
  if (shelf.by_identity.contains(identity)) return nullptr;
  shelf.instances.push_back(std::move(instance));
  const Position position = std::prev(shelf.instances.end());
  shelf.by_identity.emplace(std::move(identity), position);
  note_references(*position);
  ++size_;
  return &*position;
}

const Instance* InstanceStore::find(const Class& of_class, const std::string& identity) const {
  const auto shelf = shelves_.find(&of_class);
  if (shelf == shelves_.end()) return nullptr;
  const auto found = shelf->second.by_identity.find(identity);
  return found == shelf->second.by_identity.end() ? nullptr : &*found->second;
}

void InstanceStore::replace(const Class& of_class, const std::string& identity,
                            std::vector<Value> values) {
  Shelf& shelf = shelves_[&of_class];
  const auto found = shelf.by_identity.find(identity);
  if (found == shelf.by_identity.end()) return;
  forget_references(*found->second);
  found->second->values = std::move(values);
  note_references(*found->second);
}

std::vector<Instance> InstanceStore::remove(const Class& of_class, const std::string& identity) {
  std::vector<Instance> removed;
  struct Doomed {
    const Class* of_class;
    std::string identity;
  };
  std::vector<Doomed> waiting{{&of_class, identity}};
  while (!waiting.empty()) {
    const Doomed next = std::move(waiting.back());
    waiting.pop_back();
    Shelf& shelf = shelves_[next.of_class];
    const auto found = shelf.by_identity.find(next.identity);
    if (found == shelf.by_identity.end()) continue;
    forget_references(*found->second);
    removed.push_back(std::move(*found->second));
    shelf.instances.erase(found->second);
    shelf.by_identity.erase(found);
    --size_;
    for (const Instance* association : referring_to(next.identity)) {
      waiting.push_back({association->of_class, identity_of(path_of(*association, name_space_))});
    }
  }
  return removed;
}

std::vector<const Instance*> InstanceStore::referring_to(const std::string& identity) const {
  const auto found = referring_.find(identity);
  return found == referring_.end() ? std::vector<const Instance*>() : found->second;
}

const std::list<Instance>& InstanceStore::of(const Class& of_class) const {
  static const std::list<Instance> nothing;
  const auto shelf = shelves_.find(&of_class);
  return shelf == shelves_.end() ? nothing : shelf->second.instances;
}

void InstanceStore::note_references(const Instance& instance) {
  for_each_target(instance, [&](std::string target) {
    std::vector<const Instance*>& referring = referring_[std::move(target)];
    if (referring.empty() || referring.back() != &instance) referring.push_back(&instance);
  });
}

void InstanceStore::forget_references(const Instance& instance) {
  for_each_target(instance, [&](const std::string& target) {
    const auto found = referring_.find(target);
    if (found == referring_.end()) return;
    std::erase(found->second, &instance);
    if (found->second.empty()) referring_.erase(found);
  });
}

}  // namespace sandbox
