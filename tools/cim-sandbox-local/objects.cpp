// Making and releasing objects.
#include "objects.h"

#include <cstring>
#include <utility>

#include "handed_out.h"
#include "tables.h"

namespace sandbox_local {

Text::Text(std::string content) : text(std::move(content)) {
  hdl = text.data();  // clients read the characters here
  ft = &string_table;
}

Time::Time(std::string content) : text(std::move(content)) {
  hdl = this;
  ft = &date_time_table;
}

Path::Path(std::string name_space_text, std::string class_text)
    : name_space(std::move(name_space_text)), class_name(std::move(class_text)) {
  hdl = this;
  ft = &path_table;
}

Path::Path(const Path& other) : Path(other.name_space, other.class_name) { keys = other.keys; }

InstanceObject::InstanceObject(const Path& instance_path) : path(instance_path) {
  hdl = this;
  ft = &instance_table;
}

InstanceObject::InstanceObject(const InstanceObject& other) : InstanceObject(other.path) {
  properties = other.properties;
}

ClassObject::ClassObject(std::string class_name) : name(std::move(class_name)) {
  hdl = this;
  ft = &class_table;
}

ClassObject::ClassObject(const ClassObject& other) : ClassObject(other.name) {
  superclass = other.superclass;
  properties = other.properties;
  is_association = other.is_association;
  is_abstract = other.is_abstract;
  is_indication = other.is_indication;
}

ArrayObject::ArrayObject(std::size_t size, CIMCType element_type)
    : element(element_type), elements(size, null_of(element_type)) {
  hdl = this;
  ft = &array_table;
}

ArrayObject::ArrayObject(const ArrayObject& other)
    : ArrayObject(other.elements.size(), other.element) {
  elements = other.elements;
}

Arguments::Arguments() {
  hdl = this;
  ft = &args_table;
}

Arguments::Arguments(const Arguments& other) : Arguments() { members = other.members; }

Enumeration::Enumeration(std::vector<Datum> content) : elements(std::move(content)) {
  hdl = this;
  ft = &enumeration_table;
}

// ---- Values ----

Datum null_of(CIMCType type) {
  Datum datum;
  datum.type = type;
  return datum;
}

Datum number(CIMCType type, CIMCValue value) {
  Datum datum;
  datum.type = type;
  datum.state = state_good;
  // Clients hand in eight bytes, whatever the size of a value.
  std::memcpy(&datum.value, &value, sizeof(std::uint64_t));
  return datum;
}

namespace {

template <class Made>
Datum holding(CIMCType type, std::shared_ptr<Made> object, auto CIMCValue::*place) {
  Datum datum;
  datum.type = type;
  datum.state = state_good;
  datum.value.*place = object.get();
  datum.inside = std::move(object);
  return datum;
}

}  // namespace

Datum text(std::string content) {
  return holding(code::string, std::make_shared<Text>(std::move(content)), &CIMCValue::string);
}

Datum time(std::string content) {
  return holding(code::datetime, std::make_shared<Time>(std::move(content)), &CIMCValue::dateTime);
}

Datum reference(const Path& path) {
  return holding(code::reference, std::make_shared<Path>(path), &CIMCValue::ref);
}

Datum instance(const InstanceObject& object) {
  return holding(code::instance, std::make_shared<InstanceObject>(object), &CIMCValue::inst);
}

Datum array(const ArrayObject& object) {
  const auto type = static_cast<CIMCType>(object.element | code::array);
  return holding(type, std::make_shared<ArrayObject>(object), &CIMCValue::array);
}

Datum copy_in(const CIMCValue* value, CIMCType type) {
  if (!value) return null_of(type);
  if (type == code::chars) return text(reinterpret_cast<const char*>(value));
  if (type & code::array) return value->array ? array(self(value->array)) : null_of(type);
  switch (type) {
    case code::string:
      return value->string ? text(self(value->string).text) : null_of(type);
    case code::datetime:
      return value->dateTime ? time(self(value->dateTime).text) : null_of(type);
    case code::reference:
      return value->ref ? reference(self(value->ref)) : null_of(type);
    case code::instance:
      return value->inst ? instance(self(value->inst)) : null_of(type);
    default: {
      CIMCValue eight_bytes{};
      std::memcpy(&eight_bytes, value, sizeof(std::uint64_t));
      return number(type, eight_bytes);
    }
  }
}

Datum& member(std::vector<Member>& members, std::string_view name) {
  for (Member& existing : members)
    if (existing.name == name) return existing.datum;
  return members.emplace_back(Member{std::string(name), {}}).datum;
}

const Datum* find(const std::vector<Member>& members, std::string_view name) {
  for (const Member& existing : members)
    if (existing.name == name) return &existing.datum;
  return nullptr;
}

// ---- Descriptions ----

namespace {

std::string describe_elements(const ArrayObject& object) {
  std::string out = "[";
  for (const Datum& element : object.elements) {
    if (out.size() > 1) out += ", ";
    out += describe(element);
  }
  return out + "]";
}

std::string describe_instance(const InstanceObject& object) {
  std::string out = "instance of " + object.path.class_name + " {";
  for (const Member& property : object.properties)
    out += " " + property.name + "=" + describe(property.datum);
  return out + " }";
}

std::string describe_number(CIMCType type, const CIMCValue& value) {
  switch (type) {
    case code::boolean:
      return value.boolean ? "boolean true" : "boolean false";
    case code::char16:
      return "char16 " + std::to_string(value.char16);
    case code::real32:
      return "real32 " + std::to_string(value.real32);
    case code::real64:
      return "real64 " + std::to_string(value.real64);
    case code::uint8:
      return "uint8 " + std::to_string(value.uint8);
    case code::uint16:
      return "uint16 " + std::to_string(value.uint16);
    case code::uint32:
      return "uint32 " + std::to_string(value.uint32);
    case code::uint64:
      return "uint64 " + std::to_string(value.uint64);
    case code::sint8:
      return "sint8 " + std::to_string(value.sint8);
    case code::sint16:
      return "sint16 " + std::to_string(value.sint16);
    case code::sint32:
      return "sint32 " + std::to_string(value.sint32);
    case code::sint64:
      return "sint64 " + std::to_string(value.sint64);
    default:
      return "type " + std::to_string(type);
  }
}

}  // namespace

std::string describe(const Datum& datum) {
  if (datum.state != state_good) return "null " + std::to_string(datum.type);
  if (datum.type & code::array)
    return describe_elements(static_cast<const ArrayObject&>(*datum.inside));
  switch (datum.type) {
    case code::string:
      return '"' + static_cast<const Text&>(*datum.inside).text + '"';
    case code::datetime:
      return "datetime " + static_cast<const Time&>(*datum.inside).text;
    case code::reference:
      return "reference " + describe(static_cast<const Path&>(*datum.inside));
    case code::instance:
      return describe_instance(static_cast<const InstanceObject&>(*datum.inside));
    default:
      return describe_number(datum.type, datum.value);
  }
}

std::string describe(const Path& path) {
  std::string out = path.name_space + ":" + path.class_name;
  const char* separator = ".";
  for (const Member& key : path.keys) {
    out += separator + key.name + "=" + describe(key.datum);
    separator = ",";
  }
  return out;
}

}  // namespace sandbox_local
