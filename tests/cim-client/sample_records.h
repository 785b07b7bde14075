// Records as an object manager's answer would give them, for the tests of what is made of them.
#pragma once

#include <initializer_list>
#include <string>

#include "owners.h"

namespace samples {

struct Pair {
  const char* name;
  const char* value;
};

// An instance name with keys of the type "string".
cli::InstanceNameOwner instance_name(const char* class_name, std::initializer_list<Pair> keys);

// CIM_Fan.DeviceID=ID with a string, a uint64, a boolean, an array of uint16 and a null property.
NamedInstance* fan(const char* id, const char* speed);

// The list of two such fans, "fan1" and "fan2".
cli::NamedInstanceOwner two_fans();

// A reference to an instance: plain name, local path (with a namespace), full path (with a host).
cli::ValueReferenceOwner reference(const char* host, const char* name_space, const char* class_name,
                                   std::initializer_list<Pair> keys);

// A class with qualifiers, properties of every kind and a method.
cli::ClassOwner fan_class();

// An embedded instance as the library reads it from a CDATA section: one record per attribute.
Instance* embedded_setting();

}  // namespace samples
