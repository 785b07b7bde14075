// Bringing objects into one form.
#include "answer_objects.h"

#include <utility>

#include "records.h"

namespace cli {
namespace {

// A list that grows at its tail.
class ObjectList {
 public:
  ObjectWithPath& add() {
    auto* node = new_record<ObjectWithPath>();
    if (tail_ == nullptr)
      list_.reset(node);
    else
      tail_->next = node;
    tail_ = node;
    return *node;
  }

  ObjectWithPathOwner take() { return std::move(list_); }

 private:
  ObjectWithPathOwner list_;
  ObjectWithPath* tail_ = nullptr;
};

NamespacePath* full_path(LocalNamespacePath*& local) {
  auto* path = new_record<NamespacePath>();
  path->localNamespacePath = std::exchange(local, nullptr);
  return path;
}

void take_instance_path(ObjectWithPath& object, LocalInstancePath* local) {
  if (local == nullptr) return;
  object.instancePath = new_record<InstancePath>();
  object.instancePath->namespacePath = full_path(local->localNamespacePath);
  object.instancePath->instanceName = std::exchange(local->instanceName, nullptr);
}

void take_class_path(ObjectWithPath& object, LocalClassPath* local) {
  if (local == nullptr) return;
  object.classPath = new_record<ClassPath>();
  object.classPath->namespacePath = full_path(local->localNamespacePath);
  object.classPath->className = std::exchange(local->className, nullptr);
}

}  // namespace

ObjectWithPathOwner taken_objects(IReturnValue& result) {
  ObjectList list;
  for (Object* from = result.object; from != nullptr; from = from->next) {
    ObjectWithPath& object = list.add();
    object.class_ = std::exchange(from->class_, nullptr);
    object.instance = std::exchange(from->instance, nullptr);
  }
  for (ObjectWithLocalPath* from = result.objectWithLocalPath; from != nullptr; from = from->next) {
    ObjectWithPath& object = list.add();
    take_instance_path(object, from->localInstancePath);
    take_class_path(object, from->localClassPath);
    object.class_ = std::exchange(from->class_, nullptr);
    object.instance = std::exchange(from->instance, nullptr);
  }
  return list.take();
}

}  // namespace cli
