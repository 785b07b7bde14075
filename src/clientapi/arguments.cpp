// Making the arguments of a method call, one parameter at a time.
#include "clientapi/arguments.h"

#include "clientapi/paths.h"
#include "clientapi/properties.h"
#include "clientapi/types.h"

namespace cim::broker {
namespace {

void add(CIMCArgs* args, const char* name, CIMCValue value, CIMCType code) {
  Outcome(args->ft->addArg(args, name, &value, code));
}

// The embedded instance of a value; null when it has none.
const Instance* embedded_in(const Value* value) { return value ? value->instance : nullptr; }

// A new broker instance like `record`; null when its class is missing or the broker makes
// none.
CIMCInstance* make_instance(const Instance& record, const ArgumentTarget& target) {
  const char* class_name = text_of(record.className);
  if (!class_name) return nullptr;
  const Owned<CIMCObjectPath> path(make_path(target.env, target.name_space, class_name));
  if (!path) return nullptr;
  CIMCInstance* instance = target.env->ft->newInstance(target.env, path.get(), nullptr);
  if (instance) CDATASectionHandler(&record, instance, target.env);
  return instance;
}

// The value of a parameter's text.  False when there is nothing to add.
bool add_text(const ParamValue& parameter, const char* text, const ArgumentTarget& target) {
  if (!parameter.name || !parameter.paramType) return false;
  const TypeInfo* type = sendable_type(parameter.paramType);
  if (!type) return true;  // object managers are told nothing of other types
  CIMCValue value{};
  if (type->kind == Kind::String) {
    value.string = target.env->ft->newString(target.env, text, nullptr);
    if (!value.string || (target.kept && !target.kept->keep(value.string))) return false;
    add(target.args, parameter.name, value, type->code);
    return true;
  }
  const Owned<CIMCDateTime> time(type->kind == Kind::DateTime ? make_date_time(target.env, text)
                                                              : nullptr);
  value = value_of(*type, text);
  if (type->kind == Kind::DateTime) value.dateTime = time.get();
  if (type->kind != Kind::DateTime || time) add(target.args, parameter.name, value, type->code);
  return true;
}

bool add_reference(const ParamValue& parameter, const ArgumentTarget& target) {
  const InstanceName* name = referenced_name(parameter.valueReference);
  if (!parameter.name || !name) return false;
  CIMCValue value{};
  value.ref = make_reference_path(target.env, target.name_space, *name);
  if (!value.ref || !target.kept->keep(value.ref)) return false;
  add(target.args, parameter.name, value, code::reference);
  return true;
}

bool add_embedded(const ParamValue& parameter, const ArgumentTarget& target) {
  const Instance* record = embedded_in(parameter.value);
  if (!parameter.name || !record) return false;
  const Owned<CIMCInstance> instance(make_instance(*record, target));
  if (!instance) return false;
  CIMCValue value{};
  value.inst = instance.get();
  add(target.args, parameter.name, value, code::instance);
  return true;
}

// A new array of embedded instances; null when one cannot be made.
CIMCArray* make_instances(const Value* values, const ArgumentTarget& target) {
  Owned<CIMCArray> array(
      target.env->ft->newArray(target.env, length_of(values), code::instance, nullptr));
  if (!array) return nullptr;
  CIMCCount index = 0;
  for (const Value* v = values; v; v = v->next, ++index) {
    if (!v->instance) continue;  // stays null
    CIMCValue element{};
    element.inst = make_instance(*v->instance, target);
    if (!element.inst || !target.kept->keep(element.inst)) return nullptr;
    Outcome(array->ft->setElementAt(array.get(), index, &element, code::instance));
  }
  return array.give();
}

bool add_array(const ParamValue& parameter, const ArgumentTarget& target) {
  const ValueArray* values = parameter.valueArray;
  if (!parameter.name || !values) return false;
  CIMCValue value{};
  if (embedded_in(values->values)) {
    value.array = make_instances(values->values, target);
  } else {
    const TypeInfo* type = array_type(parameter.name, parameter.paramType, values);
    if (!type) return false;
    if (type->kind == Kind::Real) return true;
    value.array = make_array(target.env, values->values, *type);
  }
  const Owned<CIMCArray> array(value.array);
  if (!array) return false;
  add(target.args, parameter.name, value, code::array);  // whatever the elements are
  return true;
}

// The first step of a parameter: what is not a plain value or a reference.
bool add_compound(const ParamValue& parameter, const ArgumentTarget& target) {
  if (embedded_in(parameter.value)) return add_embedded(parameter, target);
  return !parameter.valueArray || add_array(parameter, target);
}

}  // namespace

// The second step does not ask whether the first added something: brokers know parameters
// that arrive twice.
bool add_arguments(const ParamValue* parameters, const ArgumentTarget& target) {
  for (const ParamValue* p = parameters; p; p = p->next) {
    if (!add_compound(*p, target)) return false;
    const bool typed = p->name && p->paramType;
    const char* text = p->value ? p->value->text : nullptr;
    if (typed && text) {
      add_text(*p, text, target);
    } else if (!typed || p->valueReference || p->valueRefArray) {
      add_reference(*p, target);
    }
  }
  return true;
}

}  // namespace cim::broker

namespace {

using namespace cim::broker;

ArgumentTarget make_target(const char* name_space, void* args, void* env, Kept* kept) {
  return {static_cast<CIMCArgs*>(args), static_cast<CIMCEnv*>(env), name_space, kept};
}

}  // namespace

extern "C" {

// Who adds a string by itself keeps its object: it is not released here.
int CIMC_CreatePropertyArguments(const ParamValue* parameter, void* args, void* env) {
  if (!parameter || !parameter->value || !parameter->value->text) return -1;
  const ArgumentTarget target = make_target(nullptr, args, env, nullptr);
  return add_text(*parameter, parameter->value->text, target) ? 0 : -1;
}

int CIMC_CreatePropertyArrayArguments(const ParamValue* parameter, const char* nameSpace,
                                      void* args, void* env) {
  Kept kept;
  return parameter && add_array(*parameter, make_target(nameSpace, args, env, &kept)) ? 0 : -1;
}

int CIMC_CreateValueRefArguments(const ParamValue* parameter, const char* nameSpace, void* args,
                                 void* env) {
  Kept kept;
  return parameter && add_reference(*parameter, make_target(nameSpace, args, env, &kept)) ? 0 : -1;
}

int CIMC_CreateCDataArgument(const ParamValue* parameter, const char* nameSpace, void* args,
                             void* env) {
  Kept kept;
  return parameter && add_embedded(*parameter, make_target(nameSpace, args, env, &kept)) ? 0 : -1;
}

int add_args_to_invoke_req(const ParamValue* parameters, const char* nameSpace, void* args,
                           void* env) {
  Kept kept;
  return add_arguments(parameters, make_target(nameSpace, args, env, &kept)) ? 0 : -1;
}

}  // extern "C"
