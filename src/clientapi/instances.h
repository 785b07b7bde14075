// Instances and classes of the broker as records.
#pragma once

#include "cim_client.h"
#include "clientapi/interface.h"

namespace cim::broker {

// The elements of an array as a list of values: numbers and strings, others give none.  False
// when memory runs out; what was made is then released.
bool make_values(Value** values, CIMCType element, CIMCArray* array);

// A new record of an instance; its class name is that of `path`.  Null when that is missing or
// memory runs out.
Instance* make_instance_record(CIMCInstance* instance, CIMCObjectPath* path);

}  // namespace cim::broker
