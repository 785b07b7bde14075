// Reads XML with Expat.
#pragma once

#include <cstddef>

#include "error_text.h"
#include "tree_builder.h"

namespace xmlparser {

// Tells `tree` what the document of `length` bytes at `text` holds.  False when it is not
// well-formed or refused, or memory runs out; `error` says which.
bool read_with_expat(const char* text, std::size_t length, TreeBuilder& tree, ErrorText& error);

}  // namespace xmlparser
