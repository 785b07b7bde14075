// Building sample records.
#include "sample_records.h"

#include "object_path.h"
#include "records.h"

namespace samples {

using cli::append;
using cli::new_record;
using cli::new_text;

namespace {

KeyBinding* keys_of(std::initializer_list<Pair> keys) {
  KeyBinding* list = nullptr;
  for (const Pair& key : keys)
    AddToKeyBindingListRef(&list, key.name, key.value, "string", nullptr);
  return list;
}

void add_property(Instance& instance, const char* name, const char* type, const char* value) {
  char* text = value == nullptr ? nullptr : new_text(value);
  AddToProeprtyList(&instance.properties, name, text, type);
  std::free(text);
}

Value* values(std::initializer_list<const char*> texts) {
  Value* list = nullptr;
  for (const char* text : texts) AddToValueList(&list, text);
  return list;
}

Qualifier* qualifier(const char* name, const char* type, const char* value) {
  auto* record = new_record<Qualifier>();
  record->name = new_text(name);
  record->type = new_text(type);
  AddToValueList(&record->value, value);
  return record;
}

Property* property(const char* name, const char* type) {
  auto* record = new_record<Property>();
  record->name = new_text(name);
  record->type = new_text(type);
  return record;
}

Parameter* parameter(const char* name, const char* type, const char* direction) {
  auto* record = new_record<Parameter>();
  record->name = new_text(name);
  record->type = new_text(type);
  record->qualifiers = qualifier(direction, "boolean", "TRUE");
  return record;
}

Method* set_speed_method() {
  auto* method = new_record<Method>();
  method->name = new_text("SetSpeed");
  method->type = new_text("uint32");
  method->qualifiers = qualifier("Description", "string", "Sets the \"speed\".");
  append(&method->parameters, parameter("DesiredSpeed", "uint64", "In"));
  append(&method->parameters, parameter("Reached", "boolean", "Out"));
  method->parameterArrays = new_record<ParameterArray>();
  method->parameterArrays->name = new_text("Steps");
  method->parameterArrays->type = new_text("uint16");
  method->parameterArrays->arraySize = 4;
  method->parameterReferences = new_record<ParameterReference>();
  method->parameterReferences->name = new_text("Sensor");
  method->parameterReferences->referenceClass = new_text("CIM_Sensor");
  method->parameterRefArrays = new_record<ParameterRefArray>();
  method->parameterRefArrays->name = new_text("Followers");
  method->parameterRefArrays->referenceClass = new_text("CIM_Fan");
  return method;
}

// One record per attribute: the first has the name, the second the type, both the value.
void add_embedded(Instance& instance, const char* name, const char* type, const char* value) {
  for (const bool first : {true, false}) {
    auto* record = new_record<Property>();
    if (first)
      record->name = new_text(name);
    else
      record->type = new_text(type);
    AddToValueList(&record->value, value);
    append(&instance.properties, record);
  }
}

}  // namespace

cli::InstanceNameOwner instance_name(const char* class_name, std::initializer_list<Pair> keys) {
  InstanceName* list = nullptr;
  AddToInstanceNameList(&list, keys_of(keys), CIMC_CreateClassName(class_name), nullptr);
  return cli::InstanceNameOwner(list);
}

NamedInstance* fan(const char* id, const char* speed) {
  auto* named = new_record<NamedInstance>();
  named->instanceName = instance_name("CIM_Fan", {{"DeviceID", id}}).release();
  named->instance = new_record<Instance>();
  Instance& instance = *named->instance;
  instance.className = CIMC_CreateClassName("CIM_Fan");
  add_property(instance, "DeviceID", "string", id);
  add_property(instance, "DesiredSpeed", "uint64", speed);
  add_property(instance, "VariableSpeed", "boolean", "true");
  add_property(instance, "Caption", "string", nullptr);
  auto* array = new_record<ValueArray>();
  array->values = values({"2", "5"});
  AddToPropertyArrayList(&instance.propertyArrays, "OperationalStatus", array, "uint16");
  return named;
}

cli::NamedInstanceOwner two_fans() {
  NamedInstance* first = fan("fan1", "1200");
  first->next = fan("fan2", "18446744073709551615");
  return cli::NamedInstanceOwner(first);
}

cli::ValueReferenceOwner reference(const char* host, const char* name_space, const char* class_name,
                                   std::initializer_list<Pair> keys) {
  cli::ObjectUri path;
  path.host = host;
  path.name_space = name_space;
  path.class_name = class_name;
  path.is_instance = keys.size() > 0;
  for (const Pair& key : keys) path.keys.push_back({key.name, cli::Key::Kind::Text, key.value});
  return cli::make_reference(path);
}

cli::ClassOwner fan_class() {
  cli::ClassOwner definition(new_record<Class>());
  definition->name = new_text("CIM_Fan");
  definition->superClass = new_text("CIM_CoolingDevice");
  definition->qualifiers = qualifier("Version", "string", "2.6.0");
  Property* id = property("DeviceID", "string");
  id->classOrigin = new_text("CIM_LogicalDevice");
  append(&id->qualifiers, qualifier("Key", "boolean", "TRUE"));
  append(&id->qualifiers, qualifier("MaxLen", "uint32", "64"));
  append(&definition->properties, id);
  Property* speed = property("DesiredSpeed", "uint64");
  AddToValueList(&speed->value, "1000");
  append(&definition->properties, speed);
  auto* status = new_record<PropertyArray>();
  status->name = new_text("OperationalStatus");
  status->type = new_text("uint16");
  auto* names = new_record<Qualifier>();
  names->name = new_text("Values");
  names->type = new_text("string");
  names->valueArray = new_record<ValueArray>();
  names->valueArray->values = values({"OK", "Degraded"});
  status->qualifiers = names;
  definition->propertyArrays = status;
  auto* chassis = new_record<PropertyReference>();
  chassis->name = new_text("Chassis");
  chassis->referenceClass = new_text("CIM_Chassis");
  definition->propertyReferences = chassis;
  definition->methods = set_speed_method();
  return definition;
}

Instance* embedded_setting() {
  auto* instance = new_record<Instance>();
  instance->className = CIMC_CreateClassName("CIM_FanSetting");
  add_embedded(*instance, "InstanceID", "string", "quiet");
  add_embedded(*instance, "Speed", "uint32", "800");
  for (const bool first : {true, false}) {
    auto* record = new_record<PropertyArray>();
    if (first)
      record->name = new_text("Steps");
    else
      record->type = new_text("uint16");
    record->valueArray = new_record<ValueArray>();
    record->valueArray->values = values({""});
    append(&instance->propertyArrays, record);
  }
  return instance;
}

}  // namespace samples
