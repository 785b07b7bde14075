// Properties of a new instance, and the keys among them.
#include <algorithm>
#include <cstring>

#include "cim_client.h"
#include "clientapi/owned.h"
#include "clientapi/paths.h"
#include "clientapi/properties.h"

namespace {

using namespace cim::broker;

// The keys of the broker's classes, whatever a class's qualifiers say.
bool is_key(const char* name) {
  constexpr const char* keys[] = {"Name", "SystemCreationClassName", "CreationClassName",
                                  "SystemName"};
  return std::any_of(std::begin(keys), std::end(keys),
                     [name](const char* key) { return std::strcmp(key, name) == 0; });
}

}  // namespace

extern "C" {

int add_prop_to_create_inst_req(const Property* property, void* path, void* instance, void* env) {
  if (!property || !property->name) return -1;
  const char* text = property->value ? property->value->text : nullptr;
  if (text && is_key(property->name))
    Outcome(add_text_key(static_cast<CIMCObjectPath*>(path), property->name, text));
  return add_properties_to_req(property, instance, env);
}

int add_prop_array_to_create_inst_req(const PropertyArray* property, void* instance, void* env) {
  return _add_property_array_to_req(property, instance, env);
}

int add_prop_ref_to_create_inst_req(const char* nameSpace, const PropertyReference* property,
                                    void* instance, void* env) {
  if (!property) return -1;
  auto* target = static_cast<CIMCInstance*>(instance);
  return set_reference(static_cast<CIMCEnv*>(env), target, *property, nameSpace) ? 0 : -1;
}

int create_inst_req_add_props(const char* nameSpace, const Instance* record, void* path,
                              void* instance, void* env) {
  for (const Property* p = record->properties; p; p = p->next)
    add_prop_to_create_inst_req(p, path, instance, env);
  for (const PropertyArray* a = record->propertyArrays; a; a = a->next)
    add_prop_array_to_create_inst_req(a, instance, env);
  for (const PropertyReference* r = record->propertyReferences; r; r = r->next)
    add_prop_ref_to_create_inst_req(nameSpace, r, instance, env);
  return 0;
}

}  // extern "C"
