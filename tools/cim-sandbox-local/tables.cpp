// What each slot of the tables does.
#include "tables.h"

#include <cstdlib>
#include <cstring>

#include "broker.h"
#include "handed_out.h"

namespace sandbox_local {
namespace {

constexpr int failed = 1;  // CIM status codes
constexpr int no_such_property = 12;
constexpr int invalid_parameter = 4;

CIMCData not_found(CIMCStatus* status) {
  set_status(status, no_such_property);
  return {code::null, state_not_found, {}};
}

CIMCData named(const std::vector<Member>& members, const char* name, CIMCStatus* status) {
  const Datum* datum = find(members, name);
  if (!datum) return not_found(status);
  set_status(status, 0);
  return datum->data();
}

// A member by its position; its name becomes the client's.
CIMCData at(const std::vector<Member>& members, unsigned index, CIMCString** name,
            CIMCStatus* status) {
  if (index >= members.size()) return not_found(status);
  set_status(status, 0);
  if (name) *name = give_text(members[index].name);
  return members[index].datum.data();
}

unsigned count(const std::vector<Member>& members, CIMCStatus* status) {
  set_status(status, 0);
  return static_cast<unsigned>(members.size());
}

CIMCString* text_out(std::string_view content, CIMCStatus* status) {
  set_status(status, 0);
  return give_text(content);
}

CIMCStatus store(std::vector<Member>& members, const char* call, const char* name,
                 const CIMCValue* value, CIMCType type) {
  if (!name) return {invalid_parameter, nullptr};
  if (broker_of_process().refuses(call)) return {failed, nullptr};
  Datum& datum = member(members, name) = copy_in(value, type);
  Ledger::of_process().note([&] {
    return std::string(std::string(call) + " " + name + " " + std::to_string(type) + " " +
                       describe(datum));
  });
  return {0, nullptr};
}

CIMCData no_qualifier(CIMCStatus* status) { return not_found(status); }

// ---- Strings and date-times ----

char* get_char_ptr(CIMCString* string, CIMCStatus* status) {
  set_status(status, 0);
  return static_cast<char*>(string->hdl);  // a script may have taken the characters away
}

std::uint64_t get_binary_format(CIMCDateTime*, CIMCStatus* status) {
  set_status(status, 0);
  return 0;
}
CIMCString* get_string_format(CIMCDateTime* time, CIMCStatus* status) {
  return text_out(self(time).text, status);
}
CIMCBoolean is_interval(CIMCDateTime* time, CIMCStatus* status) {
  set_status(status, 0);
  return self(time).text.find(':') != std::string::npos;
}

// ---- Object paths ----

CIMCStatus set_name_space(CIMCObjectPath* path, const char* name) {
  self(path).name_space = name ? name : "";
  return {0, nullptr};
}
CIMCString* get_name_space(CIMCObjectPath* path, CIMCStatus* status) {
  return text_out(self(path).name_space, status);
}
CIMCStatus set_host_name(CIMCObjectPath*, const char*) { return {0, nullptr}; }
CIMCString* get_host_name(CIMCObjectPath*, CIMCStatus* status) {
  return text_out("localhost", status);
}
CIMCStatus set_class_name(CIMCObjectPath* path, const char* name) {
  self(path).class_name = name ? name : "";
  return {0, nullptr};
}
CIMCString* class_name_out(std::string_view name, CIMCStatus* status) {
  if (!broker_of_process().refuses("getClassName")) return text_out(name, status);
  set_status(status, failed);
  return nullptr;
}
CIMCString* get_class_name(CIMCObjectPath* path, CIMCStatus* status) {
  return class_name_out(self(path).class_name, status);
}
CIMCStatus add_key(CIMCObjectPath* path, const char* name, CIMCValue* value, CIMCType type) {
  return store(self(path).keys, "addKey", name, value, type);
}
CIMCData get_key(CIMCObjectPath* path, const char* name, CIMCStatus* status) {
  return named(self(path).keys, name, status);
}
CIMCData get_key_at(CIMCObjectPath* path, unsigned index, CIMCString** name, CIMCStatus* status) {
  return at(self(path).keys, index, name, status);
}
unsigned get_key_count(CIMCObjectPath* path, CIMCStatus* status) {
  return count(self(path).keys, status);
}
CIMCStatus take_name_space(CIMCObjectPath* path, CIMCObjectPath* from) {
  self(path).name_space = self(from).name_space;
  return {0, nullptr};
}
CIMCString* path_text(CIMCObjectPath* path, CIMCStatus* status) {
  return text_out(describe(self(path)), status);
}

// ---- Instances ----

CIMCData get_property(CIMCInstance* instance, const char* name, CIMCStatus* status) {
  return named(self(instance).properties, name, status);
}
CIMCData get_property_at(CIMCInstance* instance, unsigned index, CIMCString** name,
                         CIMCStatus* status) {
  return at(self(instance).properties, index, name, status);
}
unsigned get_property_count(CIMCInstance* instance, CIMCStatus* status) {
  return count(self(instance).properties, status);
}
CIMCStatus set_property(CIMCInstance* instance, const char* name, CIMCValue* value, CIMCType type) {
  return store(self(instance).properties, "setProperty", name, value, type);
}
CIMCObjectPath* get_object_path(CIMCInstance* instance, CIMCStatus* status) {
  set_status(status, 0);
  return give<CIMCObjectPath>(std::make_unique<Path>(self(instance).path));
}
CIMCStatus set_property_filter(CIMCInstance*, char**, char**) { return {0, nullptr}; }
CIMCData instance_qualifier(CIMCInstance*, const char*, CIMCStatus* s) { return no_qualifier(s); }
CIMCData instance_qualifier_at(CIMCInstance*, unsigned, CIMCString**, CIMCStatus* s) {
  return no_qualifier(s);
}
unsigned instance_qualifier_count(CIMCInstance*, CIMCStatus* s) { return count({}, s); }
CIMCData instance_property_qualifier(CIMCInstance*, const char*, const char*, CIMCStatus* s) {
  return no_qualifier(s);
}
CIMCData instance_property_qualifier_at(CIMCInstance*, const char*, unsigned, CIMCString**,
                                        CIMCStatus* s) {
  return no_qualifier(s);
}
unsigned instance_property_qualifier_count(CIMCInstance*, const char*, CIMCStatus* s) {
  return count({}, s);
}

// ---- Classes ----

CIMCString* class_name(CIMCClass* object, CIMCStatus* status) {
  return class_name_out(self(object).name, status);
}
CIMCData class_property(CIMCClass* object, const char* name, CIMCStatus* status) {
  return named(self(object).properties, name, status);
}
CIMCData class_property_at(CIMCClass* object, CIMCCount index, CIMCString** name,
                           CIMCStatus* status) {
  return at(self(object).properties, index, name, status);
}
CIMCCount class_property_count(CIMCClass* object, CIMCStatus* status) {
  return count(self(object).properties, status);
}
CIMCData class_qualifier(CIMCClass*, const char*, CIMCStatus* s) { return no_qualifier(s); }
CIMCData class_qualifier_at(CIMCClass*, CIMCCount, CIMCString**, CIMCStatus* s) {
  return no_qualifier(s);
}
CIMCCount class_qualifier_count(CIMCClass*, CIMCStatus* s) { return count({}, s); }
CIMCData class_property_qualifier(CIMCClass*, const char*, const char*, CIMCStatus* s) {
  return no_qualifier(s);
}
CIMCData class_property_qualifier_at(CIMCClass*, const char*, CIMCCount, CIMCString**,
                                     CIMCStatus* s) {
  return no_qualifier(s);
}
CIMCCount class_property_qualifier_count(CIMCClass*, const char*, CIMCStatus* s) {
  return count({}, s);
}
CIMCString* superclass_name(CIMCClass* object, CIMCStatus* status) {
  return text_out(self(object).superclass, status);
}
CIMCArray* key_list(CIMCClass*) {
  return give<CIMCArray>(std::make_unique<ArrayObject>(0, code::string));
}
char* class_text(CIMCClass* object) { return ::strdup(self(object).name.c_str()); }
void relocate(CIMCClass*) {}
const char* class_characters(CIMCClass* object) { return self(object).name.c_str(); }
const char* superclass_characters(CIMCClass* object) { return self(object).superclass.c_str(); }
CIMCBoolean is_association(CIMCClass* object) { return self(object).is_association; }
CIMCBoolean is_abstract(CIMCClass* object) { return self(object).is_abstract; }
CIMCBoolean is_indication(CIMCClass* object) { return self(object).is_indication; }

// ---- Arrays ----

CIMCCount get_size(CIMCArray* array, CIMCStatus* status) {
  set_status(status, 0);
  return static_cast<CIMCCount>(self(array).elements.size());
}
CIMCType get_simple_type(CIMCArray* array, CIMCStatus* status) {
  set_status(status, 0);
  return self(array).element;
}
CIMCData get_element_at(CIMCArray* array, CIMCCount index, CIMCStatus* status) {
  if (index >= self(array).elements.size()) return not_found(status);
  set_status(status, 0);
  return self(array).elements[index].data();
}
CIMCStatus set_element_at(CIMCArray* array, CIMCCount index, CIMCValue* value, CIMCType type) {
  ArrayObject& object = self(array);
  if (index >= object.elements.size()) return {invalid_parameter, nullptr};
  object.elements[index] = copy_in(value, type);
  Ledger::of_process().note([&] {
    return std::string("setElementAt " + std::to_string(index) + " " + std::to_string(type) + " " +
                       describe(object.elements[index]));
  });
  return {0, nullptr};
}

// ---- Arguments and enumerations ----

CIMCStatus add_arg(CIMCArgs* args, const char* name, CIMCValue* value, CIMCType type) {
  if (!name) return {invalid_parameter, nullptr};
  // An array comes under its bare flag; its elements tell their type.
  Datum datum = copy_in(value, type);
  Ledger::of_process().note([&] {
    return std::string(std::string("addArg ") + name + " " + std::to_string(type) + " " +
                       describe(datum));
  });
  self(args).members.push_back({name, std::move(datum)});
  return {0, nullptr};
}
CIMCData get_arg(CIMCArgs* args, const char* name, CIMCStatus* status) {
  return named(self(args).members, name, status);
}
CIMCData get_arg_at(CIMCArgs* args, unsigned index, CIMCString** name, CIMCStatus* status) {
  return at(self(args).members, index, name, status);
}
unsigned get_arg_count(CIMCArgs* args, CIMCStatus* status) {
  return count(self(args).members, status);
}

CIMCData get_next(CIMCEnumeration* enumeration, CIMCStatus* status) {
  Enumeration& object = self(enumeration);
  if (object.next >= object.elements.size()) return not_found(status);
  set_status(status, 0);
  return object.elements[object.next++].data();
}
CIMCBoolean has_next(CIMCEnumeration* enumeration, CIMCStatus* status) {
  set_status(status, 0);
  return self(enumeration).next < self(enumeration).elements.size();
}
CIMCArray* to_array(CIMCEnumeration* enumeration, CIMCStatus* status) {
  set_status(status, 0);
  auto result = std::make_unique<ArrayObject>(0, code::instance);
  result->elements = self(enumeration).elements;
  return give<CIMCArray>(std::move(result));
}

}  // namespace

CIMCStringFT string_table = {1, release, clone, get_char_ptr};
CIMCDateTimeFT date_time_table = {1,          release, clone, get_binary_format, get_string_format,
                                  is_interval};
// The qualifier slots of paths are empty in the field.
CIMCObjectPathFT path_table = {1,
                               release,
                               clone,
                               set_name_space,
                               get_name_space,
                               set_host_name,
                               get_host_name,
                               set_class_name,
                               get_class_name,
                               add_key,
                               get_key,
                               get_key_at,
                               get_key_count,
                               take_name_space,
                               take_name_space,
                               nullptr,
                               nullptr,
                               nullptr,
                               nullptr,
                               path_text};
CIMCInstanceFT instance_table = {1,
                                 release,
                                 clone,
                                 get_property,
                                 get_property_at,
                                 get_property_count,
                                 set_property,
                                 get_object_path,
                                 set_property_filter,
                                 instance_qualifier,
                                 instance_qualifier_at,
                                 instance_qualifier_count,
                                 instance_property_qualifier,
                                 instance_property_qualifier_at,
                                 instance_property_qualifier_count};
CIMCClassFT class_table = {1,
                           release,
                           clone,
                           class_name,
                           class_property,
                           class_property_at,
                           class_property_count,
                           class_qualifier,
                           class_qualifier_at,
                           class_qualifier_count,
                           class_property_qualifier,
                           class_property_qualifier_at,
                           class_property_qualifier_count,
                           superclass_name,
                           key_list,
                           class_text,
                           relocate,
                           class_characters,
                           superclass_characters,
                           is_association,
                           is_abstract,
                           is_indication,
                           nullptr};
CIMCArrayFT array_table = {
    1, release, clone, get_size, get_simple_type, get_element_at, set_element_at};
CIMCArgsFT args_table = {1, release, clone, add_arg, get_arg, get_arg_at, get_arg_count};
CIMCEnumerationFT enumeration_table = {1, release, clone, get_next, has_next, to_array};

}  // namespace sandbox_local
