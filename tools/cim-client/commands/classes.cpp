// The commands that read classes.
#include "command.h"
#include "commands/operands.h"
#include "exit_status.h"

namespace cli {
namespace {

using Handle = struct client_Configuration*;

// The library lists classes over CIM-XML alone.
void require_class_lists(Context& context) {
  if (context.session().is_local())
    throw usage_failure("the local broker lists no classes; --backend xml asks over CIM-XML");
}

void get_class(Context& context, const Arguments& arguments) {
  const ObjectUri path = class_path_operand(context, arguments.words[0]);
  const ClassNameOwner name = class_name_over_http(path.class_name);
  const ClassOwner definition = context.session().ask_for_class([&](Handle handle, Error** error) {
    return CIM_GetClass(handle, name.get(), flag(arguments.local_only),
                        flag(!arguments.no_qualifiers), flag(arguments.class_origin), nullptr,
                        error);
  });
  if (definition == nullptr)
    throw Failure(ExitStatus::NoAnswer, "the object manager answered without a class");
  context.output().class_definition(*definition);
}

void enumerate_classes(Context& context, const Arguments& arguments) {
  require_class_lists(context);
  const ClassNameOwner name = class_operand(context, arguments.words[0]);
  const ClassOwner list = context.session().ask<ClassOwner>([&](Handle handle, Error** error) {
    return CIM_EnumerateClasses(handle, name.get(), flag(arguments.deep),
                                flag(arguments.local_only), flag(!arguments.no_qualifiers),
                                flag(arguments.class_origin), error);
  });
  context.output().classes(list.get());
  if (list == nullptr) context.note_nothing_found("classes");
}

void enumerate_class_names(Context& context, const Arguments& arguments) {
  require_class_lists(context);
  const ClassNameOwner name = class_operand(context, arguments.words[0]);
  const ClassNameOwner list =
      context.session().ask<ClassNameOwner>([&](Handle handle, Error** error) {
        return EnumerateClassNames(handle, name.get(), flag(arguments.deep), error);
      });
  context.output().class_names(list.get());
  if (list == nullptr) context.note_nothing_found("classes");
}

}  // namespace

std::vector<Command> class_commands() {
  const Operand optional_class = {
      "CLASS", "only subclasses of this class; without it, root classes", Operand::Count::Optional};
  return {
      {"get-class",
       "gc",
       "Show the definition of a class",
       {{"CLASS", "name of the class"}},
       {Option::LocalOnly, Option::NoQualifiers, Option::ClassOrigin},
       "cim-client get-class CIM_Fan\n"
       "cim-client gc CIM_Fan --local-only --output json",
       get_class},
      {"enumerate-classes",
       "ec",
       "Show the definitions of subclasses",
       {optional_class},
       {Option::Deep, Option::LocalOnly, Option::NoQualifiers, Option::ClassOrigin},
       "cim-client enumerate-classes CIM_LogicalDevice\n"
       "cim-client ec --deep --no-qualifiers",
       enumerate_classes},
      {"enumerate-class-names",
       "ecn",
       "List the names of subclasses",
       {optional_class},
       {Option::Deep},
       "cim-client enumerate-class-names --deep\n"
       "cim-client ecn CIM_LogicalDevice",
       enumerate_class_names},
  };
}

}  // namespace cli
