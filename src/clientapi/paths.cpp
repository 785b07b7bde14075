// Making object paths, key by key.
#include "clientapi/paths.h"

namespace cim::broker {

const InstanceName* referenced_name(const ValueReference* reference) {
  if (!reference) return nullptr;
  const LocalInstancePath* local = reference->localInstancePath;
  return local && local->instanceName ? local->instanceName : reference->instanceName;
}

CIMCStatus add_text_key(CIMCObjectPath* path, const char* name, const char* text) {
  // A value of code chars is the character pointer itself; the broker copies the text.
  auto* characters = reinterpret_cast<CIMCValue*>(const_cast<char*>(text));
  return path->ft->addKey(path, name, characters, code::chars);
}

CIMCStatus add_reference_key(CIMCObjectPath* path, const char* name, CIMCObjectPath* reference) {
  CIMCValue value{};
  value.ref = reference;
  return path->ft->addKey(path, name, &value, code::reference);
}

CIMCObjectPath* make_reference_path(CIMCEnv* env, const char* name_space,
                                    const InstanceName& name) {
  const char* class_name = text_of(name.className);
  CIMCObjectPath* path = class_name ? make_path(env, name_space, class_name) : nullptr;
  if (!path) return nullptr;
  for (const KeyBinding* key = name.keyBindings; key; key = key->next) {
    if (!key->name || !key->keyValue || !key->keyValue->text) {
      release_object(path);
      return nullptr;
    }
    Outcome(add_text_key(path, key->name, key->keyValue->text));
  }
  return path;
}

}  // namespace cim::broker

namespace {

using namespace cim::broker;

// What a key that is a reference refers to.
struct Remembered {
  const LocalInstancePath* path = nullptr;
  const InstanceName* name = nullptr;

  bool is_set() const { return path || name; }
};

// Adds a key that refers to an instance.  References inside that instance's own name are not
// followed.  False when a part is missing or the broker refuses.
bool add_reference(CIMCObjectPath* path, const char* key_name, const Remembered& remembered,
                   const char* name_space, CIMCEnv* env) {
  const InstanceName* name = remembered.name;
  if (remembered.path) {
    name = remembered.path->instanceName;
    if (!name || !name->keyBindings) return false;
  }
  const char* class_name = text_of(name->className);
  if (!class_name || !*class_name || !name->keyBindings) return true;

  const Owned<CIMCObjectPath> reference(make_reference_path(env, name_space, *name));
  return reference && !Outcome(add_reference_key(path, key_name, reference.get())).failed();
}

}  // namespace

// A reference stays remembered for the keys after it, until the next reference: brokers know
// paths made so.
extern "C" int CIMC_AddKeyValues(const KeyBinding* keyBindings, void* path, const char* nameSpace,
                                 void* env) {
  if (!nameSpace || !path) return -1;
  auto* broker_path = static_cast<CIMCObjectPath*>(path);
  Remembered remembered;
  for (const KeyBinding* key = keyBindings; key; key = key->next) {
    if (!key->name) return -1;
    if (const ValueReference* reference = key->valueReference)
      remembered = {reference->localInstancePath, reference->instanceName};
    if (remembered.is_set()) {
      if (!add_reference(broker_path, key->name, remembered, nameSpace, static_cast<CIMCEnv*>(env)))
        return -1;
    } else if (key->keyValue && key->keyValue->text) {
      Outcome(add_text_key(broker_path, key->name, key->keyValue->text));
    }
  }
  return 0;
}
