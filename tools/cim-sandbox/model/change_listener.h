// Whoever wants to know about changes of instances.
#pragma once

#include "model/instance.h"
#include "model/object_path.h"

namespace sandbox {

class ChangeListener {
 public:
  virtual ~ChangeListener() = default;
  virtual void created(const ObjectPath& path, const Instance& instance) = 0;
  virtual void modified(const ObjectPath& path, const Instance& before, const Instance& after) = 0;
  virtual void deleted(const ObjectPath& path, const Instance& before) = 0;
};

}  // namespace sandbox
