#include "support/failing_allocator.h"

#include <dlfcn.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

// The address sanitizer's allocator, when the program is built with it.
extern "C" {
[[gnu::weak]] void* __interceptor_malloc(std::size_t);               // NOLINT
[[gnu::weak]] void* __interceptor_calloc(std::size_t, std::size_t);  // NOLINT
[[gnu::weak]] void* __interceptor_realloc(void*, std::size_t);       // NOLINT
[[gnu::weak]] void __interceptor_free(void*);                        // NOLINT
}

namespace {

// Trivial types: they are used before main() and while threads come and go.
thread_local long allocations_left = -1;  // until one fails; -1: none does
thread_local bool has_failed = false;
thread_local long living = 0;

// Whether the allocation at hand is to fail.
bool fails() {
  if (allocations_left < 0) return false;
  if (allocations_left-- > 0) return false;
  has_failed = true;
  errno = ENOMEM;
  return true;
}

void* counted(void* block) {
  if (block) ++living;
  return block;
}

// The allocator behind this one: the sanitizer's, or the next in the program's libraries.
template <class Function>
Function* behind(Function* sanitizer, const char* name) {
  return sanitizer ? sanitizer : reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

[[gnu::visibility("default")]] void* malloc(std::size_t size) {
  static void* (*const next)(std::size_t) = behind(__interceptor_malloc, "malloc");
  return fails() ? nullptr : counted(next(size));
}

[[gnu::visibility("default")]] void* calloc(std::size_t count, std::size_t size) {
  static void* (*const next)(std::size_t, std::size_t) = behind(__interceptor_calloc, "calloc");
  return fails() ? nullptr : counted(next(count, size));
}

[[gnu::visibility("default")]] void* realloc(void* block, std::size_t size) {
  static void* (*const next)(void*, std::size_t) = behind(__interceptor_realloc, "realloc");
  if (fails()) return nullptr;
  return block ? next(block, size) : counted(next(block, size));
}

// libc's own would call malloc(); the sanitizer's does not.
[[gnu::visibility("default")]] char* strdup(const char* text) {
  const std::size_t size = std::strlen(text) + 1;
  void* copy = std::malloc(size);
  return copy ? static_cast<char*>(std::memcpy(copy, text, size)) : nullptr;
}

[[gnu::visibility("default")]] void free(void* block) {
  static void (*const next)(void*) = behind(__interceptor_free, "free");
  if (block) --living;
  next(block);
}

}  // extern "C"

namespace support {

FailingAllocation::FailingAllocation(long allocations) {
  if (allocations_left >= 0) throw std::logic_error("an allocation is to fail already");
  has_failed = false;
  allocations_left = allocations;
}

FailingAllocation::~FailingAllocation() { allocations_left = -1; }

bool FailingAllocation::happened() const { return has_failed; }

long living_blocks() { return living; }

}  // namespace support
