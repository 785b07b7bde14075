// Enumerations as lists, beyond what cim_client.h declares.
#pragma once

#include "cim_client.h"

namespace cim::broker {

// The paths of an enumeration as a list of instance names, stored when it is not empty.
// Returns 0, or -1 when an element cannot be read: nothing is stored.
int collect_names(void* enumeration, InstanceName** result);

}  // namespace cim::broker
