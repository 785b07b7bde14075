// Names in requests.
#include "cimxml/names_in.h"

#include <memory>

#include "model/text.h"

namespace sandbox::cimxml {
namespace {

Error wrong(std::string text) { return {ErrorCode::InvalidParameter, std::move(text)}; }

Outcome<std::string> name_in(const Element& element, std::string_view attribute) {
  const std::string* name = element.attribute(attribute);
  if (name && !name->empty()) return *name;
  return wrong(element.name + " has no " + std::string(attribute));
}

Type type_of_key(const Element& key_value) {
  const std::string* kind = key_value.attribute("VALUETYPE");
  if (kind && same_name(*kind, "boolean")) return Type::Boolean;
  if (kind && same_name(*kind, "numeric")) return Type::SInt64;
  return Type::String;
}

// The KEYVALUE or VALUE.REFERENCE within `holder`.
Outcome<KeyBinding> read_key(const Element& holder, std::string name) {
  if (const Element* value = holder.child("KEYVALUE")) {
    return KeyBinding{std::move(name), type_of_key(*value), value->text};
  }
  const Element* reference = holder.child("VALUE.REFERENCE");
  if (!reference) return wrong(holder.name + " holds no KEYVALUE and no VALUE.REFERENCE");
  Outcome<ObjectPath> path = read_reference(*reference);
  if (!path) return path.error();
  return KeyBinding{std::move(name), Type::Reference,
                    std::make_shared<const ObjectPath>(std::move(*path))};
}

Outcome<ObjectPath> read_instance_name(const Element& element) {
  Outcome<std::string> class_name = name_in(element, "CLASSNAME");
  if (!class_name) return class_name.error();
  ObjectPath path{{}, std::move(*class_name), {}};
  if (element.child("KEYVALUE") || element.child("VALUE.REFERENCE")) {
    Outcome<KeyBinding> key = read_key(element, {});
    if (!key) return key.error();
    path.keys.push_back(std::move(*key));
    return path;
  }
  for (const Element& binding : element.children) {
    if (binding.name != "KEYBINDING") return wrong("INSTANCENAME holds a " + binding.name);
    Outcome<std::string> name = name_in(binding, "NAME");
    if (!name) return name.error();
    Outcome<KeyBinding> key = read_key(binding, std::move(*name));
    if (!key) return key.error();
    path.keys.push_back(std::move(*key));
  }
  return path;
}

// A name within a path: the namespace stands in `local`, the name in `name_element`.
Outcome<ObjectPath> read_within_name_space(const Element* local, const Element* name_element,
                                           const Element& path_element) {
  if (!local || !name_element) return wrong(path_element.name + " is not complete");
  Outcome<std::string> name_space = read_name_space(*local);
  if (!name_space) return name_space.error();
  Outcome<ObjectPath> path = read_object_path(*name_element);
  if (path) path->name_space = std::move(*name_space);
  return path;
}

}  // namespace

Outcome<std::string> read_name_space(const Element& path) {
  std::string joined;
  for (const Element& segment : path.children) {
    if (segment.name != "NAMESPACE") return wrong(path.name + " holds a " + segment.name);
    const std::string* name = segment.attribute("NAME");
    if (!name) return wrong("NAMESPACE has no NAME");
    if (!joined.empty()) joined += '/';
    joined += *name;
  }
  return joined;
}

Outcome<ObjectPath> read_object_path(const Element& element) {
  if (element.name == "INSTANCENAME") return read_instance_name(element);
  if (element.name == "CLASSNAME") {
    Outcome<std::string> name = name_in(element, "NAME");
    if (!name) return name.error();
    return ObjectPath{{}, std::move(*name), {}};
  }
  if (element.name == "LOCALINSTANCEPATH" || element.name == "LOCALCLASSPATH") {
    const Element* name = element.child("INSTANCENAME");
    return read_within_name_space(element.child("LOCALNAMESPACEPATH"),
                                  name ? name : element.child("CLASSNAME"), element);
  }
  if (element.name == "INSTANCEPATH" || element.name == "CLASSPATH") {
    const Element* name_space = element.child("NAMESPACEPATH");
    const Element* name = element.child("INSTANCENAME");
    return read_within_name_space(name_space ? name_space->child("LOCALNAMESPACEPATH") : nullptr,
                                  name ? name : element.child("CLASSNAME"), element);
  }
  return wrong(element.name + " is no name of a class or an instance");
}

Outcome<ObjectPath> read_reference(const Element& element) {
  if (element.children.size() == 1) return read_object_path(element.children.front());
  return wrong("VALUE.REFERENCE must hold one path");
}

}  // namespace sandbox::cimxml
