// Objects that an answer gives in another form than the library's operations hand out.
#pragma once

#include "owners.h"

namespace cli {

// The objects without path (VALUE.OBJECT) and with a local path (VALUE.OBJECTWITHLOCALPATH), taken
// out of `result`, as objects with as much of a path as is known. Null when there are none.
ObjectWithPathOwner taken_objects(IReturnValue& result);

}  // namespace cli
