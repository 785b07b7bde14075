// Object paths made from instance names.
#pragma once

#include "cim_client.h"
#include "clientapi/interface.h"
#include "clientapi/owned.h"

namespace cim::broker {

// The name of a class; null when there is none.
inline const char* text_of(const ClassName* name) { return name ? name->name : nullptr; }

// A new path of a class; null when the broker makes none.
inline CIMCObjectPath* make_path(CIMCEnv* env, const char* name_space, const char* class_name) {
  return env->ft->newObjectPath(env, name_space, class_name, nullptr);
}

// The instance that a reference names; null when it names none.  The local path goes first
// when there is a plain name, too.
const InstanceName* referenced_name(const ValueReference* reference);

// Adds a key that is a text, or a reference.
CIMCStatus add_text_key(CIMCObjectPath* path, const char* name, const char* text);
CIMCStatus add_reference_key(CIMCObjectPath* path, const char* name, CIMCObjectPath* reference);

// A new path of a referenced instance, with its keys as texts.  Null when the class name is
// missing, a key lacks its name or text, or the broker makes none.
CIMCObjectPath* make_reference_path(CIMCEnv* env, const char* name_space, const InstanceName& name);

}  // namespace cim::broker
