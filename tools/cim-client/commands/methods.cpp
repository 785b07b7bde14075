// The command that invokes methods.
#include "command.h"
#include "commands/operands.h"
#include "document.h"
#include "embedded_lists.h"
#include "escape.h"
#include "exit_status.h"
#include "records.h"
#include "typed_values.h"
#include "utf8.h"
#include "wire.h"

namespace cli {
namespace {

using Handle = struct client_Configuration*;

// What the library returns for a method that the local broker was not asked for, among others.
constexpr int not_called = 2;

const Method& find_method(const Class& definition, const std::string& name) {
  std::string known;
  for (const Method* method = definition.methods; method != nullptr; method = method->next) {
    const std::string_view method_name = text_or_empty(method->name);
    if (same_name(method_name, name)) return *method;
    known += (known.empty() ? "" : ", ") + printable(method_name);
  }
  throw usage_failure(printable(text_or_empty(definition.name)) + " has no method " +
                      printable(name) + "; it has: " + (known.empty() ? "none" : known));
}

// Shows what the document of an answer says of the method; the library's own operation keeps the
// return value as a number alone.
void show_result(Context& context, const CIM& document) {
  const MethodResponse* response = method_response_of(document);
  if (response == nullptr)
    throw Failure(ExitStatus::NoAnswer, "the object manager answered as if to an operation");
  if (response->error != nullptr)
    throw cim_failure(response->error->code, response->error->description);
  context.output().method_result({response->returnValue, response->paramValues});
}

// On the local broker's route there is no document.
void show_local_result(Context& context, int value, const ParamValue* out_parameters) {
  const std::unique_ptr<ReturnValue, Release<Free_ReturnValue>> result(new_record<ReturnValue>());
  result->paramType = new_text("sint32");
  AddToValueList(&result->value, std::to_string(value).c_str());
  context.output().method_result({result.get(), out_parameters});
}

void invoke_on_instance(Context& context, const ObjectUri& path, const std::string& method,
                        ParamValue* parameters) {
  const InstanceNameOwner name = instance_name_to_send(context.session(), path);
  ParamValue* out = nullptr;
  int value = -1;
  context.session().tell([&](Handle handle, Error** error) {
    value = invokeMethod(handle, name.get(), method.c_str(), parameters, &out, error);
    return 0;
  });
  const ParamValueOwner out_parameters(out);
  if (context.session().is_local()) {
    if (value == not_called) context.session().require_local_broker();
    show_local_result(context, value, out_parameters.get());
    return;
  }
  show_result(context, *context.session().answer_document());
}

void invoke_on_class(Context& context, const ObjectUri& path, const std::string& method,
                     ParamValue* parameters) {
  if (context.session().is_local())
    throw usage_failure("the local broker invokes methods of instances; name an instance");
  const std::string name_space = escaped(context.session().target().name_space, "the namespace");
  const std::string class_name = escaped(path.class_name, "the class name");
  show_result(context, *context.session().exchange(
                           class_method_request(name_space, class_name, method, parameters)));
}

void invoke(Context& context, const Arguments& arguments) {
  const ObjectUri path = object_path_operand(context, arguments.words[0]);
  const ClassSource classes = class_source(context);
  const ClassOwner definition = classes(path.class_name);
  const Method& method = find_method(*definition, arguments.words[1]);
  std::vector<Assignment> assignments;
  assignments.reserve(arguments.rest.size());
  for (const std::string& text : arguments.rest) assignments.push_back(parse_assignment(text));
  const ParamValueOwner parameters = make_parameters(method, assignments, classes);
  context.session().make_sendable(parameters.get());
  const EmbeddedLists embedded(parameters.get());
  const std::string name =
      context.session().sendable(text_or_empty(method.name), "the method's name");
  if (path.is_instance)
    invoke_on_instance(context, path, name, parameters.get());
  else
    invoke_on_class(context, path, name, parameters.get());
}

}  // namespace

std::vector<Command> method_commands() {
  return {
      {"invoke",
       "cm",
       "Invoke a method of an instance or a class",
       {{"OBJECT", "path of an instance, or name of a class for a method of the class itself"},
        {"METHOD", "name of the method"},
        {"NAME=VALUE", "an input parameter, typed as for 'create-instance'", Operand::Count::Any}},
       {},
       "cim-client invoke 'CIM_Fan.DeviceID=\"fan1\"' SetSpeed Speed=3000\n"
       "cim-client cm 'CIM_Fan.DeviceID=\"fan1\"' Stop",
       invoke},
  };
}

}  // namespace cli
