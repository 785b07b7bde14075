// METHODCALL.
#include "cimxml/method_operation.h"

#include "cimxml/instances_in.h"
#include "cimxml/names_in.h"
#include "cimxml/objects.h"

namespace sandbox::cimxml {
namespace {

Outcome<ObjectPath> target_of(const Element& call) {
  for (const char* name : {"LOCALINSTANCEPATH", "LOCALCLASSPATH"}) {
    if (const Element* path = call.child(name)) return read_object_path(*path);
  }
  return Error{ErrorCode::InvalidParameter, "METHODCALL names no object"};
}

// Null when class or method is unknown, which the invocation will find out itself.
const Method* method_of(const ObjectManager& manager, const ObjectPath& target,
                        std::string_view name) {
  const auto of_class = manager.get_class(target.name_space, target.class_name);
  return of_class ? (*of_class)->find_method(name) : nullptr;
}

Outcome<std::vector<GivenValue>> read_arguments(const Element& call, const InstanceInput& input,
                                                const Method* method) {
  std::vector<GivenValue> arguments;
  for (const Element& child : call.children) {
    if (child.name != "PARAMVALUE") continue;
    Outcome<GivenValue> argument = input.read_argument(child, method);
    if (!argument) return argument.error();
    arguments.push_back(std::move(*argument));
  }
  return arguments;
}

}  // namespace

Outcome<Done> invoke_method(ObjectManager& manager, const Element& call, Markup& out) {
  const Outcome<ObjectPath> target = target_of(call);
  if (!target) return target.error();
  const std::string& name = *call.attribute("NAME");
  const InstanceInput input(manager, target->name_space);
  const auto arguments = read_arguments(call, input, method_of(manager, *target, name));
  if (!arguments) return arguments.error();
  const Outcome<MethodResult> result = manager.invoke_method(*target, name, *arguments);
  if (!result) return result.error();
  if (!result->return_value.null()) {
    const Type type = result->method->type.type;
    out.open("RETURNVALUE", {{"PARAMTYPE", name_of(type)}});
    write_value(out, result->return_value, type);
    out.close("RETURNVALUE");
  }
  for (const OutArgument& argument : result->out) {
    const Type type = argument.parameter->type.type;
    out.open("PARAMVALUE", {{"NAME", argument.parameter->name}, {"PARAMTYPE", name_of(type)}});
    write_value(out, argument.value, type);
    out.close("PARAMVALUE");
  }
  return Done{};
}

}  // namespace sandbox::cimxml
