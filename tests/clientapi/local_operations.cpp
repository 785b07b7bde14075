// The local operations in one table, for what holds for all of them.
#include "clientapi/local_operations.h"

#include <limits>

#include "clientapi/local_records.h"

namespace support {
namespace {

constexpr char user[] = "user";
constexpr char password[] = "secret";

// ---- Arguments ----

// Released with the process: nothing but an operation allocates memory when it is called.
struct Arguments {
  Named fan{"CIM_Fan", {{"DeviceID", "fan1"}, {"SystemName", "server1"}}};
  ObjectName object{nullptr, fan.get};
  ClassName* class_name = CIMC_CreateClassName("CIM_Fan");
  Instance* instance = nullptr;
  NamedInstance named{};
  ParamValue* parameters = nullptr;

  Arguments();
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;
  ~Arguments() {
    Free_ClassName(class_name);
    Free_Instance(instance);
    Free_ParamValue(parameters);
  }
};

Instance* make_instance() {
  Property* properties = nullptr;
  char text[] = "x";
  char time[] = "20240101000000.000000+000";
  AddToProeprtyList(&properties, "Name", text, "string");
  AddToProeprtyList(&properties, "Since", time, "datetime");
  AddToProeprtyList(&properties, "Nothing", nullptr, "uint8");
  auto* values = static_cast<ValueArray*>(std::calloc(1, sizeof(ValueArray)));
  AddToValueList(&values->values, "1");
  PropertyArray* arrays = nullptr;
  AddToPropertyArrayList(&arrays, "Levels", values, "uint8");
  KeyBinding* keys = nullptr;
  AddToKeyBindingListRef(&keys, "Tag", "chassis1", "string", nullptr);
  auto* name_space = static_cast<Namespace*>(std::calloc(1, sizeof(Namespace)));
  PropertyReference* references = nullptr;
  AddToPropertyReferenceList(&references, keys, name_space, "CIM_Chassis", "Antecedent");
  Instance* instance = nullptr;
  AddToInstanceList(&instance, CIMC_CreateClassName("CIM_Fan"), references, arrays, properties);
  return instance;
}

ParamValue* parameter(const char* name, const char* type) {
  auto* made = static_cast<ParamValue*>(std::calloc(1, sizeof(ParamValue)));
  Clone_CIMName(name, &made->name);
  Clone_ParamType(type, &made->paramType);
  return made;
}

// A string, a date-time, an array of texts, one of instances, an instance and a reference.
ParamValue* make_parameters() {
  ParamValue* text = parameter("Text", "string");
  AddToValueList(&text->value, "text");
  ParamValue* time = text->next = parameter("Time", "datetime");
  AddToValueList(&time->value, "20240101000000.000000+000");
  ParamValue* texts = time->next = parameter("Texts", "string");
  texts->valueArray = static_cast<ValueArray*>(std::calloc(1, sizeof(ValueArray)));
  AddToValueList(&texts->valueArray->values, "a");
  ParamValue* instances = texts->next = parameter("Instances", "string");
  instances->valueArray = static_cast<ValueArray*>(std::calloc(1, sizeof(ValueArray)));
  instances->valueArray->values = static_cast<Value*>(std::calloc(1, sizeof(Value)));
  instances->valueArray->values->instance = make_instance();
  ParamValue* instance = instances->next = parameter("Instance", "string");
  instance->value = static_cast<Value*>(std::calloc(1, sizeof(Value)));
  instance->value->instance = make_instance();
  ParamValue* reference = instance->next = parameter("Reference", "reference");
  reference->valueReference = static_cast<ValueReference*>(std::calloc(1, sizeof(ValueReference)));
  KeyBinding* keys = nullptr;
  AddToKeyBindingListRef(&keys, "Tag", "chassis1", "string", nullptr);
  AddToInstanceNameList(&reference->valueReference->instanceName, keys,
                        CIMC_CreateClassName("CIM_Chassis"), nullptr);
  return text;
}

Arguments::Arguments() : instance(make_instance()), parameters(make_parameters()) {
  named = {fan.get, instance, nullptr};
}

const Arguments& given() {
  static const Arguments arguments;
  return arguments;
}

// ---- Calls ----

Answer enum_instances(Error** error, const char* ns) {
  NamedInstance* r = nullptr;
  const int code = CIMC_EnumInstances(&r, "CIM_Fan", "", user, password, 0, error, ns);
  return Answer::of<Gen_NamedInstance, Free_NamedInstance>(code, r);
}

Answer enum_instance_names(Error** error, const char* ns) {
  InstanceName* r = nullptr;
  const int code = CIMC_EnumInstanceNames(&r, "CIM_Fan", "", user, password, error, ns);
  return Answer::of<Gen_InstanceName, Free_InstanceName>(code, r);
}

Answer get_instance(Error** error, const char* ns) {
  Instance* r = nullptr;
  const int code = CIMC_GetInstance(&r, given().fan.get, "", user, password, error, ns);
  return Answer::of<Gen_Instance, Free_Instance>(code, r);
}

Answer get_class(Error** error, const char* ns) {
  Class* r = nullptr;
  const int code =
      CIMC_GetClass(&r, given().class_name, 0, 0, 0, nullptr, user, password, ns, error);
  return Answer::of<Gen_Class, Free_Class>(code, r);
}

Answer associators(Error** error, const char* ns) {
  ObjectWithPath* r = nullptr;
  const int code = CIMC_Associators(&r, given().fan.get, "CIM_SystemDevice", nullptr, nullptr,
                                    nullptr, "", user, password, error, ns);
  return Answer::of<Gen_ObjectWithPath, Free_ObjectWithPath>(code, r);
}

Answer associator_names(Error** error, const char* ns) {
  ObjectPath* r = nullptr;
  const int code = CIMC_AssociatorNames(&r, given().fan.get, "CIM_Fan", nullptr, "CIM_Chassis",
                                        nullptr, nullptr, "", user, password, error, ns);
  return Answer::of<Gen_ObjectPath, Free_ObjectPath>(code, r);
}

Answer references(Error** error, const char* ns) {
  ObjectWithPath* r = nullptr;
  const int code = CIMC_References(&r, &given().object, given().class_name, nullptr, 0, 0, nullptr,
                                   ns, user, password, error);
  return Answer::of<Gen_ObjectWithPath, Free_ObjectWithPath>(code, r);
}

Answer reference_names(Error** error, const char* ns) {
  ObjectPath* r = nullptr;
  const int code = CIMC_ReferenceNames(&r, &given().object, given().class_name, nullptr, ns, user,
                                       password, error);
  return Answer::of<Gen_ObjectPath, Free_ObjectPath>(code, r);
}

Answer create_instance(Error** error, const char* ns) {
  InstanceName* r = nullptr;
  const int code = CIMC_CreateInstance(&r, given().instance, ns, user, password, error);
  return Answer::of<Gen_InstanceName, Free_InstanceName>(code, r);
}

Answer modify_instance(Error** error, const char* ns) {
  return Answer(CIMC_ModifyInstance(&given().named, nullptr, ns, user, password, error));
}

Answer delete_instance(Error** error, const char* ns) {
  return Answer(CIMC_DeleteInstance(given().fan.get, ns, user, password, error));
}

Answer invoke_method(Error** error, const char* ns) {
  ParamValue* r = nullptr;
  const int code =
      CIMC_InvokeMethod(given().fan.get, "Stop", ns, given().parameters, &r, user, password, error);
  return Answer::of<Gen_ParamValue, Free_ParamValue>(code, r);
}

Answer exec_query(Error** error, const char* ns) {
  ObjectWithPath* r = nullptr;
  const int code = CIMC_ExecQuery(&r, ns, "SELECT * FROM CIM_Fan", "WQL", error);
  return Answer::of<Gen_ObjectWithPath, Free_ObjectWithPath>(code, r);
}

// ---- What the broker gives ----

sandbox_local::Datum array_of(sandbox_local::CIMCType element,
                              std::vector<sandbox_local::Datum> elements) {
  sandbox_local::ArrayObject array(0, element);
  array.elements = std::move(elements);
  return sandbox_local::array(array);
}

sandbox_local::Path link_path() {
  sandbox_local::Path path("root/cimv2", "CIM_SystemDevice");
  sandbox_local::member(path.keys, "PartComponent") = sandbox_local::reference(fan_path());
  sandbox_local::member(path.keys, "Number") = uint32(5);
  return path;
}

std::vector<sandbox_local::Member> rich_members() {
  namespace code = sandbox_local::code;
  using sandbox_local::CIMCValue;
  return {
      {"Nothing", sandbox_local::null_of(code::uint32)},
      {"Active", number(code::boolean, &CIMCValue::boolean, sandbox_local::CIMCBoolean{1})},
      {"Hours",
       number(code::uint64, &CIMCValue::uint64, std::numeric_limits<std::uint64_t>::max())},
      {"Weight", number(code::real64, &CIMCValue::real64, 1.5)},
      {"Text", sandbox_local::text("text")},
      {"Since", sandbox_local::time("20240101000000.000000+000")},
      {"Place", sandbox_local::instance(fan({{"Speed", uint32(7)}}))},
      {"System", sandbox_local::reference(link_path())},
      {"Levels", array_of(code::uint16, {uint16(1), uint16(2)})},
      {"Names",
       array_of(code::string, {sandbox_local::text("a"), sandbox_local::null_of(code::string)})},
      {"Places", array_of(code::instance, {sandbox_local::instance(fan({{"Speed", uint32(7)}}))})},
      {"Systems", array_of(code::reference, {sandbox_local::reference(fan_path())})},
  };
}

}  // namespace

std::string Answer::text() const {
  std::string text = std::to_string(result_);
  if (!record_) return text;
  char* bytes = nullptr;
  write_(record_, &bytes);
  text += std::string(" ") + (bytes ? bytes : "");
  std::free(bytes);
  return text;
}

const std::vector<LocalOperation>& local_operations() {
  static const std::vector<LocalOperation> operations = {
      {"EnumInstances", enum_instances, "EnumInstances: classname: CIM_Fan", -1, 0, 0,
       "enumInstances"},
      {"EnumInstanceNames", enum_instance_names, "EnumInstanceNames: classname: CIM_Fan", -1, 0, 0,
       "enumInstanceNames"},
      {"GetInstance", get_instance, "GetInstance: classname: CIM_Fan", -1, 0, 0, "getInstance"},
      {"GetClass", get_class, "GetClass: classname: CIM_Fan", -1, 0, 0, "getClass"},
      {"Associators", associators,
       "Associators: classname: CIM_Fan, assoc: CIM_SystemDevice, result: (null)", -1, 0, 0,
       "associators"},
      {"AssociatorNames", associator_names,
       "AssociatorNames: classname: CIM_Fan, assoc: (null), result: CIM_Chassis", -1, 0, 0,
       "associatorNames"},
      {"References", references, "References classname: CIM_Fan", 0, 0, 0, "references"},
      {"ReferenceNames", reference_names, "ReferenceNames classname: CIM_Fan", -1, 0, 0,
       "referenceNames"},
      {"CreateInstance", create_instance, "", -1, 0, 0, "createInstance"},
      {"ModifyInstance", modify_instance, "ModifyInstance: classname: CIM_Fan", -1, 0, 0,
       "setInstance"},
      {"DeleteInstance", delete_instance, "", -1, -1, -1, "deleteInstance"},
      {"InvokeMethod", invoke_method, "InvokeMethod classname: CIM_Fan", 2, 5, 0, "invokeMethod"},
      {"ExecQuery", exec_query, "ExecQuery:  Query SELECT * FROM CIM_Fan", -1, 0, 0, "execQuery"},
  };
  return operations;
}

BrokerScript rich_script() {
  BrokerScript script;
  sandbox_local::InstanceObject instance(link_path());
  instance.properties = rich_members();
  script.elements = {sandbox_local::instance(instance), sandbox_local::reference(link_path()),
                     sandbox_local::instance(instance), sandbox_local::reference(link_path())};
  script.instance = std::make_shared<sandbox_local::InstanceObject>(instance);
  script.found_class = std::make_shared<sandbox_local::ClassObject>("CIM_Fan");
  script.found_class->properties = rich_members();
  script.path = std::make_shared<sandbox_local::Path>(link_path());
  script.out = rich_members();
  return script;
}

}  // namespace support
