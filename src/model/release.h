// Releasing records.
#pragma once

#include <cstdlib>

#include "model/describe.h"

namespace cim {

// What becomes of borrowed fields: they stay with their owner, or they go, too, when the
// record was made by the reader and nobody else has seen it.
enum class Borrowed { Stays, Goes };

inline void release(char* text, Borrowed = Borrowed::Stays) { std::free(text); }

// Releases `record`, all that it owns and every node after it.  Null is allowed.  A list of
// any length takes one stack frame.
template <Record R>
void release(R* record, Borrowed borrowed = Borrowed::Stays) {
  while (record) {
    R* next = next_of(record);
    for_each_field<R>([&]<class T>(const Field<R, T>& field) {
      if constexpr (std::is_pointer_v<T>) {
        if (field.owner == Owner::Record || borrowed == Borrowed::Goes)
          release(record->*field.member, borrowed);
      }
    });
    std::free(record);
    record = next;
  }
}

}  // namespace cim
