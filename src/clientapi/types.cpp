// Looking types up, and making values within their limits.
#include "clientapi/types.h"

#include <charconv>
#include <cstdlib>
#include <cstring>

#include "cim_client.h"

namespace cim::broker {

const TypeInfo* type_of(CIMCType code) {
  for (const TypeInfo& type : types)
    if (type.code == code) return &type;
  return nullptr;
}

const TypeInfo* sendable_type(const char* name) {
  if (!name) return nullptr;
  for (const TypeInfo& type : types)
    if (type.kind != Kind::Real && std::strcmp(type.name, name) == 0) return &type;
  return nullptr;
}

std::int32_t to_number(const char* text) {
  const long long number = std::strtoll(text, nullptr, 10);
  if (number > INT32_MAX) return INT32_MAX;
  if (number < INT32_MIN) return INT32_MIN;
  return static_cast<std::int32_t>(number);
}

CIMCValue integer_value(const TypeInfo& type, std::int32_t number) {
  CIMCValue value{};
  switch (type.bits) {
    case 8:
      value.sint8 = static_cast<std::int8_t>(number);
      break;
    case 16:
      value.sint16 = static_cast<std::int16_t>(number);
      break;
    case 32:
      value.sint32 = number;
      break;
    default:
      value.sint64 = number;
      break;
  }
  return value;
}

void write_integer(const TypeInfo& type, const CIMCValue& value, char (&text)[number_room]) {
  const auto print = [&](auto with_sign, auto without_sign) {
    char* last = text + number_room - 1;
    *(type.kind == Kind::Signed ? std::to_chars(text, last, with_sign)
                                : std::to_chars(text, last, without_sign))
         .ptr = '\0';
  };
  switch (type.bits) {
    case 8:
      return print(int{value.sint8}, int{value.uint8});
    case 16:
      return print(int{value.sint16}, int{value.uint16});
    case 32:
      return print(value.sint32, value.uint32);
    default:
      return print(value.sint64, value.uint64);
  }
}

}  // namespace cim::broker

namespace {

// Array codes that have a name of their own; applications know the others by the empty one.
struct NamedArray {
  cim::broker::CIMCType element;
  const char* name;
};
constexpr NamedArray named_arrays[] = {
    {cim::broker::code::uint16, "uint16"},
    {cim::broker::code::sint8, "sint8"},
    {cim::broker::code::string, "string"},
};

}  // namespace

extern "C" {

// Strings are sent as bare characters.
int cimc_getCMPIType(const char* name) {
  const cim::broker::TypeInfo* type = cim::broker::sendable_type(name);
  if (!type) return 0;
  return type->kind == cim::broker::Kind::String ? cim::broker::code::chars : type->code;
}

const char* CIMC_getDataType(uint32_t code) {
  using namespace cim::broker;
  const auto low = static_cast<CIMCType>(code);
  if (low & code::array) {
    for (const NamedArray& array : named_arrays)
      if (low == (array.element | code::array)) return array.name;
    return "";
  }
  const TypeInfo* type = type_of(low);
  return type && type->kind != Kind::Real ? type->name : "";
}

}  // extern "C"
