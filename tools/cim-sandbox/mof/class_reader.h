// Class declarations become classes of the model.
#pragma once

#include <optional>

#include "model/class_table.h"
#include "mof/qualifiers.h"
#include "mof/syntax.h"

namespace sandbox::mof {

// Checks a declaration and adds the class to the table.
std::optional<Problem> declare_class(const ClassSyntax& syntax, const QualifierTable& qualifiers,
                                     ClassTable& classes);

}  // namespace sandbox::mof
