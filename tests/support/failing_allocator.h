// Memory that runs out when a test says so, and a count of the blocks that live.
//
// A program that has failing_allocator.cpp in it puts its malloc(), calloc(), realloc(),
// strdup() and free() in the place of libc's, also for the shared libraries that it uses.
#pragma once

namespace support {

// While it exists, one allocation of the thread that made it fails: the one that
// `allocations` others precede.  Those after it succeed again.  At most one at a time in each
// thread; nothing else that allocates belongs into its scope, so tests look at results
// outside of it.
class FailingAllocation {
 public:
  explicit FailingAllocation(long allocations);
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
  ~FailingAllocation();

  // Whether it has come to that.
  bool happened() const;
};

// Blocks that this thread has allocated and not freed.  Blocks that other threads free count
// in both.
long living_blocks();

// Calls attempt() once per allocation that it makes, with that one failing, and returns how
// many there are.  attempt() returns nothing; check() is called after each failure.
template <class Attempt, class Check>
long fail_each_allocation(Attempt attempt, Check check) {
  for (long allocations = 0;; ++allocations) {
    bool happened = false;
    {
      FailingAllocation failing(allocations);
      attempt();
      happened = failing.happened();
    }
    if (!happened) return allocations;
    check(allocations);
  }
}

}  // namespace support
