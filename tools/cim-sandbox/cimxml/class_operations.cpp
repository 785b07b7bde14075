// GetClass, EnumerateClasses and EnumerateClassNames.
#include "cimxml/class_operations.h"

#include "cimxml/objects.h"
#include "cimxml/parameters.h"

namespace sandbox::cimxml {
namespace {

// The flags of classes, with their defaults (DSP0200, section 5.3.2).
Wishes class_wishes(Parameters& parameters) {
  Wishes wishes;
  wishes.local_only = parameters.boolean("LocalOnly", true);
  wishes.qualifiers = parameters.boolean("IncludeQualifiers", true);
  wishes.class_origin = parameters.boolean("IncludeClassOrigin", false);
  return wishes;
}

}  // namespace

Outcome<Returns> get_class(const OperationCall& call, Markup& out) {
  Parameters parameters(call.call, {"ClassName", "LocalOnly", "IncludeQualifiers",
                                    "IncludeClassOrigin", "PropertyList"});
  const std::string class_name = parameters.required_class_name("ClassName");
  Wishes wishes = class_wishes(parameters);
  wishes.properties = parameters.texts("PropertyList");
  if (parameters.problem()) return *parameters.problem();
  const auto found = call.manager.get_class(call.name_space, class_name);
  if (!found) return found.error();
  write_class(out, **found, wishes);
  return Returns::Value;
}

Outcome<Returns> enumerate_classes(const OperationCall& call, Markup& out) {
  Parameters parameters(call.call, {"ClassName", "DeepInheritance", "LocalOnly",
                                    "IncludeQualifiers", "IncludeClassOrigin"});
  const auto class_name = parameters.class_name("ClassName");
  const bool deep = parameters.boolean("DeepInheritance", false);
  const Wishes wishes = class_wishes(parameters);
  if (parameters.problem()) return *parameters.problem();
  const auto found = call.manager.enumerate_classes(call.name_space, class_name, deep);
  if (!found) return found.error();
  for (const Class* each : *found) write_class(out, *each, wishes);
  return Returns::Value;
}

Outcome<Returns> enumerate_class_names(const OperationCall& call, Markup& out) {
  Parameters parameters(call.call, {"ClassName", "DeepInheritance"});
  const auto class_name = parameters.class_name("ClassName");
  const bool deep = parameters.boolean("DeepInheritance", false);
  if (parameters.problem()) return *parameters.problem();
  const auto found = call.manager.enumerate_classes(call.name_space, class_name, deep);
  if (!found) return found.error();
  for (const Class* each : *found) out.empty("CLASSNAME", {{"NAME", each->name}});
  return Returns::Value;
}

}  // namespace sandbox::cimxml
