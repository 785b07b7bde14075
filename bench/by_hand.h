// What a plain program does with the records of an EnumerateInstances answer, written out by
// hand for these records alone: the measure for the library's release and copies.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "cim_client.h"
#include "walking.h"

namespace bench {

// The allocations, copies and frees of blocks of those sizes, and nothing else.
class Replay {
 public:
  Replay() = default;
  explicit Replay(const std::vector<Block>& blocks);
  void run();

 private:
  std::vector<std::size_t> sizes_;
  std::string source_;
  std::vector<void*> made_;
};

void free_by_hand(NamedInstance* list);
NamedInstance* copy_by_hand(const NamedInstance* list);

}  // namespace bench
