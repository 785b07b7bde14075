// Associators, References and their names.
#include "cimxml/association_operations.h"

#include "cimxml/found_instances.h"
#include "cimxml/parameters.h"

namespace sandbox::cimxml {
namespace {

// Devices refuse a class as the object, and clients name the parameter ClassName then.
Outcome<ObjectPath> source_object(Parameters& parameters, const std::string& name_space) {
  const Element* object = parameters.element("ObjectName");
  const bool is_class = parameters.element("ClassName") || (object && object->name == "CLASSNAME");
  if (is_class) {
    return Error{ErrorCode::Failed, "associations can be asked of an instance, not of a class"};
  }
  ObjectPath path = parameters.required_object("ObjectName", name_space);
  if (parameters.problem()) return *parameters.problem();
  return path;
}

AssociatorFilter associator_filter(Parameters& parameters) {
  return {parameters.class_name("AssocClass"), parameters.class_name("ResultClass"),
          parameters.text("Role"), parameters.text("ResultRole")};
}

ReferenceFilter reference_filter(Parameters& parameters) {
  return {parameters.class_name("ResultClass"), parameters.text("Role")};
}

Wishes object_wishes(Parameters& parameters) {
  Wishes wishes;
  wishes.qualifiers = parameters.boolean("IncludeQualifiers", false);
  wishes.class_origin = parameters.boolean("IncludeClassOrigin", false);
  wishes.properties = parameters.texts("PropertyList");
  return wishes;
}

Outcome<std::vector<FoundInstance>> find_associators(const OperationCall& call,
                                                     Parameters& parameters) {
  const AssociatorFilter filter = associator_filter(parameters);
  const Outcome<ObjectPath> source = source_object(parameters, call.name_space);
  if (!source) return source.error();
  return call.manager.associators(*source, filter);
}

Outcome<std::vector<FoundInstance>> find_references(const OperationCall& call,
                                                    Parameters& parameters) {
  const ReferenceFilter filter = reference_filter(parameters);
  const Outcome<ObjectPath> source = source_object(parameters, call.name_space);
  if (!source) return source.error();
  return call.manager.references(*source, filter);
}

}  // namespace

Outcome<Returns> associators(const OperationCall& call, Markup& out) {
  Parameters parameters(
      call.call, {"ObjectName", "ClassName", "AssocClass", "ResultClass", "Role", "ResultRole",
                  "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"});
  const View view(object_wishes(parameters), nullptr);
  const auto found = find_associators(call, parameters);
  if (!found) return found.error();
  write_objects_with_path(out, *found, view);
  return Returns::Value;
}

Outcome<Returns> associator_names(const OperationCall& call, Markup& out) {
  Parameters parameters(
      call.call, {"ObjectName", "ClassName", "AssocClass", "ResultClass", "Role", "ResultRole"});
  const auto found = find_associators(call, parameters);
  if (!found) return found.error();
  write_object_paths(out, *found);
  return Returns::Value;
}

Outcome<Returns> references(const OperationCall& call, Markup& out) {
  Parameters parameters(call.call, {"ObjectName", "ClassName", "ResultClass", "Role",
                                    "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"});
  const View view(object_wishes(parameters), nullptr);
  const auto found = find_references(call, parameters);
  if (!found) return found.error();
  write_objects_with_path(out, *found, view);
  return Returns::Value;
}

Outcome<Returns> reference_names(const OperationCall& call, Markup& out) {
  Parameters parameters(call.call, {"ObjectName", "ClassName", "ResultClass", "Role"});
  const auto found = find_references(call, parameters);
  if (!found) return found.error();
  write_object_paths(out, *found);
  return Returns::Value;
}

}  // namespace sandbox::cimxml
