// Making given values into values of their declared types.
#pragma once

#include "model/data_type.h"
#include "model/outcome.h"
#include "model/value.h"

namespace sandbox {

// `given` as a value of `type`: text is read, numbers are checked against the type's limits.
// Null stays null.  The error, a TypeMismatch, says what does not fit.
Outcome<Scalar> fit_scalar(const Scalar& given, const DataType& type);
Outcome<Value> fit_value(const Value& given, const DataType& type);

}  // namespace sandbox
