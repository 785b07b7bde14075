// How qualifiers are written.
#pragma once

#include <vector>

#include "cimxml/markup.h"
#include "model/class.h"

namespace sandbox::cimxml {

// With `local_only` those that an element inherited are left out.
void write_qualifiers(Markup& out, const std::vector<Qualifier>& qualifiers, bool local_only);

}  // namespace sandbox::cimxml
