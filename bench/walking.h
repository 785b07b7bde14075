// What an answer's records consist of.
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

// The number of blocks and bytes, and a checksum of all texts in their order.
std::string digest_of(const NamedInstance* list);
std::string digest_of(const CIM* answer);

// The instances of an answer, or null.
NamedInstance* instances_of(const CIM* answer);

}  // namespace bench
