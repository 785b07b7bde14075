// Instance names and paths made from object paths of the broker.
#pragma once

#include "cim_client.h"
#include "clientapi/interface.h"

namespace cim::broker {

// The class name of a path as a record of its own; null when it has none or memory runs out.
ClassName* class_name_of(CIMCObjectPath* path);

// The namespace of a path as "root" and the end of the text that begins with "interop" or else
// "cimv2", whatever its segments: applications compare these two.  Null when memory runs out.
NamespacePath* namespace_path_of(CIMCObjectPath* path);

// Fills an instance name from a path.  False when the class name is missing or memory runs
// out.
bool fill_name(InstanceName& name, CIMCObjectPath* path);

// A new instance name; null as above.
InstanceName* make_name(CIMCObjectPath* path);

}  // namespace cim::broker
