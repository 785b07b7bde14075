// Records as lines of text, one for each thing that they say.
#include "clientapi/record_lines.h"

namespace support {
namespace {

std::string shown(const char* text) { return text ? text : "(none)"; }

// Calls visit(node, place) for each node: "place[0]", "place[1]", ...
template <class Node, class Visit>
void for_each_node(const std::string& place, const Node* list, Visit visit) {
  std::size_t index = 0;
  for (const Node* node = list; node; node = node->next, ++index)
    visit(*node, place + "[" + std::to_string(index) + "]");
}

void add_namespaces(Lines& lines, const std::string& place, const LocalNamespacePath* path) {
  if (!path) return;
  std::string names;
  for (const Namespace* node = path->namespaces; node; node = node->next)
    names += (names.empty() ? "" : " ") + shown(node->name);
  lines[place + ".namespaces"] = names;
}

void add_name(Lines& lines, const std::string& place, const InstanceName& name);

void add_path(Lines& lines, const std::string& place, const InstancePath& path) {
  if (const NamespacePath* where = path.namespacePath) {
    lines[place + ".host"] = shown(where->host);
    add_namespaces(lines, place, where->localNamespacePath);
  }
  if (path.instanceName) add_name(lines, place, *path.instanceName);
}

void add_reference(Lines& lines, const std::string& place, const ValueReference& reference) {
  if (reference.instancePath) {
    lines[place] = "instance path";
    add_path(lines, place, *reference.instancePath);
  }
  if (const LocalInstancePath* path = reference.localInstancePath) {
    lines[place] = "local instance path";
    add_namespaces(lines, place, path->localNamespacePath);
    if (path->instanceName) add_name(lines, place, *path->instanceName);
  }
  if (reference.instanceName) {
    lines[place] = "instance name";
    add_name(lines, place, *reference.instanceName);
  }
}

void add_name(Lines& lines, const std::string& place, const InstanceName& name) {
  lines[place + ".class"] = name.className ? shown(name.className->name) : "(none)";
  for_each_node(place + ".key", name.keyBindings, [&](const KeyBinding& key, const auto& at) {
    lines[at + ".name"] = shown(key.name);
    if (key.keyValue) {
      lines[at + ".value"] = shown(key.keyValue->text);
      lines[at + ".type"] = shown(key.keyValue->valueType);
    }
    if (key.valueReference) add_reference(lines, at + ".reference", *key.valueReference);
  });
}

void add_value(Lines& lines, const std::string& place, const Value* value) {
  if (!value) {
    lines[place] = "null";
  } else if (value->instance) {
    lines[place] = "instance";
    add_lines(lines, place, value->instance);
  } else {
    lines[place] = shown(value->text);
  }
}

void add_values(Lines& lines, const std::string& place, const ValueArray* array) {
  if (!array || !array->values) lines[place] = array ? "empty" : "null";
  if (array)
    for_each_node(place, array->values,
                  [&](const Value& value, const auto& at) { add_value(lines, at, &value); });
}

template <class Owner>
void add_properties(Lines& lines, const std::string& place, const Owner& owner) {
  const auto add_common = [&](const std::string& at, const auto& property) {
    if (property.classOrigin) lines[at + ":origin"] = property.classOrigin;
    if (property.propagated) lines[at + ":propagated"] = std::to_string(property.propagated);
  };
  for (const Property* p = owner.properties; p; p = p->next) {
    const std::string at = place + "." + shown(p->name);
    lines[at + ":type"] = shown(p->type);
    add_common(at, *p);
    add_value(lines, at, p->value);
  }
  for (const PropertyArray* a = owner.propertyArrays; a; a = a->next) {
    const std::string at = place + "." + shown(a->name);
    lines[at + ":type"] = shown(a->type);
    if (a->arraySize) lines[at + ":size"] = std::to_string(a->arraySize);
    add_common(at, *a);
    add_values(lines, at, a->valueArray);
  }
  for (const PropertyReference* r = owner.propertyReferences; r; r = r->next) {
    const std::string at = place + "." + shown(r->name);
    lines[at + ":class"] = shown(r->referenceClass);
    add_common(at, *r);
    lines[at] = "null";
    if (r->valueReference) add_reference(lines, at, *r->valueReference);
  }
}

}  // namespace

void add_lines(Lines& lines, const std::string& place, const Class* list) {
  for_each_node(place, list, [&](const Class& record, const auto& at) {
    lines[at + ".class"] = shown(record.name);
    lines[at + ".superclass"] = shown(record.superClass);
    add_properties(lines, at, record);
  });
}

void add_lines(Lines& lines, const std::string& place, const ClassName* list) {
  for_each_node(place, list,
                [&](const ClassName& node, const auto& at) { lines[at] = shown(node.name); });
}

void add_lines(Lines& lines, const std::string& place, const Error* record) {
  if (!record) return;
  lines[place + ".code"] = shown(record->code);
  lines[place + ".description"] = shown(record->description);
}

void add_lines(Lines& lines, const std::string& place, const Instance* record) {
  if (!record) return;
  lines[place + ".class"] = record->className ? shown(record->className->name) : "(none)";
  add_properties(lines, place, *record);
}

void add_lines(Lines& lines, const std::string& place, const InstanceName* list) {
  for_each_node(place, list,
                [&](const InstanceName& node, const auto& at) { add_name(lines, at, node); });
}

void add_lines(Lines& lines, const std::string& place, const NamedInstance* list) {
  for_each_node(place, list, [&](const NamedInstance& node, const auto& at) {
    if (node.instanceName) add_name(lines, at + ".name", *node.instanceName);
    add_lines(lines, at, node.instance);
  });
}

void add_lines(Lines& lines, const std::string& place, const ObjectPath* list) {
  for_each_node(place, list, [&](const ObjectPath& node, const auto& at) {
    if (node.instancePath) add_path(lines, at + ".path", *node.instancePath);
  });
}

void add_lines(Lines& lines, const std::string& place, const ObjectWithPath* list) {
  for_each_node(place, list, [&](const ObjectWithPath& node, const auto& at) {
    if (node.instancePath) add_path(lines, at + ".path", *node.instancePath);
    add_lines(lines, at, node.instance);
  });
}

void add_lines(Lines& lines, const std::string& place, const ParamValue* list) {
  std::size_t nameless = 0;
  for (const ParamValue* p = list; p; p = p->next) {
    const std::string name = p->name ? p->name : "nameless" + std::to_string(nameless++);
    const std::string at = place + "." + name;
    lines[at + ":type"] = shown(p->paramType);
    if (p->value) add_value(lines, at, p->value);
    if (p->valueArray) add_values(lines, at, p->valueArray);
    if (p->valueReference) add_reference(lines, at + ":reference", *p->valueReference);
    if (p->valueRefArray)
      for_each_node(at, p->valueRefArray->valueReferences,
                    [&](const ValueReference& reference, const auto& element) {
                      add_reference(lines, element, reference);
                    });
  }
}

}  // namespace support
