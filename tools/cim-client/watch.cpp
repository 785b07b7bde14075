// The thread that keeps the time.
#include "watch.h"

#include <unistd.h>

#include <iostream>
#include <utility>

#include "exchange.h"
#include "exit_status.h"

namespace cli {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto tick = std::chrono::milliseconds(100);
constexpr auto patience = std::chrono::seconds(1);  // waits shorter than this show nothing

}  // namespace

Watch::Watch(std::string whom, std::chrono::seconds limit, bool show_progress)
    : whom_(std::move(whom)),
      limit_(limit),
      show_progress_(show_progress),
      thread_([this] { keep_time(); }) {}

Watch::~Watch() {
  {
    const std::lock_guard lock(mutex_);
    over_ = true;
  }
  changed_.notify_one();
  thread_.join();
  erase();
}

void Watch::keep_time() {
  const Clock::time_point begin = Clock::now();
  std::unique_lock lock(mutex_);
  while (!over_) {
    changed_.wait_for(lock, tick, [this] { return over_; });
    if (over_) return;
    const auto elapsed = Clock::now() - begin;
    if (limit_.count() > 0 && elapsed >= limit_) give_up();
    if (show_progress_ && elapsed >= patience)
      show(std::chrono::duration_cast<std::chrono::seconds>(elapsed));
  }
}

void Watch::show(std::chrono::seconds elapsed) {
  const std::size_t objects = last_exchange().objects.load(std::memory_order_relaxed);
  std::cerr << "\r\x1b[K";
  if (objects == 0)
    std::cerr << "waiting for " << whom_ << ", " << elapsed.count() << " s";
  else
    std::cerr << "reading the answer, " << objects << " objects";
  std::cerr << std::flush;
  shown_ = true;
}

void Watch::erase() const {
  if (shown_) std::cerr << "\r\x1b[K" << std::flush;
}

void Watch::give_up() const {
  erase();
  std::cerr << "cim-client: no answer from " << whom_ << " within " << limit_.count()
            << " s (see --timeout)\n"
            << std::flush;
  _exit(static_cast<int>(ExitStatus::NoAnswer));
}

}  // namespace cli
