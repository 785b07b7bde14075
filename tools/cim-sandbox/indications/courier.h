// Delivers indications over HTTP, one after the other, while the sandbox goes on serving.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "http/descriptor.h"
#include "http/event_loop.h"
#include "indications/url.h"

namespace sandbox::indications {

class Courier {
 public:
  struct Limits {
    std::size_t most_waiting = 1000;  // documents; beyond it the oldest is dropped
    http::Milliseconds time{5000};    // for one delivery
  };

  // `report` hears of each delivery that failed, and why.
  Courier(http::EventLoop& loop, Url url, Limits limits,
          std::function<void(const std::string&)> report);
  ~Courier();
  Courier(const Courier&) = delete;
  Courier& operator=(const Courier&) = delete;

  // Takes over an export request document.
  void deliver(const std::string& document);

 private:
  void begin_next();
  void connect_and_send();
  void ready(short events);
  void send_some();
  void receive_some();
  void finish();
  void fail(const std::string& why);

  http::EventLoop& loop_;
  Url url_;
  Limits limits_;
  std::function<void(const std::string&)> report_;
  std::deque<std::string> waiting_;  // whole HTTP requests; the first one is on its way
  http::Descriptor socket_;
  std::size_t sent_ = 0;
  std::string answer_;
  std::optional<http::EventLoop::Timer> timer_;
};

}  // namespace sandbox::indications
