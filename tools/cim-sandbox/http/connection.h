// One client's connection.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "http/descriptor.h"
#include "http/event_loop.h"
#include "http/request_reader.h"
#include "http/script.h"

namespace sandbox::http {

struct Timeouts {
  Milliseconds idle{15000};  // as devices have it
  // After a body that looks finished but is shorter than announced.
  Milliseconds short_body{1000};
  // For a client to read an error response before its unread bytes are dropped.
  Milliseconds linger{1000};
};

// Reads requests, has them answered, and plays the answers' scripts, one after the other.
class Connection {
 public:
  using Handler = std::function<Script(const Request&)>;

  // `ended` is called when the connection is over; it may destroy this object.
  Connection(EventLoop& loop, Descriptor socket, const Handler& handler, Timeouts timeouts,
             std::function<void()> ended);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

 private:
  void ready(short events);
  bool receive();
  void react();
  void answer_bad_request(const BadRequest& problem);
  void play();
  void go_on();
  bool send_some();
  void step_done();
  void begin_lingering();
  void end();
  void arm_timer(Milliseconds delay, void (Connection::*call)());
  void idle_too_long();
  void wait_over();
  void update_events();

  EventLoop& loop_;
  Descriptor socket_;
  const Handler& handler_;
  Timeouts timeouts_;
  std::function<void()> ended_;
  RequestReader reader_;
  std::deque<Step> steps_;
  std::size_t sent_ = 0;  // bytes of the first step
  bool waiting_ = false;  // until the timer of the first step
  bool close_after_steps_ = false;
  bool peer_is_done_ = false;
  bool lingering_ = false;
  std::optional<EventLoop::Timer> timer_;
};

}  // namespace sandbox::http
