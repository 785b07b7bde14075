// Records and broker objects that the tests of the local back end share.
#pragma once

#include <cstdlib>
#include <initializer_list>
#include <string>
#include <utility>

#include "cim_client.h"
#include "handed_out.h"
#include "objects.h"

namespace support {

using Handle = struct client_Configuration;

// A handle of the local back end.
struct LocalHandle {
  LocalHandle() : get(client_Configuration("10.0.0.1", 5988, "root/cimv2", 0, "user", "secret")) {
    get->interface = 1;
  }
  LocalHandle(const LocalHandle&) = delete;
  LocalHandle& operator=(const LocalHandle&) = delete;
  ~LocalHandle() { Free_client_Configuration(get); }
  Handle* get;
};

// An instance name with text keys, released with the object.
struct Named {
  explicit Named(const char* class_name,
                 std::initializer_list<std::pair<const char*, const char*>> keys = {
                     {"DeviceID", "fan1"}}) {
    KeyBinding* bindings = nullptr;
    for (const auto& [name, value] : keys)
      AddToKeyBindingListRef(&bindings, name, value, "string", nullptr);
    AddToInstanceNameList(&get, bindings, CIMC_CreateClassName(class_name), nullptr);
  }
  Named(const Named&) = delete;
  Named& operator=(const Named&) = delete;
  ~Named() { Free_InstanceName(get); }
  InstanceName* get = nullptr;
};

// The bytes of a record, as the writer gives them; "" for null.  The record is released.
template <class R>
std::string taken(R* record, int (*write)(R*, char**), int (*release)(R*)) {
  char* output = nullptr;
  write(record, &output);
  std::string bytes = output ? output : "";
  std::free(output);
  release(record);
  return bytes;
}

// "code: description" of an error, which is released; "" for none.
inline std::string taken(Error* error) {
  if (!error) return "";
  std::string text = std::string(error->code ? error->code : "") + ": " +
                     (error->description ? error->description : "");
  Free_Error(error);
  return text;
}

// ---- Broker objects ----

inline sandbox_local::Path fan_path(const char* id = "fan1") {
  sandbox_local::Path path("root/cimv2", "CIM_Fan");
  sandbox_local::member(path.keys, "DeviceID") = sandbox_local::text(id);
  return path;
}

inline sandbox_local::InstanceObject fan(
    std::initializer_list<sandbox_local::Member> properties = {}) {
  sandbox_local::InstanceObject instance(fan_path());
  instance.properties = properties;
  return instance;
}

template <class Number>
sandbox_local::Datum number(sandbox_local::CIMCType type, Number sandbox_local::CIMCValue::*place,
                            Number value) {
  sandbox_local::CIMCValue slot{};
  slot.*place = value;
  return sandbox_local::number(type, slot);
}

inline sandbox_local::Datum uint16(std::uint16_t value) {
  return number(sandbox_local::code::uint16, &sandbox_local::CIMCValue::uint16, value);
}
inline sandbox_local::Datum uint32(std::uint32_t value) {
  return number(sandbox_local::code::uint32, &sandbox_local::CIMCValue::uint32, value);
}

inline constexpr char fan_name_bytes[] =
    "<INSTANCENAME CLASSNAME=\"CIM_Fan\"><KEYBINDING NAME=\"DeviceID\">"
    "<KEYVALUE VALUETYPE = \"string\">fan1</KEYVALUE></KEYBINDING></INSTANCENAME>";

}  // namespace support
