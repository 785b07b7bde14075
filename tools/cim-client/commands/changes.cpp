// The commands that create, change and delete instances.
#include <algorithm>
#include <iostream>

#include "command.h"
#include "commands/operands.h"
#include "embedded_lists.h"
#include "exit_status.h"
#include "modification.h"
#include "records.h"
#include "typed_values.h"
#include "utf8.h"
#include "wire.h"

namespace cli {
namespace {

using Handle = struct client_Configuration*;

// The instance that the assignments describe, checked against its class.
InstanceOwner typed_instance(Context& context, const std::string& class_name,
                             const std::vector<std::string>& texts) {
  std::vector<Assignment> assignments;
  assignments.reserve(texts.size());
  for (const std::string& text : texts) assignments.push_back(parse_assignment(text));
  const ClassSource classes = class_source(context);
  return make_instance(*classes(class_name), assignments, classes);
}

void create_instance(Context& context, const Arguments& arguments) {
  const ObjectUri path = class_path_operand(context, arguments.words[0]);
  const InstanceOwner instance = typed_instance(context, path.class_name, arguments.rest);
  context.session().make_sendable(instance.get());
  const EmbeddedLists embedded(instance.get());
  const InstanceNameOwner name =
      context.session().ask<InstanceNameOwner>([&](Handle handle, Error** error) {
        return CIM_CreateInstance(handle, instance.get(), error);
      });
  if (name == nullptr)
    throw Failure(ExitStatus::NoAnswer, "the object manager did not name the new instance");
  context.output().created(*name);
}

bool is_among(const std::vector<TypedView>& views, const std::string& name) {
  return std::any_of(views.begin(), views.end(),
                     [&name](const TypedView& view) { return same_name(view.name, name); });
}

// Says which properties the request leaves out that `changes` does not set anyway.
void say_left_out(const std::vector<std::string>& names, const Instance& changes) {
  for (const std::string& name : names) {
    if (is_among(properties_of(changes), name)) continue;
    std::cerr << "cim-client: property " << printable(name)
              << " is not sent: it holds an embedded instance with arrays, which cannot be read\n";
  }
}

// The instance as it is, with the changes. Everything is sent, because object managers may reset
// properties that a modification does not mention.
InstanceOwner changed_instance(Context& context, InstanceName& name, Instance& changes) {
  InstanceOwner instance = context.session().ask<InstanceOwner>([&](Handle handle, Error** error) {
    return GetInstance(handle, &name, 0, 0, 0, nullptr, error);
  });
  if (instance == nullptr)
    throw Failure(ExitStatus::NoAnswer, "the object manager answered without an instance");
  say_left_out(make_sendable(*instance), changes);
  apply(*instance, changes);
  return instance;
}

void modify_instance(Context& context, const Arguments& arguments) {
  const ObjectUri path = instance_operand(context, arguments.words[0]);
  if (arguments.rest.empty()) throw usage_failure("no NAME=VALUE says what to change");
  InstanceOwner changes = typed_instance(context, path.class_name, arguments.rest);
  const NamedInstanceOwner modified(new_record<NamedInstance>());
  modified->instanceName = instance_name_to_send(context.session(), path).release();
  modified->instance = arguments.partial
                           ? changes.release()
                           : changed_instance(context, *modified->instanceName, *changes).release();
  context.session().make_sendable(modified->instance);
  const EmbeddedLists embedded(modified->instance);
  context.session().tell([&](Handle handle, Error** error) {
    return ModifyInstance(handle, modified.get(), 0, nullptr, error);
  });
}

void delete_instance(Context& context, const Arguments& arguments) {
  const ObjectUri path = instance_operand(context, arguments.words[0]);
  const InstanceNameOwner name = instance_name_to_send(context.session(), path);
  context.session().tell(
      [&](Handle handle, Error** error) { return DeleteInstance(handle, name.get(), error); });
}

}  // namespace

std::vector<Command> change_commands() {
  const Operand instance = {"INSTANCE", "path of the instance, as 'ein' lists it"};
  const Operand values = {"NAME=VALUE",
                          "a property; arrays as [1,2] or repeated, null for no value, a reference "
                          "as a path, an embedded instance as CLASS{NAME=VALUE}",
                          Operand::Count::Any};
  return {
      {"create-instance",
       "ci",
       "Create an instance",
       {{"CLASS", "its class"}, values},
       {},
       "cim-client create-instance CIM_Fan DeviceID=fan9 DesiredSpeed=2000\n"
       "cim-client ci CIM_Fan DeviceID=fan9 'OperationalStatus=[2,10]' InstallDate=null",
       create_instance},
      {"modify-instance",
       "mi",
       "Change properties of an instance",
       {instance, values},
       {Option::Partial},
       "cim-client modify-instance 'CIM_Fan.DeviceID=\"fan1\"' DesiredSpeed=3000\n"
       "cim-client mi 'CIM_Fan.DeviceID=\"fan1\"' Caption=null",
       modify_instance},
      {"delete-instance",
       "di",
       "Delete an instance",
       {instance},
       {},
       "cim-client delete-instance 'CIM_Fan.DeviceID=\"fan9\"'",
       delete_instance},
  };
}

}  // namespace cli
