// Reads XML in one pass, straight into the nodes.
#pragma once

#include <cstddef>

#include "error_text.h"
#include "tree_builder.h"

namespace xmlparser {

enum class Scanned {
  Whole,
  Refused,  // not well-formed, refused by policy, or memory ran out: the error says which
  // The document type has declarations inside, or the encoding is neither UTF-8 nor US-ASCII:
  // nothing has been built, another reader may take over.  The error says which.
  NotMine,
};

// Tells `tree` what the document of `length` bytes at `text` holds; a NUL follows them and none
// is among them.  Takes time in proportion to the length, and no stack for depth.
Scanned scan(const char* text, std::size_t length, TreeBuilder& tree, ErrorText& error);

}  // namespace xmlparser
