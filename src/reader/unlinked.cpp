// Releasing records that nobody was handed.
#include "reader/unlinked.h"

#include <cstdlib>

namespace cim {

constinit Unlinked unlinked;

bool Unlinked::reserve() {
  if (count_ < capacity_) return true;
  const std::size_t grown = capacity_ ? 2 * capacity_ : 16;
  void* moved = std::realloc(records_, grown * sizeof(Entry));
  if (!moved) return false;
  records_ = static_cast<Entry*>(moved);
  capacity_ = grown;
  return true;
}

void Unlinked::forget(const void* record) {
  for (std::size_t i = 0; i < count_; ++i) {
    if (records_[i].record != record) continue;
    records_[i] = records_[--count_];
    break;
  }
  if (count_ == 0) give_memory_back();
}

void Unlinked::release_all() {
  while (count_ > 0) {
    --count_;
    records_[count_].release(records_[count_].record);
  }
  give_memory_back();
}

void Unlinked::give_memory_back() {
  std::free(records_);
  records_ = nullptr;
  capacity_ = 0;
}

}  // namespace cim
