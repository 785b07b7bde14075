// The records that the walk built and could not link: they belong to the reader, which
// releases them when the next document begins.
#pragma once

#include <cstddef>

#include "model/release.h"

namespace cim {

class Unlinked {
 public:
  // Makes room for one more record.  False when memory runs out.
  bool reserve();

  // Takes `record`; there must be room for it.
  template <class R>
  void add(R* record) {
    records_[count_++] = {record, [](void* r) { release(static_cast<R*>(r), Borrowed::Goes); }};
  }

  // Gives `record` to somebody else, if it is here.
  void forget(const void* record);

  // Releases every record.
  void release_all();

 private:
  struct Entry {
    void* record;
    void (*release)(void* record);
  };

  void give_memory_back();

  Entry* records_ = nullptr;
  std::size_t count_ = 0;
  std::size_t capacity_ = 0;
};

// Process-wide, as the element stack is.
extern Unlinked unlinked;

}  // namespace cim
