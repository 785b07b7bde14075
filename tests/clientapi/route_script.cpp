// A conversation with an object manager, the same whichever route it takes.
#include "clientapi/route_script.h"

#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace support {
namespace {

using Handle = struct client_Configuration;

struct Key {
  const char* name;
  const char* value;
};

struct Free {
  void operator()(ClassName* record) const { Free_ClassName(record); }
  void operator()(InstanceName* record) const { Free_InstanceName(record); }
  void operator()(Instance* record) const { Free_Instance(record); }
  void operator()(ParamValue* record) const { Free_ParamValue(record); }
};
using Name = std::unique_ptr<InstanceName, Free>;
using ClassText = std::unique_ptr<ClassName, Free>;
using Parameters = std::unique_ptr<ParamValue, Free>;
using NewInstance = std::unique_ptr<Instance, Free>;

ClassText class_text(const char* text) { return ClassText(CIMC_CreateClassName(text)); }

Name name_of(const char* class_name, std::initializer_list<Key> keys) {
  KeyBinding* bindings = nullptr;
  for (const Key& key : keys)
    AddToKeyBindingListRef(&bindings, key.name, key.value, "string", nullptr);
  InstanceName* name = nullptr;
  AddToInstanceNameList(&name, bindings, CIMC_CreateClassName(class_name), nullptr);
  return Name(name);
}

Name fan(const char* id) { return name_of("CIM_Fan", {{"DeviceID", id}}); }

struct Typed {
  const char* name;
  const char* type;
  std::vector<std::string> values;
};

// A single value makes a property, several make an array.
NewInstance instance_of(const char* class_name, const std::vector<Typed>& given) {
  Property* properties = nullptr;
  PropertyArray* arrays = nullptr;
  for (const Typed& one : given) {
    if (one.values.size() == 1) {
      std::string text = one.values[0];
      AddToProeprtyList(&properties, one.name, text.data(), one.type);
    } else {
      auto* values = static_cast<ValueArray*>(std::calloc(1, sizeof(ValueArray)));
      for (const std::string& text : one.values) AddToValueList(&values->values, text.c_str());
      AddToPropertyArrayList(&arrays, one.name, values, one.type);
    }
  }
  Instance* instance = nullptr;
  AddToInstanceList(&instance, CIMC_CreateClassName(class_name), nullptr, arrays, properties);
  return NewInstance(instance);
}

// An association between a fan and a system.
NewInstance cooling(const char* fan_id, const char* system) {
  const auto add = [](PropertyReference** list, const char* name, const char* class_name,
                      std::initializer_list<Key> keys) {
    KeyBinding* bindings = nullptr;
    for (const Key& key : keys)
      AddToKeyBindingListRef(&bindings, key.name, key.value, "string", nullptr);
    auto* name_space = static_cast<Namespace*>(std::calloc(1, sizeof(Namespace)));
    Clone_CIMName("root/cimv2", &name_space->name);
    AddToPropertyReferenceList(list, bindings, name_space, class_name, name);
  };
  PropertyReference* references = nullptr;
  add(&references, "Antecedent", "CIM_Fan", {{"DeviceID", fan_id}});
  add(&references, "Dependent", "CIM_ComputerSystem",
      {{"CreationClassName", "CIM_ComputerSystem"}, {"Name", system}});
  Instance* instance = nullptr;
  AddToInstanceList(&instance, CIMC_CreateClassName("CIM_AssociatedCooling"), references, nullptr,
                    nullptr);
  return NewInstance(instance);
}

ParamValue* parameter(const char* name, const char* type) {
  auto* made = static_cast<ParamValue*>(std::calloc(1, sizeof(ParamValue)));
  Clone_CIMName(name, &made->name);
  Clone_ParamType(type, &made->paramType);
  return made;
}

Parameters parameters(const std::vector<Typed>& given) {
  ParamValue* list = nullptr;
  ParamValue** last = &list;
  for (const Typed& one : given) {
    *last = parameter(one.name, one.type);
    if (one.values.size() == 1) {
      AddToValueList(&(*last)->value, one.values[0].c_str());
    } else {
      (*last)->valueArray = static_cast<ValueArray*>(std::calloc(1, sizeof(ValueArray)));
      for (const std::string& text : one.values)
        AddToValueList(&(*last)->valueArray->values, text.c_str());
    }
    last = &(*last)->next;
  }
  return Parameters(list);
}

// One question after the other, with its answer noted.
class Conversation {
 public:
  explicit Conversation(Handle* handle) : handle_(handle) {}

