// Checks of what clients give: properties of instances and arguments of methods.
#pragma once

#include <string>
#include <string_view>

#include "model/instance.h"
#include "model/outcome.h"
#include "model/repository.h"

namespace sandbox {

// What a property or a parameter admits.
struct Expectation {
  std::string name;  // for messages: property "Speed"
  const DataType& type;
  bool is_embedded;
  const std::string& embedded_class;
};
Expectation expectation_of(const Property& property);
Expectation expectation_of(const Parameter& parameter);

// `given` as a value of the declared type; references are completed with `home` as namespace.
// A TypeMismatch for what does not fit, other codes for paths that lead nowhere.
Outcome<Value> check_given(const Expectation& expectation, const GivenValue& given,
                           const Repository& repository, std::string_view home);

}  // namespace sandbox
