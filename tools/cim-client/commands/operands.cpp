// Turning operands into records.
#include "commands/operands.h"

#include <algorithm>
#include <new>

#include "exit_status.h"
#include "utf8.h"
#include "views.h"
#include "wire.h"

namespace cli {
namespace {

void address(Context& context, const ObjectUri& path) {
  if (!path.name_space.empty()) context.session().set_namespace(path.name_space);
}

ClassNameOwner new_class_name(const std::string& name) {
  ClassNameOwner record(CIMC_CreateClassName(name.c_str()));
  if (record == nullptr) throw std::bad_alloc();
  return record;
}

bool could_be_reference(const Key& key) {
  return key.kind == Key::Kind::Text && looks_like_instance(key.text);
}

// Marks the keys that are references in the class.
void mark_references(std::vector<Key>& keys, const Class& definition) {
  for (const TypedView& property : properties_of(definition)) {
    if (!property.is_reference) continue;
    for (Key& key : keys) {
      if (same_name(key.name, property.name)) key.kind = Key::Kind::Reference;
    }
  }
}

}  // namespace

ObjectUri class_path_operand(Context& context, const std::string& text) {
  ObjectUri path = parse_object(text);
  if (path.is_instance)
    throw usage_failure(printable(text) + " names an instance; here a class is meant");
  address(context, path);
  return path;
}

ClassNameOwner class_operand(Context& context, const std::string& text) {
  if (text.empty()) return nullptr;
  const ObjectUri path = class_path_operand(context, text);
  return class_name_to_send(context.session(), path.class_name);
}

ObjectUri object_path_operand(Context& context, const std::string& text) {
  ObjectUri path = parse_object(text);
  address(context, path);
  if (std::any_of(path.keys.begin(), path.keys.end(), could_be_reference))
    mark_references(path.keys, *class_definition(context.session(), path.class_name));
  return path;
}

ObjectNameOwner object_operand(Context& context, const std::string& text) {
  const ObjectUri path = object_path_operand(context, text);
  const ClassNameOwner class_name = class_name_to_send(context.session(), path.class_name);
  const InstanceNameOwner name = instance_name_to_send(context.session(), path);
  ObjectNameOwner record(path.is_instance ? CIMC_CreateObjectName(nullptr, name.get())
                                          : CIMC_CreateObjectName(class_name->name, nullptr));
  if (record == nullptr) throw std::bad_alloc();
  return record;
}

ObjectUri instance_operand(Context& context, const std::string& text) {
  parse_instance(text);
  return object_path_operand(context, text);
}

ClassNameOwner class_name_to_send(const Session& session, const std::string& name) {
  ClassNameOwner record = new_class_name(name);
  session.make_sendable(record.get());
  return record;
}

ClassNameOwner class_name_over_http(const std::string& name) {
  ClassNameOwner record = new_class_name(name);
  escape_texts(record.get());
  return record;
}

InstanceNameOwner instance_name_to_send(const Session& session, const ObjectUri& path) {
  InstanceNameOwner record = make_instance_name(path);
  session.make_sendable(record.get());
  return record;
}

ClassOwner class_definition(Session& session, const std::string& class_name) try {
  const ClassNameOwner name = class_name_over_http(class_name);
  ClassOwner definition =
      session.ask_for_class([&name](struct client_Configuration* handle, Error** error) {
        return CIM_GetClass(handle, name.get(), 0, 1, 0, nullptr, error);
      });
  if (definition == nullptr)
    throw Failure(ExitStatus::CimError, "the object manager gave no class " + class_name);
  return definition;
} catch (const Failure& failure) {
  if (!session.is_local()) throw;
  throw Failure(failure.status(), "the class is read over CIM-XML, also with the local broker: " +
                                      std::string(failure.what()));
}

ClassSource class_source(Context& context) {
  return [&context](const std::string& class_name) {
    return class_definition(context.session(), class_name);
  };
}

}  // namespace cli
