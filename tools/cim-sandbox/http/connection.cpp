// Reading, answering and closing.
#include "http/connection.h"

#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>

#include "http/response.h"

namespace sandbox::http {
namespace {

bool would_block() { return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR; }

}  // namespace

Connection::Connection(EventLoop& loop, Descriptor socket, const Handler& handler,
                       Timeouts timeouts, std::function<void()> ended)
    : loop_(loop),
      socket_(std::move(socket)),
      handler_(handler),
      timeouts_(timeouts),
      ended_(std::move(ended)) {
  loop_.watch(socket_.get(), POLLIN, [this](short events) { ready(events); });
  arm_timer(timeouts_.idle, &Connection::idle_too_long);
}

Connection::~Connection() {
  if (timer_) loop_.cancel(*timer_);
  loop_.forget(socket_.get());
}

void Connection::arm_timer(Milliseconds delay, void (Connection::*call)()) {
  if (timer_) loop_.cancel(*timer_);
  timer_ = loop_.after(delay, [this, call] {
    timer_.reset();
    (this->*call)();
  });
}

void Connection::ready(short events) {
  if ((events & (POLLERR | POLLNVAL)) != 0) return end();
  if ((events & (POLLIN | POLLHUP)) != 0 && steps_.empty()) {
    if (!receive()) return;
    return react();
  }
  if ((events & (POLLHUP | POLLRDHUP)) != 0) return end();
  if ((events & POLLOUT) != 0) play();
}

// Takes what has arrived; false when the connection has ended.
bool Connection::receive() {
  std::array<char, 65536> buffer;
  const ssize_t count = recv(socket_.get(), buffer.data(), buffer.size(), 0);
  if (count < 0) {
    if (would_block()) return true;
    end();
    return false;
  }
  if (count == 0) {
    peer_is_done_ = true;
    if (lingering_ || reader_.empty()) {
      end();
      return false;
    }
    return true;
  }
  if (!lingering_) {
    reader_.feed({buffer.data(), static_cast<std::size_t>(count)});
    arm_timer(reader_.body_looks_finished() ? timeouts_.short_body : timeouts_.idle,
              &Connection::idle_too_long);
  }
  return true;
}

void Connection::react() {
  if (lingering_ || !steps_.empty()) return;
  switch (reader_.state()) {
    case RequestReader::State::Complete: {
      const Request request = reader_.take();
      close_after_steps_ = !request.keep_alive;
      Script script = handler_(request);
      steps_.assign(std::make_move_iterator(script.begin()), std::make_move_iterator(script.end()));
      return play();
    }
    case RequestReader::State::Bad:
      return answer_bad_request(reader_.problem());
    default:
      if (peer_is_done_) return answer_bad_request({400, "the request is not complete"});
      if (reader_.take_expectation()) {
        steps_.push_back(Send{"HTTP/1.1 100 Continue\r\n\r\n"});  // NOLINT: see below
        play();
      }
  }
}

void Connection::answer_bad_request(const BadRequest& problem) {
  // gcc 12 misreads emplace_back(): it sees a text outgrow its object.
  steps_.push_back(Send{status_response(problem.status)});  // NOLINT(modernize-use-emplace)
  close_after_steps_ = true;
  play();
}

// Goes on with the steps as far as they go without waiting.
void Connection::play() {
  while (!steps_.empty() && !waiting_) {
    Step& step = steps_.front();
    if (std::holds_alternative<Send>(step)) {
      if (!send_some()) return;
    } else if (const auto* wait = std::get_if<Wait>(&step)) {
      waiting_ = true;
      arm_timer(wait->time, &Connection::wait_over);
    } else if (std::holds_alternative<Silence>(step)) {
      waiting_ = true;
      if (timer_) loop_.cancel(*timer_);
      timer_.reset();
      loop_.set_events(socket_.get(), POLLRDHUP);
      return;
    } else {
      if (std::holds_alternative<Reset>(step)) {
        const linger drop{1, 0};
        setsockopt(socket_.get(), SOL_SOCKET, SO_LINGER, &drop, sizeof drop);
      }
      return end();
    }
  }
  if (!steps_.empty()) return update_events();
  if (close_after_steps_) return begin_lingering();
  arm_timer(timeouts_.idle, &Connection::idle_too_long);
  update_events();
  go_on();
}

// After an answer: the bytes that are here already may hold the next request.
void Connection::go_on() {
  const bool next_is_here = reader_.state() == RequestReader::State::Complete ||
                            reader_.state() == RequestReader::State::Bad;
  if (next_is_here || (peer_is_done_ && !reader_.empty())) {
    arm_timer(Milliseconds(0), &Connection::react);
  } else if (peer_is_done_) {
    end();
  }
}

// Sends from the first step; false when the play must pause or the connection has ended.
bool Connection::send_some() {
  const std::string& bytes = std::get<Send>(steps_.front()).bytes;
  while (sent_ < bytes.size()) {
    const ssize_t count =
        send(socket_.get(), bytes.data() + sent_, bytes.size() - sent_, MSG_NOSIGNAL);
    if (count < 0 && would_block()) {
      arm_timer(timeouts_.idle, &Connection::idle_too_long);
      update_events();
      return false;
    }
    if (count < 0) {
      end();
      return false;
    }
    sent_ += static_cast<std::size_t>(count);
  }
  step_done();
  return true;
}

void Connection::step_done() {
  steps_.pop_front();
  sent_ = 0;
}

void Connection::wait_over() {
  waiting_ = false;
  step_done();
  play();
}

// What the client has not read yet would be lost if its own unread bytes caused a reset.
void Connection::begin_lingering() {
  lingering_ = true;
  shutdown(socket_.get(), SHUT_WR);
  if (peer_is_done_) return end();
  arm_timer(timeouts_.linger, &Connection::end);
  update_events();
}

void Connection::idle_too_long() {
  const bool owes_answer = steps_.empty() && !reader_.empty();
  if (owes_answer) return answer_bad_request({400, "the request is not complete"});
  end();
}

void Connection::update_events() {
  short events = POLLIN;
  if (!steps_.empty()) events = waiting_ ? short{0} : short{POLLOUT};
  loop_.set_events(socket_.get(), events);
}

void Connection::end() {
  const std::function<void()> ended = std::move(ended_);
  ended();
}

}  // namespace sandbox::http
