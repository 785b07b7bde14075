// The CIM types that the broker back end knows, and their values as texts.
#pragma once

#include <array>
#include <cstdint>

#include "clientapi/interface.h"

namespace cim::broker {

enum class Kind { Boolean, Unsigned, Signed, Real, DateTime, String };

struct TypeInfo {
  const char* name;
  CIMCType code;  // code of a value that a result holds
  Kind kind;
  int bits = 0;  // width of a number
};

// Every scalar type, once.
inline constexpr std::array<TypeInfo, 13> types = {{
    {"boolean", code::boolean, Kind::Boolean},
    {"uint8", code::uint8, Kind::Unsigned, 8},
    {"uint16", code::uint16, Kind::Unsigned, 16},
    {"uint32", code::uint32, Kind::Unsigned, 32},
    {"uint64", code::uint64, Kind::Unsigned, 64},
    {"sint8", code::sint8, Kind::Signed, 8},
    {"sint16", code::sint16, Kind::Signed, 16},
    {"sint32", code::sint32, Kind::Signed, 32},
    {"sint64", code::sint64, Kind::Signed, 64},
    {"real32", code::real32, Kind::Real, 32},
    {"real64", code::real64, Kind::Real, 64},
    {"datetime", code::datetime, Kind::DateTime},
    {"string", code::string, Kind::String},
}};

inline bool is_integer(const TypeInfo& type) {
  return type.kind == Kind::Unsigned || type.kind == Kind::Signed;
}

// Codes that brokers give string objects besides code::string.
inline bool is_string_code(CIMCType stored) {
  return stored == code::string || stored == 5634 || stored == 5884 || stored == 5888 ||
         stored == 7680;
}

// True when a value that the broker says is of `stored` can be read as `type`: what holds no
// such object is not followed.
inline bool is_readable(const TypeInfo& type, CIMCType stored) {
  if (type.kind == Kind::String) return is_string_code(stored);
  return type.kind != Kind::DateTime || stored == code::datetime;
}

// The type of a code without the array flag; null for a code that is none of the table's.
const TypeInfo* type_of(CIMCType code);

// The type that values of this name are sent as; null for a name that is not sent: real types
// are read from the broker and never sent to it.
const TypeInfo* sendable_type(const char* name);

// The number at the beginning of `text`, else 0, saturating at the limits of a signed 32-bit
// integer.
std::int32_t to_number(const char* text);

// `number` as a value of an integer type: its low bits, or for 64 bits sign-extended.
CIMCValue integer_value(const TypeInfo& type, std::int32_t number);

// An integer value as printf writes it; `text` is terminated.
constexpr std::size_t number_room = 32;
void write_integer(const TypeInfo& type, const CIMCValue& value, char (&text)[number_room]);

}  // namespace cim::broker
