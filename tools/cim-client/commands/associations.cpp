// The commands that follow associations, and the query.
#include "answer_objects.h"
#include "command.h"
#include "commands/operands.h"
#include "document.h"
#include "escape.h"
#include "exit_status.h"

namespace cli {
namespace {

using Handle = struct client_Configuration*;

// An option that names a role; null without it.
class RoleText {
 public:
  RoleText(const Session& session, const std::string& text)
      : text_(session.sendable(text, "the role")) {}
  const char* get() const { return text_.empty() ? nullptr : text_.c_str(); }

 private:
  std::string text_;
};

// What the four operations are asked with.
struct Filters {
  Filters(Context& context, const Arguments& arguments)
      : object(object_operand(context, arguments.words[0])),
        assoc_class(optional_class(context.session(), arguments.assoc_class)),
        result_class(optional_class(context.session(), arguments.result_class)),
        role(context.session(), arguments.role),
        result_role(context.session(), arguments.result_role) {}

  static ClassNameOwner optional_class(const Session& session, const std::string& name) {
    return name.empty() ? nullptr : class_name_to_send(session, name);
  }

  ObjectNameOwner object;
  ClassNameOwner assoc_class;
  ClassNameOwner result_class;
  RoleText role;
  RoleText result_role;
};

void show_objects(Context& context, const ObjectWithPath* list, const char* what) {
  context.output().objects(list);
  if (list == nullptr) context.note_nothing_found(what);
}

void show_paths(Context& context, const std::vector<PathView>& list, const char* what) {
  context.output().paths(list);
  if (list.empty()) context.note_nothing_found(what);
}

void associators(Context& context, const Arguments& arguments) {
  const Filters filters(context, arguments);
  const ObjectWithPathOwner list = context.session().ask<ObjectWithPathOwner>([&](Handle handle,
                                                                                  Error** error) {
    return Associators(handle, filters.object.get(), filters.assoc_class.get(),
                       filters.result_class.get(), filters.role.get(), filters.result_role.get(),
                       flag(arguments.qualifiers), flag(arguments.class_origin), nullptr, error);
  });
  show_objects(context, list.get(), "associated objects");
}

void associator_names(Context& context, const Arguments& arguments) {
  const Filters filters(context, arguments);
  const ObjectPathOwner list =
      context.session().ask<ObjectPathOwner>([&](Handle handle, Error** error) {
        return AssociatorNames(handle, filters.object.get(), filters.assoc_class.get(),
                               filters.result_class.get(), filters.role.get(),
                               filters.result_role.get(), error);
      });
  show_paths(context, paths_of(list.get()), "associated objects");
}

void references(Context& context, const Arguments& arguments) {
  const Filters filters(context, arguments);
  const ObjectWithPathOwner list = context.session().ask<ObjectWithPathOwner>([&](Handle handle,
                                                                                  Error** error) {
    return References(handle, filters.object.get(), filters.result_class.get(), filters.role.get(),
                      flag(arguments.qualifiers), flag(arguments.class_origin), nullptr, error);
  });
  show_objects(context, list.get(), "associations");
}

// The operation knows an answer made of instance names; object managers of the field answer with
// object paths, which are then taken from the answer itself.
void reference_names(Context& context, const Arguments& arguments) {
  const Filters filters(context, arguments);
  const Finding<ObjectPathOwner> found =
      context.session().ask_openly<ObjectPathOwner>([&](Handle handle, Error** error) {
        return ReferenceNames(handle, filters.object.get(), filters.result_class.get(),
                              filters.role.get(), error);
      });
  std::vector<PathView> paths = paths_of(found.records.get());
  if (found.document != nullptr) {
    paths = paths_of(result_of(*found.document)->objectPath);
    if (paths.empty())
      throw Failure(ExitStatus::NoAnswer, "the object manager answered without names");
  }
  show_paths(context, paths, "associations");
}

// Shows objects that came without paths, or with local ones, as other object managers send them.
void show_pathless(Context& context, IReturnValue& result) {
  const ObjectWithPathOwner list = taken_objects(result);
  if (list == nullptr)
    throw Failure(ExitStatus::NoAnswer, "the object manager answered without objects");
  show_objects(context, list.get(), "objects");
}

void query(Context& context, const Arguments& arguments) {
  const std::string language = context.session().sendable(arguments.language, "the query language");
  const std::string text = context.session().sendable(arguments.words[0], "the query");
  const Finding<ObjectWithPathOwner> found =
      context.session().ask_openly<ObjectWithPathOwner>([&](Handle handle, Error** error) {
        return ExecQuery(handle, language.c_str(), text.c_str(), error);
      });
  if (found.document != nullptr)
    show_pathless(context, *result_of(*found.document));
  else
    show_objects(context, found.records.get(), "objects");
}

}  // namespace

std::vector<Command> association_commands() {
  const Operand object = {"OBJECT", "path of an instance, or name of a class"};
  return {
      {"associators",
       "ai",
       "Show the objects associated with an object",
       {object},
       {Option::AssocClass, Option::ResultClass, Option::Role, Option::ResultRole,
        Option::Properties, Option::Qualifiers, Option::ClassOrigin},
       "cim-client associators 'CIM_Fan.DeviceID=\"fan1\"'\n"
       "cim-client ai 'CIM_Fan.DeviceID=\"fan1\"' --result-class CIM_ComputerSystem",
       associators},
      {"associator-names",
       "ain",
       "List the paths of the objects associated with an object",
       {object},
       {Option::AssocClass, Option::ResultClass, Option::Role, Option::ResultRole},
       "cim-client associator-names 'CIM_Fan.DeviceID=\"fan1\"'\n"
       "cim-client ain 'CIM_Fan.DeviceID=\"fan1\"' --assoc-class CIM_SystemDevice",
       associator_names},
      {"references",
       "ri",
       "Show the associations of an object",
       {object},
       {Option::ResultClass, Option::Role, Option::Properties, Option::Qualifiers,
        Option::ClassOrigin},
       "cim-client references 'CIM_Fan.DeviceID=\"fan1\"'\n"
       "cim-client ri 'CIM_Fan.DeviceID=\"fan1\"' --role PartComponent",
       references},
      {"reference-names",
       "rin",
       "List the paths of the associations of an object",
       {object},
       {Option::ResultClass, Option::Role},
       "cim-client reference-names 'CIM_Fan.DeviceID=\"fan1\"'\n"
       "cim-client rin 'CIM_Fan.DeviceID=\"fan1\"' --result-class CIM_SystemDevice",
       reference_names},
      {"query",
       "xq",
       "Show the objects that a query selects",
       {{"QUERY", "the query"}},
       {Option::Language, Option::Properties},
       "cim-client query 'SELECT DeviceID, DesiredSpeed FROM CIM_Fan'\n"
       "cim-client xq \"SELECT * FROM CIM_Fan WHERE DeviceID = 'fan1'\"",
       query},
  };
}

}  // namespace cli
