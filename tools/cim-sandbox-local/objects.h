// The broker's objects: what stands behind the CIMC pointers of a client.
//
// An object that a call hands out is the client's, who releases it.  Objects inside others
// (the values of properties, keys, elements and arguments) belong to those.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cimc.h"

namespace sandbox_local {

// Type codes and value states, as far as they are used here.
namespace code {
inline constexpr CIMCType null = 0;
inline constexpr CIMCType boolean = 2;
inline constexpr CIMCType char16 = 3;
inline constexpr CIMCType real32 = 8;
inline constexpr CIMCType real64 = 12;
inline constexpr CIMCType uint8 = 128;
inline constexpr CIMCType uint16 = 144;
inline constexpr CIMCType uint32 = 160;
inline constexpr CIMCType uint64 = 176;
inline constexpr CIMCType sint8 = 192;
inline constexpr CIMCType sint16 = 208;
inline constexpr CIMCType sint32 = 224;
inline constexpr CIMCType sint64 = 240;
inline constexpr CIMCType instance = 4096;
inline constexpr CIMCType reference = 4352;
inline constexpr CIMCType string = 5632;
inline constexpr CIMCType chars = 5888;
inline constexpr CIMCType datetime = 6144;
inline constexpr CIMCType array = 8192;
}  // namespace code

inline constexpr CIMCValueState state_good = 0;
inline constexpr CIMCValueState state_null = 0x0100;
inline constexpr CIMCValueState state_not_found = 0x0400;

// What every object has besides its table.
class Object {
 public:
  Object() = default;
  Object(const Object&) = default;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;
};

// A value with its type.  The object that it may point to is shared by copies and never changes.
struct Datum {
  CIMCType type = code::null;
  CIMCValueState state = state_null;
  CIMCValue value{};
  std::shared_ptr<Object> inside;

  CIMCData data() const { return {type, state, value}; }
};

struct Member {
  std::string name;
  Datum datum;
};

struct Text final : Object, CIMCString {
  explicit Text(std::string content);
  Text(const Text& other) : Text(other.text) {}
  std::string text;
};

struct Time final : Object, CIMCDateTime {
  explicit Time(std::string content);
  std::string text;
};

struct Path final : Object, CIMCObjectPath {
  Path(std::string name_space_text, std::string class_text);
  Path(const Path& other);
  std::string name_space;
  std::string class_name;
  std::vector<Member> keys;
};

struct InstanceObject final : Object, CIMCInstance {
  explicit InstanceObject(const Path& instance_path);
  InstanceObject(const InstanceObject& other);
  Path path;
  std::vector<Member> properties;
};

struct ClassObject final : Object, CIMCClass {
  explicit ClassObject(std::string class_name);
  ClassObject(const ClassObject& other);
  std::string name;
  std::string superclass;
  std::vector<Member> properties;
  bool is_association = false;
  bool is_abstract = false;
  bool is_indication = false;
};

struct ArrayObject final : Object, CIMCArray {
  ArrayObject(std::size_t size, CIMCType element_type);
  ArrayObject(const ArrayObject& other);
  CIMCType element;
  std::vector<Datum> elements;
};

struct Arguments final : Object, CIMCArgs {
  Arguments();
  Arguments(const Arguments& other);
  std::vector<Member> members;
};

struct Enumeration final : Object, CIMCEnumeration {
  explicit Enumeration(std::vector<Datum> content);
  std::vector<Datum> elements;
  std::size_t next = 0;
};

// ---- Values ----

// A value of that type that is null.
Datum null_of(CIMCType type);
// A number or a boolean: the bits of `value`.
Datum number(CIMCType type, CIMCValue value);
Datum text(std::string content);
Datum time(std::string content);
Datum reference(const Path& path);
Datum instance(const InstanceObject& object);
Datum array(const ArrayObject& object);

// A copy of what a client hands in: a null `value` is null, and one of code::chars is the
// characters themselves.
Datum copy_in(const CIMCValue* value, CIMCType type);

// The member of that name, made when there is none.
Datum& member(std::vector<Member>& members, std::string_view name);
const Datum* find(const std::vector<Member>& members, std::string_view name);

// A value as calls are noted: uint8 5, "text", null.
std::string describe(const Datum& datum);
std::string describe(const Path& path);

}  // namespace sandbox_local
