// How the results of association operations and queries are written.
#pragma once

#include <vector>

#include "cimxml/markup.h"
#include "cimxml/objects.h"
#include "model/object_manager.h"

namespace sandbox::cimxml {

// VALUE.OBJECTWITHPATH with INSTANCEPATH and INSTANCE for each
inline void write_objects_with_path(Markup& out, const std::vector<FoundInstance>& found,
                                    const View& view) {
  for (const FoundInstance& each : found) {
    out.open("VALUE.OBJECTWITHPATH");
    write_instance_path(out, each.path);
    write_instance(out, *each.instance, view);
    out.close("VALUE.OBJECTWITHPATH");
  }
}

// OBJECTPATH with INSTANCEPATH for each
inline void write_object_paths(Markup& out, const std::vector<FoundInstance>& found) {
  for (const FoundInstance& each : found) {
    out.open("OBJECTPATH");
    write_instance_path(out, each.path);
    out.close("OBJECTPATH");
  }
}

}  // namespace sandbox::cimxml
