// Whether an instance meets a query's condition.
#pragma once

#include <optional>

#include "model/class_table.h"
#include "model/instance.h"
#include "model/outcome.h"
#include "query/syntax.h"

namespace sandbox::query {

// Checks that the properties of a query exist in its class and can be compared as it wants.
std::optional<Error> check(const Query& query, const Class& of_class);

// Ask only for conditions that passed the check.  A comparison with a null value is not met.
// `classes` tells what a reference's class derives from.
bool meets(const Instance& instance, const Condition& condition, const ClassTable& classes);

}  // namespace sandbox::query
