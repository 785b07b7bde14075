// CIM-XML of qualifiers.
#include "cimxml/qualifiers.h"

#include "cimxml/objects.h"

namespace sandbox::cimxml {

// Only what differs from the document type's defaults is said.
void write_qualifiers(Markup& out, const std::vector<Qualifier>& qualifiers, bool local_only) {
  for (const Qualifier& qualifier : qualifiers) {
    if (local_only && qualifier.propagated) continue;
    out.open("QUALIFIER", {{"NAME", qualifier.name},
                           {"TYPE", name_of(qualifier.type.type)},
                           when(qualifier.propagated, "PROPAGATED", "true"),
                           when(!qualifier.flavor.overridable, "OVERRIDABLE", "false"),
                           when(!qualifier.flavor.to_subclass, "TOSUBCLASS", "false"),
                           when(qualifier.flavor.to_instance, "TOINSTANCE", "true"),
                           when(qualifier.flavor.translatable, "TRANSLATABLE", "true")});
    write_value(out, qualifier.value, qualifier.type.type);
    out.close("QUALIFIER");
  }
}

}  // namespace sandbox::cimxml
