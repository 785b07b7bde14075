// GetInstance, the enumerations of instances, and their creation, modification and deletion.
#include "cimxml/instance_operations.h"

#include "cimxml/instances_in.h"
#include "cimxml/names_in.h"
#include "cimxml/objects.h"
#include "cimxml/parameters.h"

namespace sandbox::cimxml {
namespace {

// The flags of instances, with their defaults (DSP0200, section 5.3.2).
Wishes instance_wishes(Parameters& parameters) {
  Wishes wishes;
  wishes.local_only = parameters.boolean("LocalOnly", true);
  wishes.qualifiers = parameters.boolean("IncludeQualifiers", false);
  wishes.class_origin = parameters.boolean("IncludeClassOrigin", false);
  wishes.properties = parameters.texts("PropertyList");
  return wishes;
}

}  // namespace

Outcome<Returns> get_instance(const OperationCall& call, Markup& out) {
  Parameters parameters(call.call, {"InstanceName", "LocalOnly", "IncludeQualifiers",
                                    "IncludeClassOrigin", "PropertyList"});
  const ObjectPath path = parameters.required_object("InstanceName", call.name_space);
  const View view(instance_wishes(parameters), nullptr);
  if (parameters.problem()) return *parameters.problem();
  const auto found = call.manager.get_instance(path);
  if (!found) return found.error();
  write_instance(out, **found, view);
  return Returns::Value;
}

Outcome<Returns> enumerate_instances(const OperationCall& call, Markup& out) {
  Parameters parameters(call.call, {"ClassName", "LocalOnly", "DeepInheritance",
                                    "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"});
  const std::string class_name = parameters.required_class_name("ClassName");
  Wishes wishes = instance_wishes(parameters);
  wishes.deep = parameters.boolean("DeepInheritance", true);
  if (parameters.problem()) return *parameters.problem();
  const auto found = call.manager.enumerate_instances(call.name_space, class_name);
  if (!found) return found.error();
  const View view(std::move(wishes), *call.manager.get_class(call.name_space, class_name));
  for (const Instance* instance : *found) {
    out.open("VALUE.NAMEDINSTANCE");
    write_instance_name(out, path_of(*instance, call.name_space));
    write_instance(out, *instance, view);
    out.close("VALUE.NAMEDINSTANCE");
  }
  return Returns::Value;
}

// Devices give the names of keys in lower case here, and only here.
Outcome<Returns> enumerate_instance_names(const OperationCall& call, Markup& out) {
  Parameters parameters(call.call, {"ClassName"});
  const std::string class_name = parameters.required_class_name("ClassName");
  if (parameters.problem()) return *parameters.problem();
  const auto found = call.manager.enumerate_instances(call.name_space, class_name);
  if (!found) return found.error();
  for (const Instance* instance : *found) {
    write_instance_name(out, path_of(*instance, call.name_space), KeyCase::Lower);
  }
  return Returns::Value;
}

Outcome<Returns> create_instance(const OperationCall& call, Markup& out) {
  Parameters parameters(call.call, {"NewInstance"});
  const Element* given = parameters.element("NewInstance");
  if (!given) parameters.fail("parameter \"NewInstance\" is missing");
  if (parameters.problem()) return *parameters.problem();
  const auto instance = InstanceInput(call.manager, call.name_space).read_instance(*given);
  if (!instance) return instance.error();
  const auto path = call.manager.create_instance(call.name_space, *instance);
  if (!path) return path.error();
  write_instance_name(out, *path);
  return Returns::Value;
}

Outcome<Returns> modify_instance(const OperationCall& call, Markup&) {
  Parameters parameters(call.call, {"ModifiedInstance", "IncludeQualifiers", "PropertyList"});
  parameters.boolean("IncludeQualifiers", true);  // accepted: instances have no qualifiers here
  const auto property_list = parameters.texts("PropertyList");
  const Element* named = parameters.element("ModifiedInstance");
  const Element* name = named ? named->child("INSTANCENAME") : nullptr;
  const Element* given = named ? named->child("INSTANCE") : nullptr;
  if (!name || !given) {
    parameters.fail("parameter \"ModifiedInstance\" must hold INSTANCENAME and INSTANCE");
  }
  if (parameters.problem()) return *parameters.problem();
  Outcome<ObjectPath> path = read_object_path(*name);
  if (!path) return path.error();
  path->name_space = call.name_space;
  const auto instance = InstanceInput(call.manager, call.name_space).read_instance(*given);
  if (!instance) return instance.error();
  const auto done = call.manager.modify_instance(*path, *instance, property_list);
  if (!done) return done.error();
  return Returns::Nothing;
}

Outcome<Returns> delete_instance(const OperationCall& call, Markup&) {
  Parameters parameters(call.call, {"InstanceName"});
  const ObjectPath path = parameters.required_object("InstanceName", call.name_space);
  if (parameters.problem()) return *parameters.problem();
  const auto done = call.manager.delete_instance(path);
  if (!done) return done.error();
  return Returns::Nothing;
}

}  // namespace sandbox::cimxml
