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

char* roomy_copy(const char* text) {
  const std::size_t length = std::strlen(text);
  return cim::duplicate(text, length, text_room - length - 1);
}

char* copy_of(CIMCString* string) { return cim::duplicate(characters(string)); }

// The text of a new string object, which is released.
char* take_text(CIMCString* string) {
  const Owned<CIMCString> owned(string);
  return copy_of(string);
}

char* reference_text(CIMCObjectPath* path) {
  if (!path || !path->ft->toString) return nullptr;
  return take_text(path->ft->toString(path, nullptr));
}

char* date_time_text(CIMCDateTime* time) {
  return time ? take_text(time->ft->getStringFormat(time, nullptr)) : nullptr;
}

char* integer_text(const TypeInfo& type, const CIMCValue& value) {
  char text[number_room];
  write_integer(type, value, text);
  return roomy_copy(text);
}

char* real_text(double number) {
  char text[number_room];
  std::snprintf(text, sizeof text, "%g", number);
  return roomy_copy(text);
}

char* scalar_text(const TypeInfo& type, const CIMCValue& value) {
  switch (type.kind) {
    case Kind::Boolean:
      return cim::duplicate(value.boolean ? "true" : "false");
    case Kind::Real:
      return real_text(type.bits == 32 ? double{value.real32} : value.real64);
    case Kind::Unsigned:
    case Kind::Signed:
      return integer_text(type, value);
    case Kind::DateTime:
      return date_time_text(value.dateTime);
    case Kind::String:
      return copy_of(value.string);
  }
  return nullptr;
}

}  // namespace

extern "C" int value2Chars(uint32_t code, const void* value, char** textOut) {
  if (!textOut) return 0;
  *textOut = nullptr;
  if (!value) return 0;
  const auto low = static_cast<CIMCType>(code);
  const auto& data = *static_cast<const CIMCValue*>(value);
  if (low == cim::broker::code::reference) {
    *textOut = reference_text(data.ref);
  } else if (is_string_code(low)) {
    *textOut = copy_of(data.string);
  } else if (const TypeInfo* type = type_of(low)) {
    *textOut = scalar_text(*type, data);
  }
  return 0;
}
