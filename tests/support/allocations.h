// Memory: allocations that fail, blocks that live, and secrets in what is released.
#pragma once

#include <cstddef>
#include <string>

namespace support {

// A program that has these in it puts its malloc, calloc, realloc, strdup and free in the place of
// libc's, also for the shared libraries that it uses.  Under valgrind they count only with
// --soname-synonyms=somalloc=nouserintercepts.

// While it exists, one allocation of the thread that made it fails: the one that has `successes`
// others before it.  Those after it succeed again.
class FailingAllocation {
 public:
  explicit FailingAllocation(std::size_t successes);
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
  ~FailingAllocation();

  // True when an allocation has failed: false means that fewer were made.
  bool has_failed() const;

  // Bytes that the failed allocation asked for.
  std::size_t size() const;
};

// Lets attempt() happen again and again, each time with the next of its allocations failing, and
// check() after each failure; then once with none.  Returns how many allocations there are.
template <class Attempt, class Check>
std::size_t fail_each_allocation(Attempt attempt, Check check) {
  for (std::size_t successes = 0;; ++successes) {
    bool has_failed = false;
    {
      FailingAllocation failing(successes);
      attempt();
      has_failed = failing.has_failed();
    }
    if (!has_failed) return successes;
    check();
  }
}

// Blocks that this thread has allocated and not released.
long living_blocks();

// While it exists, the thread's allocations neither count nor fail.  One may exist in another.
class UncountedAllocations {
 public:
  UncountedAllocations();
  UncountedAllocations(const UncountedAllocations&) = delete;
  UncountedAllocations& operator=(const UncountedAllocations&) = delete;
  ~UncountedAllocations();

 private:
  bool counted_before_;
};

// While it exists, what the thread releases is searched for a secret.
class ReleasedSecrets {
 public:
  explicit ReleasedSecrets(std::string text);
  ReleasedSecrets(const ReleasedSecrets&) = delete;
  ReleasedSecrets& operator=(const ReleasedSecrets&) = delete;
  ~ReleasedSecrets();

  // How many blocks were released, and how many of them with the secret in them.
  std::size_t released() const;
  std::size_t with_secret() const;

 private:
  std::string secret_;
};

}  // namespace support