  Lines take() { return std::move(lines_); }

  void enumerate(const std::string& title, const char* class_name, unsigned deep) {
    const ClassText name = class_text(class_name);
    note(title, EnumerateInstances(handle_, name.get(), 0, deep, 0, 0, nullptr, &error_),
         Free_NamedInstance);
  }

  void names(const std::string& title, const char* class_name) {
    const ClassText name = class_text(class_name);
    note(title, EnumerateInstanceNames(handle_, name.get(), &error_), Free_InstanceName);
  }

  void get(const std::string& title, const Name& name) {
    note(title, GetInstance(handle_, name.get(), 0, 0, 0, nullptr, &error_), Free_Instance);
  }

  void associated(const std::string& title, const Name& name, const char* association,
                  const char* result) {
    ObjectName object{nullptr, name.get()};
    const ClassText first = class_text(association);
    const ClassText second = class_text(result);
    ClassName* association_class = association ? first.get() : nullptr;
    ClassName* result_class = result ? second.get() : nullptr;
    note(title + " associators",
         Associators(handle_, &object, association_class, result_class, nullptr, nullptr, 0, 0,
                     nullptr, &error_),
         Free_ObjectWithPath);
    note(title + " associator names",
         AssociatorNames(handle_, &object, association_class, result_class, nullptr, nullptr,
                         &error_),
         Free_ObjectPath);
    note(title + " references",
         References(handle_, &object, association_class, nullptr, 0, 0, nullptr, &error_),
         Free_ObjectWithPath);
    // The names of several paths come in one record over CIM-XML.
    ObjectPath* paths = ReferenceNames(handle_, &object, association_class, nullptr, &error_);
    note(title + " reference names", paths, Free_ObjectPath);
  }

  void query(const std::string& title, const char* language, const char* text) {
    note(title, ExecQuery(handle_, language, text, &error_), Free_ObjectWithPath);
  }

  void create(const std::string& title, const NewInstance& instance) {
    note(title, CIM_CreateInstance(handle_, instance.get(), &error_), Free_InstanceName);
  }

  void modify(const std::string& title, const Name& name, const NewInstance& instance) {
    NamedInstance modified{name.get(), instance.get(), nullptr};
    note_result(title, ModifyInstance(handle_, &modified, 2, nullptr, &error_));
  }

  void references(const std::string& title, const Name& name, const char* association) {
    ObjectName object{nullptr, name.get()};
    const ClassText class_name = class_text(association);
    note(title, References(handle_, &object, class_name.get(), nullptr, 0, 0, nullptr, &error_),
         Free_ObjectWithPath);
  }

  void remove(const std::string& title, const Name& name) {
    note_result(title, DeleteInstance(handle_, name.get(), &error_));
  }

  void invoke(const std::string& title, const Name& name, const char* method,
              const Parameters& in = nullptr) {
    ParamValue* out = nullptr;
    note_result(title, invokeMethod(handle_, name.get(), method, in.get(), &out, &error_));
    add_lines(lines_, title, out);
    Free_ParamValue(out);
  }

  void classes(const std::string& title, const char* class_name) {
    const ClassText name = class_text(class_name);
    note(title + " class", CIM_GetClass(handle_, name.get(), 0, 0, 0, nullptr, &error_),
         Free_Class);
    note(title + " class names", EnumerateClassNames(handle_, name.get(), 1, &error_),
         Free_ClassName);
    note(title + " classes", CIM_EnumerateClasses(handle_, name.get(), 1, 1, 0, 0, &error_),
         Free_Class);
  }

 private:
  template <class Record>
  void note(const std::string& title, Record* record, int (*release)(Record*)) {
    if (record) {
      add_lines(lines_, title, record);
    } else {
      lines_[title] = "nothing";
    }
    release(record);
    note_error(title);
  }

  void note_result(const std::string& title, long result) {
    lines_[title + " result"] = std::to_string(result);
    note_error(title);
  }

  void note_error(const std::string& title) {
    add_lines(lines_, title + " error", error_);
    Free_Error(error_);
    error_ = nullptr;
  }

