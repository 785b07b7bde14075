// Reads the names of classes, instances and namespaces out of a request.
#pragma once

#include <string>

#include "cimxml/element.h"
#include "model/object_path.h"
#include "model/outcome.h"

namespace sandbox::cimxml {

// LOCALNAMESPACEPATH as "root/cimv2", whether it holds one NAMESPACE or several.
Outcome<std::string> read_name_space(const Element& path);

// INSTANCENAME, LOCALINSTANCEPATH, INSTANCEPATH, CLASSNAME, LOCALCLASSPATH or CLASSPATH.
// Key values stay text; a path without a namespace gets none.
Outcome<ObjectPath> read_object_path(const Element& element);

// VALUE.REFERENCE
Outcome<ObjectPath> read_reference(const Element& element);

}  // namespace sandbox::cimxml
