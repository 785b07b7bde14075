// Class definitions in MOF, the notation in which people write them.
#pragma once

#include <ostream>

#include "cim_client.h"

namespace cli {

// Writes a class with its qualifiers, properties and methods. The library keeps the parameters of a
// method by kind, so their order within a method is by kind.
void write_mof(std::ostream& out, const Class& definition);

}  // namespace cli
