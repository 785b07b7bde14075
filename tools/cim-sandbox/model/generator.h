// Synthetic instances, for models of any size.
#pragma once

#include <cstddef>
#include <string_view>

#include "model/outcome.h"
#include "model/repository.h"

namespace sandbox {

// Adds `count` instances of a class whose values follow from their number alone, so that every
// run gives the same ones: text keys are "<property>-<number>", the first integer key is the
// number.  References and embedded instances stay null; a class with a reference as key fails.
Outcome<Done> generate_instances(Repository& repository, std::string_view name_space,
                                 std::string_view class_name, std::size_t count);

}  // namespace sandbox
