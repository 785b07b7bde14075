// Takes HTTP requests out of a stream of bytes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sandbox::http {

struct Request {
  std::string method;
  std::string target;
  std::vector<std::pair<std::string, std::string>> headers;  // in order of arrival
  std::string body;
  std::string raw_head;  // request line and headers as they arrived, with the empty line
  bool keep_alive = true;

  // Null when there is none of that name.
  const std::string* header(std::string_view name) const;
};

// A status that answers a request which cannot be taken any further.
struct BadRequest {
  int status;
  std::string reason;
};

struct Limits {
  std::size_t head = 32U << 10U;  // bytes
  std::size_t body = 64U << 20U;
};

// The head ends at the first empty line, whatever mixture of CR LF and LF ends the lines: after
// "...\r\n\n\r" the CR already belongs to the body, as the announced length of such a client
// counts on.
class RequestReader {
 public:
  enum class State { Head, Body, Complete, Bad };

  explicit RequestReader(Limits limits = {}) : limits_(limits) {}

  void feed(std::string_view bytes);
  State state() const { return state_; }

  // In state Complete: the request.  Bytes behind it begin the next one.
  Request take();
  // In state Bad.
  const BadRequest& problem() const { return problem_; }

  // True once for a request whose client waits for "100 Continue" before it sends the body.
  bool take_expectation();
  bool empty() const { return state_ == State::Head && buffer_.empty(); }
  // True when the body that is still incomplete looks like a finished document.
  bool body_looks_finished() const;

 private:
  void advance();
  bool find_head_end();
  std::optional<BadRequest> read_head(std::string_view head);
  std::optional<BadRequest> read_request_line(std::string_view line);
  std::optional<BadRequest> read_header(std::string_view line);
  std::optional<BadRequest> read_framing();
  void fail(BadRequest problem);

  Limits limits_;
  State state_ = State::Head;
  std::string buffer_;
  std::size_t scanned_ = 0;  // of the head: bytes in whole lines
  std::size_t body_size_ = 0;
  bool expects_continue_ = false;
  Request request_;
  BadRequest problem_{};
};

}  // namespace sandbox::http
