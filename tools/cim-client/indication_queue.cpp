// The bounded queue.
#include "indication_queue.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <system_error>
#include <utility>

namespace cli {

// As a semaphore, the descriptor's counter is the length of the queue.
IndicationQueue::IndicationQueue(std::size_t capacity)
    : capacity_(capacity), signal_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK | EFD_SEMAPHORE)) {
  if (!signal_.is_open()) throw std::system_error(errno, std::generic_category(), "eventfd");
}

bool IndicationQueue::push(Indication indication) {
  const std::lock_guard lock(mutex_);
  if (indications_.size() >= capacity_) return false;
  indications_.push_back(std::move(indication));
  const std::uint64_t one = 1;
  return write(signal_.number(), &one, sizeof one) == sizeof one;
}

std::optional<Indication> IndicationQueue::pop() {
  const std::lock_guard lock(mutex_);
  if (indications_.empty()) return std::nullopt;
  std::uint64_t one = 0;
  if (read(signal_.number(), &one, sizeof one) != sizeof one) return std::nullopt;
  Indication first = std::move(indications_.front());
  indications_.pop_front();
  return first;
}

}  // namespace cli
