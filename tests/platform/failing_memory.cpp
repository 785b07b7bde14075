// The allocator's functions, as the linker names them under --wrap.
#include "platform/failing_memory.h"

#include <cstddef>

namespace {

bool counting = false;
bool failures_last = false;
int failing_number = 0;
int allocations = 0;
int held = 0;

bool fails() {
  if (!counting) return false;
  ++allocations;
  if (failing_number == 0) return false;
  return failures_last ? allocations >= failing_number : allocations == failing_number;
}

void* hold(void* memory) {
  if (counting && memory) ++held;
  return memory;
}

}  // namespace

void start_counting(int failing, bool lasting) {
  failing_number = failing;
  failures_last = lasting;
  allocations = 0;
  held = 0;
  counting = true;
}

Counted stop_counting() {
  counting = false;
  return {allocations, held};
}

// The names are the linker's.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* memory, std::size_t size);
void __real_free(void* memory);

void* __wrap_malloc(std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size);
void* __wrap_realloc(void* memory, std::size_t size);
void __wrap_free(void* memory);

void* __wrap_malloc(std::size_t size) { return fails() ? nullptr : hold(__real_malloc(size)); }

void* __wrap_calloc(std::size_t count, std::size_t size) {
  return fails() ? nullptr : hold(__real_calloc(count, size));
}

void* __wrap_realloc(void* memory, std::size_t size) {
  if (fails()) return nullptr;
  void* moved = __real_realloc(memory, size);
  return memory ? moved : hold(moved);
}

void __wrap_free(void* memory) {
  if (counting && memory) --held;
  __real_free(memory);
}
}
// NOLINTEND(bugprone-reserved-identifier)
