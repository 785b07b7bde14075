// Copying records.
#pragma once

#include "base/memory.h"
#include "model/describe.h"

namespace cim {

template <Record R>
bool clone(const R* source, R** copy);

// Copies a text whole.  False when memory runs out.
inline bool clone(const char* source, char** copy) {
  *copy = duplicate(source);
  return *copy || !source;
}

// Copies the first character of a text, terminated.  False when memory runs out.
inline bool clone_first_character(const char* source, char** copy) {
  *copy = nullptr;
  if (!source) return true;
  *copy = static_cast<char*>(std::calloc(1, 2));
  if (!*copy) return false;
  **copy = *source;
  return true;
}

// Copies one field as its description says.  False when memory runs out.
template <Record R, class T>
bool clone_field(const Field<R, T>& field, const R& source, R& copy) {
  if (field.copy == Copy::Nothing) return true;
  if constexpr (std::is_same_v<T, char*>) {
    if (field.copy == Copy::FirstCharacter)
      return clone_first_character(source.*field.member, &(copy.*field.member));
  }
  if constexpr (std::is_pointer_v<T>) {
    return clone(source.*field.member, &(copy.*field.member));
  } else {
    copy.*field.member = source.*field.member;
    return true;
  }
}

// Stores in *copy a deep copy of the list at `source`, null for a null source.  False when
// memory runs out; *copy then holds what was copied so far.
template <Record R>
bool clone(const R* source, R** copy) {
  *copy = nullptr;
  for (; source; source = next_of(source)) {
    R* node = *copy = allocate<R>();
    if (!node) return false;
    bool copied = true;
    for_each_field<R>([&](const auto& field) {  // stops at the first failure
      copied = copied && clone_field(field, *source, *node);
    });
    if (!copied) return false;
    if constexpr (ListNode<R>) copy = &node->next;
  }
  return true;
}

}  // namespace cim
