// The commands that read instances.
#include "command.h"
#include "commands/operands.h"
#include "exit_status.h"

namespace cli {
namespace {

using Handle = struct client_Configuration*;

void enumerate_instances(Context& context, const Arguments& arguments) {
  const ClassNameOwner name = class_operand(context, arguments.words[0]);
  const NamedInstanceOwner list =
      context.session().ask<NamedInstanceOwner>([&](Handle handle, Error** error) {
        return EnumerateInstances(handle, name.get(), flag(arguments.local_only),
                                  flag(!arguments.shallow), flag(arguments.qualifiers),
                                  flag(arguments.class_origin), nullptr, error);
      });
  context.output().instances(list.get());
  if (list == nullptr) context.note_nothing_found("instances");
}

void enumerate_instance_names(Context& context, const Arguments& arguments) {
  const ClassNameOwner name = class_operand(context, arguments.words[0]);
  const InstanceNameOwner list =
      context.session().ask<InstanceNameOwner>([&](Handle handle, Error** error) {
        return EnumerateInstanceNames(handle, name.get(), error);
      });
  context.output().paths(paths_of(list.get()));
  if (list == nullptr) context.note_nothing_found("instances");
}

void get_instance(Context& context, const Arguments& arguments) {
  const ObjectUri path = instance_operand(context, arguments.words[0]);
  const InstanceNameOwner name = instance_name_to_send(context.session(), path);
  const InstanceOwner instance = context.session().ask<InstanceOwner>([&](Handle handle,
                                                                          Error** error) {
    return GetInstance(handle, name.get(), flag(arguments.local_only), flag(arguments.qualifiers),
                       flag(arguments.class_origin), nullptr, error);
  });
  if (instance == nullptr)
    throw Failure(ExitStatus::NoAnswer, "the object manager answered without an instance");
  context.output().instance(*make_instance_name(path), *instance);
}

}  // namespace

std::vector<Command> instance_commands() {
  const Operand class_operand = {"CLASS", "name of the class"};
  return {
      {"enumerate-instances",
       "ei",
       "Show the instances of a class",
       {class_operand},
       {Option::Properties, Option::LocalOnly, Option::Shallow, Option::Qualifiers,
        Option::ClassOrigin},
       "cim-client enumerate-instances CIM_Fan\n"
       "cim-client ei CIM_Fan --properties DeviceID,DesiredSpeed\n"
       "cim-client ei CIM_Fan --output json",
       enumerate_instances},
      {"enumerate-instance-names",
       "ein",
       "List the paths of the instances of a class",
       {class_operand},
       {},
       "cim-client enumerate-instance-names CIM_Fan\n"
       "cim-client ein root/interop:CIM_Namespace",
       enumerate_instance_names},
      {"get-instance",
       "gi",
       "Show one instance",
       {{"INSTANCE", "path of the instance, as 'ein' lists it"}},
       {Option::Properties, Option::LocalOnly, Option::Qualifiers, Option::ClassOrigin},
       "cim-client get-instance 'CIM_Fan.DeviceID=\"fan1\"'\n"
       "cim-client gi 'CIM_Fan.DeviceID=\"fan1\"' --properties DesiredSpeed",
       get_instance},
  };
}

}  // namespace cli
