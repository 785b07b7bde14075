// Broker values as texts.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/memory.h"
#include "cim_client.h"
#include "clientapi/owned.h"
#include "clientapi/types.h"

namespace {

using namespace cim::broker;

// Applications extend number texts in place: each has this room.
constexpr std::size_t text_room = 128;

// The functions below store a new text, or null for what has none.  False when memory runs out.

bool copy_roomily(const char* text, char** out) {
  const std::size_t length = std::strlen(text);
  return (*out = cim::duplicate(text, length, text_room - length - 1));
}

bool copy(const char* text, char** out) {
  *out = cim::duplicate(text);
  return *out || !text;
}

// From a new string object, which is released.
bool copy_and_release(CIMCString* string, char** out) {
  const Owned<CIMCString> owned(string);
  return copy(characters(string), out);
}

bool copy_reference(CIMCObjectPath* path, char** out) {
  if (!path || !path->ft->toString) return true;
  return copy_and_release(path->ft->toString(path, nullptr), out);
}

bool copy_date_time(CIMCDateTime* time, char** out) {
  return !time || copy_and_release(time->ft->getStringFormat(time, nullptr), out);
}

bool copy_integer(const TypeInfo& type, const CIMCValue& value, char** out) {
  char text[number_room];
  write_integer(type, value, text);
  return copy_roomily(text, out);
}

bool copy_real(double number, char** out) {
  char text[number_room];
  std::snprintf(text, sizeof text, "%g", number);
  return copy_roomily(text, out);
}

bool copy_scalar(const TypeInfo& type, const CIMCValue& value, char** out) {
  switch (type.kind) {
    case Kind::Boolean:
      return copy(value.boolean ? "true" : "false", out);
    case Kind::Real:
      return copy_real(type.bits == 32 ? double{value.real32} : value.real64, out);
    case Kind::Unsigned:
    case Kind::Signed:
      return copy_integer(type, value, out);
    case Kind::DateTime:
      return copy_date_time(value.dateTime, out);
    case Kind::String:
      return copy(characters(value.string), out);
  }
  return true;
}

bool copy_value(CIMCType code, const CIMCValue& value, char** out) {
  if (code == cim::broker::code::reference) return copy_reference(value.ref, out);
  if (is_string_code(code)) return copy(characters(value.string), out);
  const TypeInfo* type = type_of(code);
  return !type || copy_scalar(*type, value, out);
}

}  // namespace

extern "C" int value2Chars(uint32_t code, const void* value, char** textOut) {
  if (!textOut) return 0;
  *textOut = nullptr;
  if (!value) return 0;
  const auto low = static_cast<CIMCType>(code);
  return copy_value(low, *static_cast<const CIMCValue*>(value), textOut) ? 0 : -1;
}
