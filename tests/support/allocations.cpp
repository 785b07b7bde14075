// Memory: allocations that fail, and secrets in what is released.
#include "support/allocations.h"

#include <dlfcn.h>
#include <malloc.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

// What sanitizers put in the place of libc's functions; absent without one.
extern "C" {
[[gnu::weak]] void* __interceptor_malloc(std::size_t size);
[[gnu::weak]] void* __interceptor_calloc(std::size_t count, std::size_t size);
[[gnu::weak]] void* __interceptor_realloc(void* block, std::size_t size);
[[gnu::weak]] void __interceptor_free(void* block);
}

namespace support {
namespace {

thread_local bool counting = false;
thread_local bool counted_before = false;  // when UncountedAllocations stopped it
thread_local bool failed = false;
thread_local std::size_t successes_left = 0;
thread_local std::size_t failed_size = 0;

thread_local const std::string* secret = nullptr;
thread_local std::size_t blocks_released = 0;
thread_local std::size_t blocks_with_secret = 0;

// True when this allocation is the one to fail.
bool fails(std::size_t size) {
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

void* own_malloc(std::size_t size) {
  static auto* const own =
      __interceptor_malloc ? __interceptor_malloc : next<void*(std::size_t)>("malloc");
  return own(size);
}

void* own_calloc(std::size_t count, std::size_t size) {
  static auto* const own =
      __interceptor_calloc ? __interceptor_calloc : next<void*(std::size_t, std::size_t)>("calloc");
  return own(count, size);
}

void* own_realloc(void* block, std::size_t size) {
  static auto* const own =
      __interceptor_realloc ? __interceptor_realloc : next<void*(void*, std::size_t)>("realloc");
  return own(block, size);
}

void own_free(void* block) {
  static auto* const own = __interceptor_free ? __interceptor_free : next<void(void*)>("free");
  own(block);
}

void search(void* block) {
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

UncountedAllocations::UncountedAllocations() { counted_before = std::exchange(counting, false); }

UncountedAllocations::~UncountedAllocations() { counting = counted_before; }

ReleasedSecrets::ReleasedSecrets(std::string text) : secret_(std::move(text)) {
  blocks_released = 0;
  blocks_with_secret = 0;
  secret = &secret_;
}

ReleasedSecrets::~ReleasedSecrets() { secret = nullptr; }

std::size_t ReleasedSecrets::released() const { return blocks_released; }

std::size_t ReleasedSecrets::with_secret() const { return blocks_with_secret; }

}  // namespace support

extern "C" {

// Filled with zeros while secrets are searched: what nobody wrote is no secret.
[[gnu::visibility("default")]] void* malloc(std::size_t size) noexcept {
  if (support::fails(size)) return nullptr;
  return support::secret ? support::own_calloc(1, size) : support::own_malloc(size);
}

[[gnu::visibility("default")]] void* calloc(std::size_t count, std::size_t size) noexcept {
  return support::fails(count * size) ? nullptr : support::own_calloc(count, size);
}

[[gnu::visibility("default")]] void* realloc(void* block, std::size_t size) noexcept {
  return support::fails(size) ? nullptr : support::own_realloc(block, size);
}

[[gnu::visibility("default")]] char* strdup(const char* text) noexcept {
  const std::size_t size = std::strlen(text) + 1;
  void* copy = malloc(size);
  return copy ? static_cast<char*>(std::memcpy(copy, text, size)) : nullptr;
}

[[gnu::visibility("default")]] void free(void* block) noexcept {
  support::search(block);
  support::own_free(block);
}

}  // extern "C"