  Handle* handle_;
  Lines lines_;
  Error* error_ = nullptr;
};

void read(Conversation& ask) {
  ask.names("names of fans", "CIM_Fan");
  ask.names("names of systems", "CIM_ComputerSystem");
  ask.names("names of packages", "CIM_ComputerSystemPackage");
  ask.names("names of nothing", "CIM_Nothing");
  ask.enumerate("fans", "CIM_Fan", 1);
  ask.enumerate("shallow devices", "CIM_LogicalDevice", 0);
  ask.enumerate("systems", "CIM_ComputerSystem", 1);
  ask.enumerate("chassis", "CIM_Chassis", 1);
  ask.enumerate("supplies", "CIM_PowerSupply", 1);
  ask.enumerate("every type", "Sandbox_EveryType", 1);
  ask.enumerate("typed keys", "Sandbox_TypedKeys", 1);
  ask.enumerate("packages", "CIM_ComputerSystemPackage", 1);
  ask.enumerate("instances of nothing", "CIM_Nothing", 1);
  ask.get("get fan1", fan("fan1"));
  ask.get("get fan99", fan("fan99"));
  ask.get("get by number", name_of("Sandbox_EveryType", {{"Id", "1"}}));
  ask.associated("fan1", fan("fan1"), nullptr, nullptr);
  ask.associated("fan1 in system", fan("fan1"), "CIM_SystemDevice", "CIM_ComputerSystem");
  ask.associated("fan99", fan("fan99"), nullptr, nullptr);
  ask.query("query", "WQL", "SELECT * FROM CIM_Fan WHERE DeviceID = \"fan2\"");
  ask.query("wrong query", "WQL", "SELECT FROM");
  ask.query("unknown language", "CQL", "SELECT * FROM CIM_Fan");
  ask.classes("fan", "CIM_LogicalDevice");
}

void change(Conversation& ask) {
  ask.modify("modify", fan("fan1"), instance_of("CIM_Fan", {{"DesiredSpeed", "uint64", {"5100"}}}));
  ask.get("get modified", fan("fan1"));
  ask.modify("modify beyond 32 bits", fan("fan1"),
             instance_of("CIM_Fan", {{"DesiredSpeed", "uint64", {"5000000000"}}}));
  ask.get("get modified beyond 32 bits", fan("fan1"));
  ask.modify("modify fan99", fan("fan99"),
             instance_of("CIM_Fan", {{"DesiredSpeed", "uint64", {"1"}}}));
  ask.create("create",
             instance_of("CIM_Chassis", {{"Tag", "string", {"chassis2"}},
                                         {"ChassisPackageType", "uint16", {"17", "23"}},
                                         {"StatusDescriptions", "string", {"a", "b"}},
                                         {"InstallDate", "datetime", {"20240131235959.000000+060"}},
                                         {"CoverOpen", "boolean", {"TRUE"}},
                                         {"Weight", "real32", {"2.5"}}}));
  const auto chassis = [] { return name_of("CIM_Chassis", {{"Tag", "chassis2"}}); };
  ask.get("get created", chassis());
  ask.create("create again", instance_of("CIM_Chassis", {{"Tag", "string", {"chassis2"}}}));
  ask.create("create cooling", cooling("fan3", "server1"));
  ask.references("fan3 references", fan("fan3"), "CIM_AssociatedCooling");
  ask.remove("delete", chassis());
  ask.remove("delete again", chassis());
}

void invoke(Conversation& ask) {
  ask.invoke("stop", fan("fan1"), "Stop");
  ask.invoke("stop again", fan("fan1"), "Stop");
  ask.invoke("set speed", fan("fan2"), "SetSpeed", parameters({{"Speed", "uint64", {"3000"}}}));
  ask.invoke("unknown method", fan("fan1"), "Fly");
  const auto system = [] {
    return name_of("CIM_ComputerSystem",
                   {{"CreationClassName", "CIM_ComputerSystem"}, {"Name", "server1"}});
  };
  ParamValue* place = parameter("NewLocation", "string");
  place->value = static_cast<Value*>(std::calloc(1, sizeof(Value)));
  place->value->isCData = 1;
  place->value->instance =
      instance_of("Sandbox_Location", {{"Building", "string", {"East"}}}).release();
  Property* const properties = place->value->instance->properties;
  const Parameters in(place);
  ask.invoke("move", system(), "Move", in);
  place->value->instance->properties = properties;  // over HTTP they are unhooked in writing
  ask.query("moved", "WQL", "SELECT * FROM CIM_ComputerSystem WHERE Location ISA Sandbox_Location");
  ask.invoke("reboot", system(), "Reboot", parameters({{"Delay", "uint32", {"0"}}}));
}

}  // namespace

Lines converse(struct client_Configuration* handle) {
  Conversation ask(handle);
  read(ask);
  change(ask);
  invoke(ask);
  return ask.take();
}

}  // namespace support
