// Memory of brokers and tests apart from the library's: operator new neither counts nor fails, so
// that what counts and fails is what the library allocates.
#include <cstdlib>
#include <new>

#include "support/allocations.h"

// What the dynamic linker keeps of a library that is opened: the leak check knows the linker's own
// calls of malloc(), but not those that come through another one.
extern "C" [[gnu::visibility("default")]] const char* __lsan_default_suppressions() {
  return "leak:_dl_map_object_deps\n";
}

void* operator new(std::size_t size) {
  const support::UncountedAllocations uncounted;
  if (void* block = std::malloc(size)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }
