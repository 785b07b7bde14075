// Object paths as people type and read them: the untyped WBEM URI of DSP0207, such as
// /root/cimv2:CIM_Fan.CreationClassName="CIM_Fan",DeviceID="fan1".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cim_client.h"
#include "owners.h"

namespace cli {

// One key of an instance path, its text unescaped.
struct Key {
  enum class Kind { Text, Number, Boolean, Reference };

  std::string name;  // empty: the only key, given without its name
  Kind kind = Kind::Text;
  std::string text;  // of a reference: its own path
};

struct ObjectUri {
  std::string host;        // empty: not given
  std::string name_space;  // empty: not given
  std::string class_name;
  bool is_instance = false;
  std::vector<Key> keys;  // none for the instance of a keyless class, typed as "CIM_Class=@"
};

// Reads a path. Values stand in double quotes, with \" and \\ inside, or bare: a bare number or
// boolean is one, anything else is a text up to the next comma. Nobody says yet which quoted
// texts are references: that is for the class to tell. Throws a usage failure that shows where
// the path stops making sense.
ObjectUri parse_object(std::string_view text);

// As parse_object(), for what must be an instance.
ObjectUri parse_instance(std::string_view text);

// Whether a key's text could be the path of an instance.
bool looks_like_instance(std::string_view text);

// The record for a path, with plain texts. Namespace and host of the path itself are not part of
// it.
InstanceNameOwner make_instance_name(const ObjectUri& path);

// The reference to a class or an instance, with as much of its path as is given.
ValueReferenceOwner make_reference(const ObjectUri& path);

}  // namespace cli
