// Typed values as the library's records, checked against what the class says of them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "owners.h"
#include "value_syntax.h"
#include "views.h"

namespace cli {

// Gives the definition of a class: embedded instances are checked against their own.
using ClassSource = std::function<ClassOwner(const std::string& class_name)>;

// The instance of the class with these values, its texts plain. Names are written as the class
// writes them; assignments to an array may be repeated and add up. Throws a usage failure for an
// unknown name, a value that does not fit its type, or a second value.
InstanceOwner make_instance(const Class& definition, const std::vector<Assignment>& assignments,
                            const ClassSource& classes);

// The input parameters of a method with these values, its texts plain. Null without any.
ParamValueOwner make_parameters(const Method& method, const std::vector<Assignment>& assignments,
                                const ClassSource& classes);

}  // namespace cli
