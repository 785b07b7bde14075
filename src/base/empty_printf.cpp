// EmptyPrintf(), which receives every trace line of the library.
#include "base/trace.h"
#include "cim_client.h"

extern "C" {

int EmptyPrintf(const char*, ...) { return 0; }

// The same function under a name that nobody can replace.
[[gnu::alias("EmptyPrintf"), gnu::visibility("hidden")]] int cim_own_empty_printf(const char*, ...);

}  // extern "C"

namespace cim {

const TracePrinter trace_printer = EmptyPrintf;
const TracePrinter silent_printer = cim_own_empty_printf;

}  // namespace cim
