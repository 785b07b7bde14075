// Which builder makes the record of which element.
#pragma once

#include <cstdint>

#include "reader/build.h"
#include "reader/names.h"

namespace cim {

// An element that the walk builds a record for.
struct Dispatch {
  // Builds the record; it is the reader's when it could not be linked.
  void* (*build)(Building& building);

  const char* trace;             // trace line afterwards
  std::uint8_t lists = 0;        // how many the record holds
  bool always_on_stack = false;  // also without children
};

// The entry of a known element; null for an element that the walk passes over.
const Dispatch* dispatch_of(Name element);

}  // namespace cim
