// Indications on their way from the receiver to the output.
#pragma once

#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>

#include "descriptor.h"
#include "export_message.h"

namespace cli {

// A queue between two threads that never holds more than its capacity.
class IndicationQueue {
 public:
  explicit IndicationQueue(std::size_t capacity);

  // Adds an indication. False when the queue is full: it is not taken.
  bool push(Indication indication);

  // Takes the oldest indication; none when there is none.
  std::optional<Indication> pop();

  // Readable while there is something to take.
  int descriptor() const { return signal_.number(); }

 private:
  std::size_t capacity_;
  Descriptor signal_;
  std::mutex mutex_;
  std::deque<Indication> indications_;
};

}  // namespace cli
