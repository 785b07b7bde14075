// Reads instances and arguments out of a request.
#pragma once

#include <string>
#include <string_view>

#include "cimxml/element.h"
#include "model/instance.h"
#include "model/object_manager.h"
#include "model/outcome.h"

namespace sandbox::cimxml {

// Reads values as clients write them; what holds embedded instances is read as such, for which
// the declarations in the manager's namespace are asked.
class InstanceInput {
 public:
  InstanceInput(const ObjectManager& manager, std::string name_space)
      : manager_(manager), name_space_(std::move(name_space)) {}

  // INSTANCE
  Outcome<GivenInstance> read_instance(const Element& element) const;

  // PARAMVALUE, for a method that may have a parameter of that name.
  Outcome<GivenValue> read_argument(const Element& element, const Method* method) const;

 private:
  Outcome<GivenInstance> read_instance(const Element& element, int depth) const;
  Outcome<GivenValue> read_property(const Element& element, const Class& of_class, int depth) const;
  Outcome<Value> read_value(const Element& holder, bool is_embedded, int depth) const;
  Outcome<Value> read_array(const Element& array, bool is_embedded, int depth) const;
  Outcome<Scalar> read_scalar(const Element& value, bool is_embedded, int depth) const;
  Outcome<Scalar> read_embedded(std::string_view text, int depth) const;

  const ObjectManager& manager_;
  std::string name_space_;
};

}  // namespace sandbox::cimxml
