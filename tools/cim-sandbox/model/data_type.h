// The CIM data types, and the type of a declared property, parameter or qualifier.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sandbox {

enum class Type : std::uint8_t {
  Boolean,
  String,
  Char16,
  UInt8,
  UInt16,
  UInt32,
  UInt64,
  SInt8,
  SInt16,
  SInt32,
  SInt64,
  Real32,
  Real64,
  DateTime,
  Reference,
};

// The type's name as MOF and CIM-XML write it: "uint32", "datetime", "reference".
std::string_view name_of(Type type);
std::optional<Type> type_named(std::string_view name);

bool is_unsigned(Type type);
bool is_signed(Type type);
bool is_real(Type type);
inline bool is_integer(Type type) { return is_unsigned(type) || is_signed(type); }
inline bool is_numeric(Type type) { return is_integer(type) || is_real(type); }

// The limits of an integer type; `highest` also serves the signed types.
std::int64_t lowest(Type type);
std::uint64_t highest(Type type);

struct DataType {
  Type type = Type::String;
  bool is_array = false;
  std::uint32_t array_size = 0;  // elements; 0: not bounded
  std::string reference_class;   // for a Reference: the class that the target must be of
};

// "uint32", "string[]", "reference to CIM_Fan": for messages.
std::string describe(const DataType& type);

}  // namespace sandbox
