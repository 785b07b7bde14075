// The fifteen operations in one table, for what holds for all of them.
#include "operations/every_operation.h"

#include <ostream>

namespace operations_test {
namespace {

// ---- What results were ----

std::string name_of(const ClassName* name) { return name && name->name ? name->name : "?"; }
std::string name_of(const InstanceName* name) { return name ? name_of(name->className) : "?"; }
std::string name_of(const InstancePath* path) { return path ? name_of(path->instanceName) : "?"; }
std::string name_of(const Class* record) { return record->name ? record->name : "?"; }
std::string name_of(const Instance* record) { return name_of(record->className); }
std::string name_of(const NamedInstance* record) { return name_of(record->instanceName); }
std::string name_of(const ObjectPath* record) { return name_of(record->instancePath); }
std::string name_of(const ObjectWithPath* record) { return name_of(record->instancePath); }

// The names of a list's nodes; "null" for an empty one.  Up to 15 characters take no memory.
template <class Owner>
std::string tell(const Owner& list) {
  if (!list) return "null";
  std::string names;
  for (const auto* node = list.get(); node; node = node->next)
    names += (names.empty() ? "" : " ") + name_of(node);
  return names;
}

// ---- Calls ----
// Each takes the exported function of the operation.

template <auto operation>
std::string get_class(Handle* handle, Error** error_out) {
  static const auto name = class_name("CIM_Fan");
  return tell(OwnedClass(operation(handle, name.get(), 0, 1, 0, nullptr, error_out)));
}

template <auto operation>
std::string enumerate_classes(Handle* handle, Error** error_out) {
  static const auto name = class_name("CIM_Fan");
  return tell(OwnedClass(operation(handle, name.get(), 1, 0, 1, 0, error_out)));
}

template <auto operation>
std::string enumerate_class_names(Handle* handle, Error** error_out) {
  static const auto name = class_name("CIM_Fan");
  return tell(OwnedClassName(operation(handle, name.get(), 1, error_out)));
}

template <auto operation>
std::string enumerate_instances(Handle* handle, Error** error_out) {
  static const auto name = class_name("CIM_Fan");
  return tell(OwnedNamedInstance(operation(handle, name.get(), 0, 1, 0, 1, nullptr, error_out)));
}

template <auto operation>
std::string enumerate_instance_names(Handle* handle, Error** error_out) {
  static const auto name = class_name("CIM_Fan");
  return tell(OwnedInstanceName(operation(handle, name.get(), error_out)));
}

template <auto operation>
std::string get_instance(Handle* handle, Error** error_out) {
  static const auto name = instance_name("CIM_Fan", "left");
  return tell(OwnedInstance(operation(handle, name.get(), 0, 1, 0, nullptr, error_out)));
}

template <auto operation>
std::string create_instance(Handle* handle, Error** error_out) {
  static const auto record = instance("CIM_Fan", "100");
  return tell(OwnedInstanceName(operation(handle, record.get(), error_out)));
}

template <auto operation>
std::string modify_instance(Handle* handle, Error** error_out) {
  static const auto record = named_instance("CIM_Fan", "left", "100");
  return std::to_string(operation(handle, record.get(), 0, nullptr, error_out));
}

template <auto operation>
std::string delete_instance(Handle* handle, Error** error_out) {
  static const auto name = instance_name("CIM_Fan", "left");
  return std::to_string(operation(handle, name.get(), error_out));
}

template <auto operation>
std::string associators(Handle* handle, Error** error_out) {
  static const auto object = object_name(nullptr, instance_name("CIM_Fan", "left"));
  static const auto association = class_name("CIM_Cooling");
  static const auto result_class = class_name("CIM_Case");
  return tell(
      OwnedObjectWithPath(operation(handle, object.get(), association.get(), result_class.get(),
                                    "Cooler", "Cooled", 0, 1, nullptr, error_out)));
}

template <auto operation>
std::string associator_names(Handle* handle, Error** error_out) {
  static const auto object = object_name(nullptr, instance_name("CIM_Fan", "left"));
  static const auto association = class_name("CIM_Cooling");
  static const auto result_class = class_name("CIM_Case");
  return tell(OwnedObjectPath(operation(handle, object.get(), association.get(), result_class.get(),
                                        "Cooler", "Cooled", error_out)));
}

template <auto operation>
std::string references(Handle* handle, Error** error_out) {
  static const auto object = object_name(nullptr, instance_name("CIM_Fan", "left"));
  static const auto result_class = class_name("CIM_Cooling");
  return tell(OwnedObjectWithPath(
      operation(handle, object.get(), result_class.get(), "Cooler", 0, 1, nullptr, error_out)));
}

template <auto operation>
std::string reference_names(Handle* handle, Error** error_out) {
  static const auto object = object_name(nullptr, instance_name("CIM_Fan", "left"));
  static const auto result_class = class_name("CIM_Cooling");
  return tell(
      OwnedObjectPath(operation(handle, object.get(), result_class.get(), "Cooler", error_out)));
}

template <auto operation>
std::string invoke_method(Handle* handle, Error** error_out) {
  static const auto name = instance_name("CIM_Fan", "left");
  static const auto in = param_value("Wanted", "100");
  ParamValue* out = nullptr;
  const int returned = operation(handle, name.get(), "SetSpeed", in.get(), &out, error_out);
  const OwnedParamValue owned(out);
  return std::to_string(returned) + (out ? " " + std::string(out->name) : "");
}

template <auto operation>
std::string exec_query(Handle* handle, Error** error_out) {
  return tell(OwnedObjectWithPath(operation(handle, "WQL", "SELECT * FROM CIM_Fan", error_out)));
}

using Call = std::string (*)(Handle*, Error**);

// ---- Answers ----

const std::string fan_class =
    "<CLASS NAME=\"CIM_Fan\" SUPERCLASS=\"CIM_CoolingDevice\">\n"
    "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\">\n"
    "</PROPERTY>\n"
    "</CLASS>\n";

const std::string fan_name =
    "<INSTANCENAME CLASSNAME=\"CIM_Fan\">\n"
    "<KEYBINDING NAME=\"Name\">\n"
    "<KEYVALUE VALUETYPE=\"string\">left</KEYVALUE>\n"
    "</KEYBINDING>\n"
    "</INSTANCENAME>\n";

const std::string fan_instance =
    "<INSTANCE CLASSNAME=\"CIM_Fan\">\n"
    "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\">\n"
    "<VALUE>100</VALUE>\n"
    "</PROPERTY>\n"
    "<PROPERTY NAME=\"Alarm\" TYPE=\"string\">\n"
    "</PROPERTY>\n"
    "</INSTANCE>\n";

const std::string fan_path =
    "<INSTANCEPATH>\n"
    "<NAMESPACEPATH>\n"
    "<HOST>127.0.0.1</HOST>\n"
    "<LOCALNAMESPACEPATH>\n"
    "<NAMESPACE NAME=\"root\">\n"
    "</NAMESPACE>\n"
    "<NAMESPACE NAME=\"cimv2\">\n"
    "</NAMESPACE>\n"
    "</LOCALNAMESPACEPATH>\n"
    "</NAMESPACEPATH>\n" +
    fan_name + "</INSTANCEPATH>\n";

const std::string fan_with_path =
    "<VALUE.OBJECTWITHPATH>\n" + fan_path + fan_instance + "</VALUE.OBJECTWITHPATH>\n";

const std::string fan_object_path = "<OBJECTPATH>\n" + fan_path + "</OBJECTPATH>\n";

const std::string named_fan =
    "<VALUE.NAMEDINSTANCE>\n" + fan_name + fan_instance + "</VALUE.NAMEDINSTANCE>\n";

const std::string not_found = "<ERROR CODE=\"6\" DESCRIPTION=\"not found\"/>\n";

// An operation that returns a list; `content` is what stands in IRETURNVALUE.
Operation returning(const std::string& name, Call call, Call entry_point,
                    const std::string& content, const std::string& result) {
  return {.name = name,
          .call = call,
          .entry_point = entry_point,
          .answer = operation_answer(name, "<IRETURNVALUE>\n" + content + "</IRETURNVALUE>\n"),
          .result = result,
          .empty_answer = operation_answer(name, "<IRETURNVALUE>\n</IRETURNVALUE>\n"),
          .empty_result = "null",
          .error_answer = operation_answer(name, not_found),
          .nothing = "null",
          .refusal_result = "null",
          .reports_refusal = true};
}

// An operation that returns nothing.
Operation returning_nothing(const std::string& name, Call call, Call entry_point) {
  return {.name = name,
          .call = call,
          .entry_point = entry_point,
          .answer = operation_answer(name, ""),
          .result = "0",
          .empty_answer = operation_answer(name, "<IRETURNVALUE>\n</IRETURNVALUE>\n"),
          .empty_result = "0",
          .error_answer = operation_answer(name, not_found),
          .nothing = "0",
          .refusal_result = "1",
          .reports_refusal = true};
}

Operation method() {
  return {.name = "invokeMethod",
          .call = invoke_method<CIMC_XML_invokeMethod>,
          .entry_point = invoke_method<invokeMethod>,
          .answer = method_answer("SetSpeed",
                                  "<RETURNVALUE PARAMTYPE=\"uint32\">\n"
                                  "<VALUE>7</VALUE>\n"
                                  "</RETURNVALUE>\n"
                                  "<PARAMVALUE NAME=\"Reached\" PARAMTYPE=\"uint32\">\n"
                                  "<VALUE>90</VALUE>\n"
                                  "</PARAMVALUE>\n"),
          .result = "7 Reached",
          .empty_answer = method_answer("SetSpeed", ""),
          .empty_result = "-1",
          .error_answer = method_answer("SetSpeed", not_found),
          .nothing = "-1",
          .refusal_result = "-1",
          .reports_refusal = false};
}

}  // namespace

const std::vector<Operation>& every_operation() {
  static const std::vector<Operation> operations = {
      returning("GetClass", get_class<CIMC_XML_GetClass>, get_class<CIM_GetClass>, fan_class,
                "CIM_Fan"),
      returning("EnumerateClasses", enumerate_classes<CIMC_XML_EnumerateClasses>,
                enumerate_classes<CIM_EnumerateClasses>, fan_class + fan_class, "CIM_Fan CIM_Fan"),
      returning("EnumerateClassNames", enumerate_class_names<CIMC_XML_EnumerateClassNames>,
                enumerate_class_names<EnumerateClassNames>,
                "<CLASSNAME NAME=\"CIM_Fan\"/>\n<CLASSNAME NAME=\"CIM_Box\"/>\n",
                "CIM_Fan CIM_Box"),
      returning("EnumerateInstances", enumerate_instances<CIMC_XML_EnumerateInstances>,
                enumerate_instances<EnumerateInstances>, named_fan + named_fan, "CIM_Fan CIM_Fan"),
      returning("EnumerateInstanceNames", enumerate_instance_names<CIMC_XML_EnumerateInstanceNames>,
                enumerate_instance_names<EnumerateInstanceNames>, fan_name + fan_name,
                "CIM_Fan CIM_Fan"),
      returning("GetInstance", get_instance<CIMC_XML_GetInstance>, get_instance<GetInstance>,
                fan_instance, "CIM_Fan"),
      returning("CreateInstance", create_instance<CIMC_XML_CreateInstance>,
                create_instance<CIM_CreateInstance>, fan_name, "CIM_Fan"),
      returning_nothing("ModifyInstance", modify_instance<CIMC_XML_ModifyInstance>,
                        modify_instance<ModifyInstance>),
      returning_nothing("DeleteInstance", delete_instance<CIMC_XML_DeleteInstance>,
                        delete_instance<DeleteInstance>),
      returning("Associators", associators<CIMC_XML_Associators>, associators<Associators>,
                fan_with_path + fan_with_path, "CIM_Fan CIM_Fan"),
      returning("AssociatorNames", associator_names<CIMC_XML_AssociatorNames>,
                associator_names<AssociatorNames>, fan_object_path + fan_object_path,
                "CIM_Fan CIM_Fan"),
      returning("References", references<CIMC_XML_References>, references<References>,
                fan_with_path, "CIM_Fan"),
      returning("ReferenceNames", reference_names<CIMC_XML_ReferenceNames>,
                reference_names<ReferenceNames>, fan_name + fan_name, "CIM_Fan"),
      method(),
      returning("ExecQuery", exec_query<CIMC_XML_ExecQuery>, exec_query<ExecQuery>,
                fan_with_path + fan_with_path, "CIM_Fan CIM_Fan")};
  return operations;
}

std::ostream& operator<<(std::ostream& out, const Operation& operation) {
  return out << operation.name;
}

}  // namespace operations_test
