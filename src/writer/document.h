// Writing a whole document.
#pragma once

#include "cim_client.h"

namespace cim {

// Writes the document whose root is `root`: a malloc()ed text, which the caller frees; null
// when memory ran out on the way.  When there is no memory to begin with, the process exits
// with status 0.
char* write_document(const CIM& root);

}  // namespace cim
