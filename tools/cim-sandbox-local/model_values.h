// Values of the model as values of the broker's interface, and back.
#pragma once

#include <cstddef>
#include <vector>

#include "model/instance.h"
#include "model/object_manager.h"
#include "model/object_path.h"
#include "objects.h"

namespace sandbox_local {

Path path_of(const sandbox::ObjectPath& path);
sandbox::ObjectPath model_path(const Path& path);

InstanceObject instance_of(const sandbox::ObjectPath& path, const sandbox::Instance& instance);
// With the properties at those positions alone.
InstanceObject instance_of(const sandbox::ObjectPath& path, const sandbox::Instance& instance,
                           const std::vector<std::size_t>& positions);

// What a client gives, for a model whose embedded instances `manager` builds.  One that it cannot
// build becomes null.
class GivenValues {
 public:
  explicit GivenValues(const sandbox::ObjectManager& manager) : manager_(manager) {}

  sandbox::GivenInstance instance(const InstanceObject& instance) const;
  sandbox::GivenValue value(const Member& member) const;

 private:
  sandbox::Scalar scalar(const Datum& datum) const;
  sandbox::Scalar embedded(const InstanceObject& instance) const;

  const sandbox::ObjectManager& manager_;
};

// A value of a declared type.
Datum datum_of(const sandbox::Value& value, const sandbox::DataType& type);

ClassObject class_of(const sandbox::Class& model_class);

}  // namespace sandbox_local
