// Waits for descriptors and for time to pass, and calls whoever asked.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <utility>

namespace sandbox::http {

using Milliseconds = std::chrono::milliseconds;

// Everything happens in the thread that calls run().  Calls may watch, forget and set timers.
class EventLoop {
 public:
  using Timer = std::pair<std::chrono::steady_clock::time_point, std::uint64_t>;

  // Calls `ready` with poll()'s result events whenever `descriptor` has one of `events`, an error
  // or a hang-up.  A second watch of a descriptor replaces the first.
  void watch(int descriptor, short events, std::function<void(short)> ready);
  void set_events(int descriptor, short events);
  void forget(int descriptor);

  Timer after(Milliseconds delay, std::function<void()> call);
  void cancel(const Timer& timer) { timers_.erase(timer); }

  // Returns after stop().
  void run();
  void stop() { running_ = false; }

 private:
  struct Watch {
    short events;
    std::uint64_t generation;  // tells a new watch of a reused descriptor from the old one
    std::function<void(short)> ready;
  };

  int time_to_next_timer() const;  // milliseconds; -1: there is none
  void call_timers();
  void wait_and_call();

  std::map<int, Watch> watches_;
  std::map<Timer, std::function<void()>> timers_;
  std::uint64_t count_ = 0;
  bool running_ = false;
};

}  // namespace sandbox::http
