// A poll() loop.
#include "http/event_loop.h"

#include <poll.h>

#include <algorithm>
#include <vector>

namespace sandbox::http {

void EventLoop::watch(int descriptor, short events, std::function<void(short)> ready) {
  watches_[descriptor] = {events, ++count_, std::move(ready)};
}

void EventLoop::set_events(int descriptor, short events) {
  const auto found = watches_.find(descriptor);
  if (found != watches_.end()) found->second.events = events;
}

void EventLoop::forget(int descriptor) { watches_.erase(descriptor); }

EventLoop::Timer EventLoop::after(Milliseconds delay, std::function<void()> call) {
  const Timer timer{std::chrono::steady_clock::now() + delay, ++count_};
  timers_.emplace(timer, std::move(call));
  return timer;
}

void EventLoop::run() {
  running_ = true;
  while (running_) {
    wait_and_call();
    call_timers();
  }
}

int EventLoop::time_to_next_timer() const {
  if (timers_.empty()) return -1;
  const auto due = timers_.begin()->first.first - std::chrono::steady_clock::now();
  const auto wait = std::chrono::ceil<Milliseconds>(due).count();
  constexpr long longest = 60000;
  return static_cast<int>(std::clamp(static_cast<long>(wait), 0L, longest));
}

void EventLoop::call_timers() {
  const auto now = std::chrono::steady_clock::now();
  while (running_ && !timers_.empty() && timers_.begin()->first.first <= now) {
    const auto call = std::move(timers_.begin()->second);
    timers_.erase(timers_.begin());
    call();
  }
}

void EventLoop::wait_and_call() {
  std::vector<pollfd> polled;
  std::vector<std::uint64_t> generations;
  for (const auto& [descriptor, watch] : watches_) {
    polled.push_back({descriptor, watch.events, 0});
    generations.push_back(watch.generation);
  }
  if (poll(polled.data(), polled.size(), time_to_next_timer()) <= 0) return;
  for (std::size_t i = 0; i < polled.size() && running_; ++i) {
    if (polled[i].revents == 0) continue;
    const auto found = watches_.find(polled[i].fd);
    if (found == watches_.end() || found->second.generation != generations[i]) continue;
    const auto ready = found->second.ready;  // a copy: the call may forget the watch
    ready(polled[i].revents);
  }
}

}  // namespace sandbox::http
