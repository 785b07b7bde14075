// The values that MOF writes, as values of declared types.
#pragma once

#include <functional>
#include <string>
#include <variant>

#include "model/data_type.h"
#include "model/value.h"
#include "mof/syntax.h"

namespace sandbox::mof {

template <class T>
using Checked = std::variant<T, Problem>;

// Turns an alias or an instance written as a value into a scalar.
using ObjectReader = std::function<Checked<Scalar>(const Literal& literal)>;

// The value of `initializer` for an element of `type`; a problem at the literal that does not fit.
Checked<Value> value_of(const Initializer& initializer, const DataType& type,
                        const ObjectReader& read_object);

// The type that a literal suggests, for qualifiers that nobody declared.
DataType suggested_type(const std::optional<Initializer>& initializer);

}  // namespace sandbox::mof
