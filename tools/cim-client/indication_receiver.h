// The HTTP server that indications are sent to.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include "descriptor.h"
#include "indication_queue.h"

struct MHD_Daemon;

namespace cli {

// Listens, reads export requests in a thread of its own and puts their indications into a queue.
// It is the only thread that uses the library's reader meanwhile. Requests that are no indications
// are refused and change nothing.
class IndicationReceiver {
 public:
  static constexpr std::size_t request_limit = 1024 * 1024;  // bytes

  // Listens on the IPv4 address; port 0 takes a free one. Throws a usage failure when it cannot.
  IndicationReceiver(const std::string& address, std::uint16_t port, IndicationQueue& queue);
  ~IndicationReceiver();
  IndicationReceiver(const IndicationReceiver&) = delete;
  IndicationReceiver& operator=(const IndicationReceiver&) = delete;

  std::uint16_t port() const;

  // Takes no more connections, and waits until the requests at work have been answered, or for a
  // few seconds. What was accepted is in the queue then.
  void finish();

  // Requests that have begun and are not answered yet.
  std::size_t at_work();

  // Requests refused so far: no indications, and those for which the queue had no room.
  std::size_t malformed() const { return malformed_; }
  std::size_t turned_away() const { return turned_away_; }

 private:
  class Request;
  struct Stop {
    void operator()(MHD_Daemon* daemon) const;
  };

  IndicationQueue& queue_;
  std::atomic<std::size_t> malformed_ = 0;
  std::atomic<std::size_t> turned_away_ = 0;
  std::mutex mutex_;
  std::condition_variable answered_;
  std::size_t at_work_ = 0;
  Descriptor listening_;  // of a finished receiver; outlives the daemon
  std::unique_ptr<MHD_Daemon, Stop> daemon_;
};

}  // namespace cli
