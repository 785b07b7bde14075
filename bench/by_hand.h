// What a plain program does with the records of an EnumerateInstances answer, written out by
// hand for these records alone: the measure for the library's release and copies.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "cim_client.h"

namespace bench {

struct Block {
  void* address;
  std::size_t size;
};

// Every block of the list or of what an answer returns, each record before what it holds, with
// the size that the allocator gave it: values have room behind their texts.
std::vector<Block> blocks_of(const NamedInstance* list);
std::vector<Block> blocks_of(const CIM* answer);

// The allocations, copies and frees of such blocks, and nothing else.
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

// The number of blocks and bytes, and a checksum of all texts in their order.
std::string digest_of(const NamedInstance* list);
std::string digest_of(const CIM* answer);

// The instances of an answer, or null.
NamedInstance* instances_of(const CIM* answer);

}  // namespace bench
