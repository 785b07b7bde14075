// Builders for values, names and paths.
#include "base/trace.h"
#include "reader/create.h"
#include "reader/nodes.h"

namespace cim {
namespace {

// Applications extend a VALUE or HOST text in place: each block has this many bytes beyond
// the characters, the terminator included.
constexpr std::size_t text_room = 128;

const char* character_data(const XmlNode& element) {
  const XmlNode* child = element.firstChild;
  return child && child->nodeValue ? child->nodeValue : "";
}

char* roomy_copy(const char* text) { return duplicate(text, std::strlen(text), text_room - 1); }

// Gives `value` the content of its element.  False when memory runs out.
bool read_content(Value& value, const XmlNode& element) {
  const XmlNode* child = element.firstChild;
  if (child && child->nodeType == XML_CDATA_SECTION) {
    ParseCDataContent(child->nodeValue, &value.instance);  // what cannot be read stays null
    return true;
  }
  value.text = child ? roomy_copy(character_data(element)) : duplicate("");
  return value.text;
}

// A key without character data has the text of its last attribute: applications know an empty
// KEYVALUE of VALUETYPE "string" as the key "string".
const char* key_text(const XmlNode& element) {
  const XmlNode* child = element.firstChild;
  if (child && child->nodeValue) return child->nodeValue;
  const char* text = "";
  for (const XmlNode* a = element.attributes; a; a = a->nextSibling) text = value_of(*a);
  return text;
}

}  // namespace

template <>
Value* build<Value>(Building& building) {
  trace("\nInside CreateValue");
  auto* value = allocate<Value>();
  if (!value || !read_content(*value, building.element)) building.out_of_memory = true;
  if (value) building.linked = link(value, building.parent);
  return value;
}

template <>
KeyValue* build<KeyValue>(Building& building) {
  auto* key = allocate<KeyValue>();
  if (!key) {
    building.out_of_memory = true;
    return nullptr;
  }
  key->text = duplicate(key_text(building.element));
  if (!key->text || !read_attributes(*key, building.element, building.names))
    building.out_of_memory = true;
  building.linked = link(key, building.parent);
  return key;
}

char* build_host(Building& building) {
  char* host = roomy_copy(character_data(building.element));
  if (!host) {
    building.out_of_memory = true;
    return nullptr;
  }
  const ParentElement& parent = building.parent;
  if (parent.record && parent.name == element_of<NamespacePath>) {
    char*& place = static_cast<NamespacePath*>(parent.record)->host;
    std::free(place);
    place = host;
    building.linked = true;
  }
  return host;
}

}  // namespace cim

using cim::create;

extern "C" {

// clang-format off
StackEntry* CreateValue(StackEntry* entry, const XmlNode* node, void* parent) { return create<Value>(entry, node, parent); }
StackEntry* CreateKeyValue(StackEntry* entry, const XmlNode* node, void* parent) { return create<KeyValue>(entry, node, parent); }
StackEntry* CreateHost(StackEntry* entry, const XmlNode* node, void* parent) { return create<char>(cim::build_host, entry, node, parent); }
StackEntry* CreateValueArray(StackEntry* entry, const XmlNode* node, void* parent) { return create<ValueArray>(entry, node, parent); }
StackEntry* CreateValueReference(StackEntry* entry, const XmlNode* node, void* parent) { return create<ValueReference>(entry, node, parent); }
StackEntry* CreateValueRefArray(StackEntry* entry, const XmlNode* node, void* parent) { return create<ValueRefArray>(entry, node, parent); }
StackEntry* CreateValueNull(StackEntry* entry, const XmlNode* node, void* parent) { return create<ValueNull>(entry, node, parent); }
StackEntry* CreateKeyBinding(StackEntry* entry, const XmlNode* node, void* parent) { return create<KeyBinding>(entry, node, parent); }
StackEntry* CreateInstanceName(StackEntry* entry, const XmlNode* node, void* parent) { return create<InstanceName>(entry, node, parent); }
StackEntry* CreateClassName(StackEntry* entry, const XmlNode* node, void* parent) { return create<ClassName>(entry, node, parent); }
StackEntry* CreateNamespace(StackEntry* entry, const XmlNode* node, void* parent) { return create<Namespace>(entry, node, parent); }
StackEntry* CreateLocalNamespacePath(StackEntry* entry, const XmlNode* node, void* parent) { return create<LocalNamespacePath>(entry, node, parent); }
StackEntry* CreateNamespacePath(StackEntry* entry, const XmlNode* node, void* parent) { return create<NamespacePath>(entry, node, parent); }
StackEntry* CreateClassPath(StackEntry* entry, const XmlNode* node, void* parent) { return create<ClassPath>(entry, node, parent); }
StackEntry* CreateLocalClassPath(StackEntry* entry, const XmlNode* node, void* parent) { return create<LocalClassPath>(entry, node, parent); }
StackEntry* CreateInstancePath(StackEntry* entry, const XmlNode* node, void* parent) { return create<InstancePath>(entry, node, parent); }
StackEntry* CreateLocalInstancePath(StackEntry* entry, const XmlNode* node, void* parent) { return create<LocalInstancePath>(entry, node, parent); }
StackEntry* CreateObjectPath(StackEntry* entry, const XmlNode* node, void* parent) { return create<ObjectPath>(entry, node, parent); }
// clang-format on

}  // extern "C"
