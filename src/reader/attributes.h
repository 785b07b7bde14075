// Reading the attributes of an element into the fields of its record.
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "base/memory.h"
#include "cim_client.h"
#include "model/records.h"
#include "reader/names.h"
#include "reader/nodes.h"

namespace cim {

// ---- One field: store() puts a value into it; false when memory runs out ----

inline bool store(char*& field, Reading, const char* value) {
  std::free(field);
  field = duplicate(value);
  return field;
}

// The base-10 number at the beginning of `text`, else 0; beyond the range of 32 bits, its
// nearest end, whatever the width of long.
inline std::int32_t decimal(const char* text) {
  const long number = std::strtol(text, nullptr, 10);
  if (number > INT32_MAX) return INT32_MAX;
  if (number < INT32_MIN) return INT32_MIN;
  return static_cast<std::int32_t>(number);
}

// A flag or a number.
template <class Number>
requires std::is_integral_v<Number>
bool store(Number& field, Reading reading, const char* value) {
  const auto either = [&](const char* first, Number one, const char* second, Number other) {
    if (std::strcmp(value, first) == 0) field = one;
    if (std::strcmp(value, second) == 0) field = other;
  };
  switch (reading) {
    case Reading::Decimal:
      field = static_cast<Number>(decimal(value));
      break;
    case Reading::TrueFalse:
      either("TRUE", 1, "FALSE", 0);
      break;
    case Reading::SortDirection:
      either("ASC", 1, "DESC", 2);
      break;
  }
  return true;
}

// A class named by an attribute is held as a record of its own.
inline bool store(ClassName*& field, Reading reading, const char* value) {
  if (!field) field = allocate<ClassName>();
  return field && store(field->name, reading, value);
}

// The presence of a flavor counts: object managers' texts in it are not read.
inline bool store(QualifierFlavor*& field, Reading, const char*) {
  if (!field) field = allocate<QualifierFlavor>();
  return field;
}

// ---- All fields ----

// The attribute that feeds each field of R, in their order; no_name where none does.
template <Record R>
consteval auto make_attribute_names() {
  std::array<Name, 16> names{};
  std::size_t position = 0;
  for_each_field<R>([&](const auto& field) {
    names[position++] = field.attribute ? known_names.number_of(field.attribute) : no_name;
  });
  return names;
}

template <Record R>
inline constexpr auto attribute_names = make_attribute_names<R>();

// Fills the fields of `record` from the attributes of `element`; unknown ones are ignored.
// False when memory runs out: some fields are empty then.
template <Record R>
bool read_attributes(R& record, const XmlNode& element, Names& names) {
  bool complete = true;
  for (const XmlNode* a = element.attributes; a; a = a->nextSibling) {
    const Name name = names.of(*a);
    std::size_t position = 0;
    for_each_field<R>([&]<class T>(const Field<R, T>& field) {
      if constexpr (requires(T & place) { store(place, Reading::Decimal, ""); }) {
        if (name == attribute_names<R>[position] &&
            !store(record.*field.member, field.reading, value_of(*a)))
          complete = false;
      }
      ++position;
    });
  }
  return complete;
}

}  // namespace cim
