// Properties of records as properties of broker instances.
#include "clientapi/properties.h"

#include <cstring>

#include "cim_client.h"
#include "clientapi/owned.h"
#include "clientapi/paths.h"
#include "clientapi/types.h"

namespace cim::broker {
namespace {

// Stores an element.
void set_element(CIMCArray* array, CIMCCount index, CIMCValue* value, CIMCType code) {
  Outcome(array->ft->setElementAt(array, index, value, code));
}

void set_elements(CIMCArray* array, const Value* values, const TypeInfo& type) {
  CIMCCount index = 0;
  for (const Value* value = values; value; value = value->next, ++index) {
    if (!value->text) continue;  // stays null
    if (type.kind == Kind::String) {
      set_element(array, index, reinterpret_cast<CIMCValue*>(value->text), code::chars);
    } else {
      CIMCValue number = integer_value(type, to_number(value->text));
      set_element(array, index, &number, type.code);
    }
  }
}

}  // namespace

void set_property(CIMCInstance* instance, const char* name, CIMCValue* value, CIMCType code) {
  Outcome(instance->ft->setProperty(instance, name, value, code));
}

CIMCCount length_of(const Value* values) {
  CIMCCount count = 0;
  for (; values; values = values->next) ++count;
  return count;
}

CIMCValue value_of(const TypeInfo& type, const char* text) {
  if (is_integer(type)) return integer_value(type, to_number(text));
  CIMCValue value{};
  if (type.kind == Kind::Boolean) value.boolean = std::strcmp(text, "TRUE") == 0;
  return value;
}

CIMCDateTime* make_date_time(CIMCEnv* env, const char* text) {
  return env->ft->newDateTimeFromChars(env, text, nullptr);
}

CIMCArray* make_array(CIMCEnv* env, const Value* values, const TypeInfo& type) {
  CIMCArray* array = env->ft->newArray(env, length_of(values), type.code, nullptr);
  if (array) set_elements(array, values, type);
  return array;
}

const TypeInfo* array_type(const char* name, const char* type, const ValueArray* array) {
  if (!name || !type || !array || !array->values || !array->values->text) return nullptr;
  static constexpr TypeInfo unsupported = {"", 0, Kind::Real};
  const TypeInfo* element = sendable_type(type);
  const bool supported = element && (is_integer(*element) || element->kind == Kind::String);
  return supported ? element : &unsupported;
}

bool set_reference(CIMCEnv* env, CIMCInstance* instance, const PropertyReference& property,
                   const char* name_space) {
  const InstanceName* name = referenced_name(property.valueReference);
  if (!property.name || !name) return false;
  const Owned<CIMCObjectPath> path(make_reference_path(env, name_space, *name));
  if (!path) return false;
  CIMCValue value{};
  value.ref = path.get();
  set_property(instance, property.name, &value, code::reference);
  return true;
}

}  // namespace cim::broker

using namespace cim::broker;

namespace {

// Sets a property of a type that can be sent to the value of `text`.
void set_text(CIMCEnv* env, CIMCInstance* instance, const char* name, const TypeInfo& type,
              const char* text) {
  const auto code = static_cast<CIMCType>(cimc_getCMPIType(type.name));
  if (type.kind == Kind::String) {
    set_property(instance, name, reinterpret_cast<CIMCValue*>(const_cast<char*>(text)), code);
    return;
  }
  const Owned<CIMCDateTime> time(type.kind == Kind::DateTime ? make_date_time(env, text) : nullptr);
  CIMCValue value = value_of(type, text);
  if (type.kind == Kind::DateTime) value.dateTime = time.get();
  set_property(instance, name, type.kind == Kind::DateTime && !time ? nullptr : &value, code);
}

}  // namespace

extern "C" {

int add_properties_to_req(const Property* property, void* instance, void* env) {
  if (!property || !property->name || !property->type) return -1;
  const TypeInfo* type = sendable_type(property->type);
  if (!type) return 0;  // object managers are told nothing of other types
  auto* target = static_cast<CIMCInstance*>(instance);
  const char* text = property->value ? property->value->text : nullptr;
  if (text) {
    set_text(static_cast<CIMCEnv*>(env), target, property->name, *type, text);
  } else {
    const auto code = static_cast<CIMCType>(cimc_getCMPIType(type->name));
    set_property(target, property->name, nullptr, code);
  }
  return 0;
}

int _add_property_array_to_req(const PropertyArray* property, void* instance, void* env) {
  if (!property) return -1;
  const TypeInfo* type = array_type(property->name, property->type, property->valueArray);
  if (!type) return -1;
  if (type->kind == Kind::Real) return 0;
  auto* target = static_cast<CIMCInstance*>(instance);
  const Owned<CIMCArray> array(
      make_array(static_cast<CIMCEnv*>(env), property->valueArray->values, *type));
  if (!array) return -1;
  CIMCValue value{};
  value.array = array.get();
  const auto code = static_cast<CIMCType>(type->code | code::array);
  return Outcome(target->ft->setProperty(target, property->name, &value, code)).failed() ? -1 : 0;
}

int add_value_to_mi_req(const NamedInstance* namedInstance, void* instance, void* env) {
  if (!namedInstance || !namedInstance->instance) return 0;
  CDATASectionHandler(namedInstance->instance, instance, env);
  return 0;
}

int CDATASectionHandler(const Instance* record, void* instance, void* env) {
  for (const Property* p = record->properties; p; p = p->next)
    add_properties_to_req(p, instance, env);
  for (const PropertyArray* a = record->propertyArrays; a; a = a->next)
    _add_property_array_to_req(a, instance, env);
  return 0;
}

}  // extern "C"
