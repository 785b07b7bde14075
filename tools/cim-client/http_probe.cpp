// The exchange, read by read.
#include "http_probe.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <vector>

#include "cim_client.h"
#include "descriptor.h"
#include "utf8.h"

namespace cli {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t first_read_limit = 2047;          // bytes; as much as the library reads first
constexpr std::size_t answer_limit = 16 * 1024 * 1024;  // bytes; more is not looked at
constexpr std::string_view length_label = "Content-Length:";
constexpr std::string_view document_begin = "<?xml";

// What is left of the time, for poll().
int remaining(Clock::time_point deadline) {
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
  return static_cast<int>(std::clamp<long>(left.count(), 0, 1'000'000'000));
}

// Waits until the socket is ready for `events`. False when the time is over.
bool wait_for(int socket_number, short events, Clock::time_point deadline) {
  pollfd entry = {socket_number, events, 0};
  while (true) {
    const int count = poll(&entry, 1, remaining(deadline));
    if (count > 0) return true;
    if (count == 0) return false;
    if (errno != EINTR) return false;
  }
}

// Connects; the error is left in `result`.
Descriptor connected(const std::string& address, std::uint16_t port, Clock::time_point deadline,
                     HttpExchange& result) {
  Descriptor connection(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (!connection.is_open()) {
    result.connect_error = errno;
    return connection;
  }
  sockaddr_in peer = {};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(port);
  inet_pton(AF_INET, address.c_str(), &peer.sin_addr);
  const auto* generic = reinterpret_cast<const sockaddr*>(&peer);
  if (connect(connection.number(), generic, sizeof(peer)) == 0) return connection;
  result.connect_error = errno;
  if (errno != EINPROGRESS) return connection;
  if (!wait_for(connection.number(), POLLOUT, deadline)) {
    result.connect_error = ETIMEDOUT;
    return connection;
  }
  int error = 0;
  socklen_t size = sizeof(error);
  getsockopt(connection.number(), SOL_SOCKET, SO_ERROR, &error, &size);
  result.connect_error = error;
  return connection;
}

// Head and body in one text, framed as the library frames them. Its memory is cleared by the
// caller: the head holds the password.
std::vector<char> framed(const std::string& user, const Secret& password,
                         const std::string& request) {
  const std::size_t room = 512 + 2 * (user.size() + password.length());
  std::vector<char> message;
  message.reserve(room + 2 + request.size());  // never moved, which would leave a copy behind
  message.resize(room);
  CIMC_CreateStdHttpHeaders(nullptr, static_cast<int>(request.size()) + 1, message.data(),
                            static_cast<int>(room), user.c_str(), password.text());
  message.resize(std::string_view(message.data()).size());
  message.push_back('\n');
  message.push_back('\r');
  message.insert(message.end(), request.begin(), request.end());
  return message;
}

void write_all(int socket_number, const std::vector<char>& message, Clock::time_point deadline,
               HttpExchange& result) {
  std::size_t written = 0;
  while (written < message.size()) {
    const ssize_t count =
        send(socket_number, message.data() + written, message.size() - written, MSG_NOSIGNAL);
    if (count >= 0) {
      written += static_cast<std::size_t>(count);
      continue;
    }
    if (errno == EAGAIN && wait_for(socket_number, POLLOUT, deadline)) continue;
    if (errno == EINTR) continue;
    result.write_error = errno;
    return;
  }
}

bool is_complete(const HttpExchange& exchange) {
  if (exchange.answer.size() >= answer_limit) return true;
  const std::size_t blank = exchange.answer.find("\r\n\r\n");
  if (blank == std::string::npos) return false;
  const long length = exchange.content_length();
  if (length < 0) return exchange.is_chunked() && exchange.answer.ends_with("\r\n0\r\n\r\n");
  return exchange.answer.size() - (blank + 4) >= static_cast<std::size_t>(length);
}

void read_answer(int socket_number, Clock::time_point deadline, HttpExchange& result) {
  std::array<char, 16384> buffer = {};
  while (!is_complete(result)) {
    if (!wait_for(socket_number, POLLIN, deadline)) {
      result.timed_out = true;
      return;
    }
    const std::size_t room = result.answer.empty() ? first_read_limit : buffer.size();
    const ssize_t count = recv(socket_number, buffer.data(), room, 0);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (count <= 0) {
      result.closed = true;
      return;
    }
    result.answer.append(buffer.data(), static_cast<std::size_t>(count));
    if (result.first == 0) result.first = result.answer.size();
  }
}

}  // namespace

std::string_view HttpExchange::status_line() const {
  return std::string_view(answer).substr(0, answer.find_first_of("\r\n"));
}

int HttpExchange::status() const {
  std::string_view line = status_line();
  if (!line.starts_with("HTTP/")) return 0;
  const std::size_t blank = line.find(' ');
  if (blank == std::string_view::npos) return 0;
  line.remove_prefix(blank);
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  int number = 0;
  std::from_chars(line.data(), line.data() + line.size(), number);
  return number;
}

long HttpExchange::content_length() const {
  const std::size_t label = answer.find(length_label);
  if (label == std::string::npos) return -1;
  std::string_view text = std::string_view(answer).substr(label + length_label.size());
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  long length = -1;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), length);
  return problem == std::errc() && length >= 0 ? length : -1;
}

bool HttpExchange::is_chunked() const {
  const std::string head = lower_case(answer.substr(0, answer.find("\r\n\r\n")));
  return head.find("transfer-encoding: chunked") != std::string::npos;
}

bool HttpExchange::came_together() const {
  const std::string_view begin = std::string_view(answer).substr(0, first);
  return begin.find(length_label) != std::string_view::npos &&
         begin.find(document_begin) != std::string_view::npos;
}

std::string_view HttpExchange::document() const {
  const std::size_t begin = answer.find(document_begin);
  return begin == std::string::npos ? std::string_view() : std::string_view(answer).substr(begin);
}

HttpExchange probe(const std::string& address, std::uint16_t port, const std::string& user,
                   const Secret& password, const std::string& request,
                   std::chrono::milliseconds limit) {
  HttpExchange result;
  const Clock::time_point deadline = Clock::now() + limit;
  const Descriptor connection = connected(address, port, deadline, result);
  if (result.connect_error != 0) return result;
  std::vector<char> message = framed(user, password, request);
  write_all(connection.number(), message, deadline, result);
  explicit_bzero(message.data(), message.size());
  read_answer(connection.number(), deadline, result);
  return result;
}

}  // namespace cli
