// Memory: allocations that fail, blocks that live, and secrets in what is released.
#include "support/allocations.h"

#include <dlfcn.h>
#include <malloc.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

// What sanitizers put in the place of libc's functions; absent without one.
// NOLINTBEGIN(readability-identifier-naming)
extern "C" {
[[gnu::weak]] void* __interceptor_malloc(std::size_t size);
[[gnu::weak]] void* __interceptor_calloc(std::size_t count, std::size_t size);
[[gnu::weak]] void* __interceptor_realloc(void* block, std::size_t size);
[[gnu::weak]] void __interceptor_free(void* block);
}
// NOLINTEND(readability-identifier-naming)

namespace support {
namespace {

thread_local bool counting = false;
thread_local bool failed = false;
thread_local std::size_t successes_left = 0;
thread_local std::size_t failed_size = 0;

thread_local long living = 0;

thread_local const std::string* secret = nullptr;
thread_local std::size_t blocks_released = 0;
thread_local std::size_t blocks_with_secret = 0;

// Not checked by sanitizers: they allocate while they start, when their checks do not work yet.
#define UNCHECKED __attribute__((no_sanitize("address", "undefined")))

// True when this allocation is the one to fail.
UNCHECKED bool fails(std::size_t size) {
  if (!counting || failed) return false;
  if (successes_left-- > 0) return false;
  failed = true;
  failed_size = size;
  errno = ENOMEM;
  return true;
}

// libc's own function, behind the one of this program.
template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

UNCHECKED void* own_malloc(std::size_t size) {
  static auto* const own =
      __interceptor_malloc ? __interceptor_malloc : next<void*(std::size_t)>("malloc");
  return own(size);
}

UNCHECKED void* own_calloc(std::size_t count, std::size_t size) {
  static auto* const own =
      __interceptor_calloc ? __interceptor_calloc : next<void*(std::size_t, std::size_t)>("calloc");
  return own(count, size);
}

UNCHECKED void* own_realloc(void* block, std::size_t size) {
  static auto* const own =
      __interceptor_realloc ? __interceptor_realloc : next<void*(void*, std::size_t)>("realloc");
  return own(block, size);
}

UNCHECKED void own_free(void* block) {
  static auto* const own = __interceptor_free ? __interceptor_free : next<void(void*)>("free");
  own(block);
}

UNCHECKED void* counted(void* block) {
  if (block) ++living;
  return block;
}

UNCHECKED void search(void* block) {
  if (!secret || !block) return;
  ++blocks_released;
  if (memmem(block, malloc_usable_size(block), secret->data(), secret->size()))
    ++blocks_with_secret;
}

}  // namespace

FailingAllocation::FailingAllocation(std::size_t successes) {
  successes_left = successes;
  failed = false;
  counting = true;
}

FailingAllocation::~FailingAllocation() { counting = false; }

bool FailingAllocation::has_failed() const { return failed; }

std::size_t FailingAllocation::size() const { return failed_size; }

long living_blocks() { return living; }

UncountedAllocations::UncountedAllocations() : counted_before_(std::exchange(counting, false)) {}

UncountedAllocations::~UncountedAllocations() { counting = counted_before_; }

ReleasedSecrets::ReleasedSecrets(std::string text) : secret_(std::move(text)) {
  blocks_released = 0;
  blocks_with_secret = 0;
  secret = &secret_;
}

ReleasedSecrets::~ReleasedSecrets() { secret = nullptr; }

std::size_t ReleasedSecrets::released() const { return blocks_released; }

std::size_t ReleasedSecrets::with_secret() const { return blocks_with_secret; }

}  // namespace support

#define EXPORTED [[gnu::visibility("default")]]

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): libc names them otherwise
extern "C" {

// Filled with zeros while secrets are searched: what nobody wrote is no secret.
EXPORTED UNCHECKED void* malloc(std::size_t size) noexcept {
  if (support::fails(size)) return nullptr;
  return support::counted(support::secret ? support::own_calloc(1, size)
                                          : support::own_malloc(size));
}

EXPORTED UNCHECKED void* calloc(std::size_t count, std::size_t size) noexcept {
  if (support::fails(count * size)) return nullptr;
  return support::counted(support::own_calloc(count, size));
}

EXPORTED UNCHECKED void* realloc(void* block, std::size_t size) noexcept {
  if (support::fails(size)) return nullptr;
  void* moved = support::own_realloc(block, size);
  return block ? moved : support::counted(moved);
}

EXPORTED UNCHECKED char* strdup(const char* text) noexcept {
  const std::size_t size = std::strlen(text) + 1;
  void* copy = malloc(size);
  return copy ? static_cast<char*>(std::memcpy(copy, text, size)) : nullptr;
}

EXPORTED UNCHECKED void free(void* block) noexcept {
  support::search(block);
  if (block) --support::living;
  support::own_free(block);
}

}  // extern "C"

// NOLINTEND(readability-inconsistent-declaration-parameter-name)
