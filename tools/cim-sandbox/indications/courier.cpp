// One connection for each indication.
#include "indications/courier.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace sandbox::indications {
namespace {

std::string request_of(const Url& url, const std::string& document) {
  return "POST " + url.path +
         " HTTP/1.1\r\n"
         "Host: " +
         url.address + ':' + std::to_string(url.port) +
         "\r\n"
         "Content-Type: application/xml; charset=\"utf-8\"\r\n"
         "Content-Length: " +
         std::to_string(document.size()) +
         "\r\n"
         "Connection: close\r\n"
         "CIMExport: MethodRequest\r\n"
         "CIMExportMethod: ExportIndication\r\n"
         "\r\n" +
         document;
}

}  // namespace

Courier::Courier(http::EventLoop& loop, Url url, Limits limits,
                 std::function<void(const std::string&)> report)
    : loop_(loop), url_(std::move(url)), limits_(limits), report_(std::move(report)) {}

Courier::~Courier() {
  if (timer_) loop_.cancel(*timer_);
  if (socket_) loop_.forget(socket_.get());
}

void Courier::deliver(const std::string& document) {
  waiting_.push_back(request_of(url_, document));
  if (waiting_.size() > limits_.most_waiting) {
    // The first one is on its way; the one behind it is the oldest that waits.
    waiting_.erase(waiting_.begin() + (socket_ ? 1 : 0));
    report_("too many indications wait: the oldest is dropped");
  }
  if (!timer_) begin_next();
}

void Courier::begin_next() {
  if (waiting_.empty()) return;
  sent_ = 0;
  answer_.clear();
  timer_ = loop_.after(limits_.time, [this] {
    timer_.reset();
    fail("it takes too long");
  });
  connect_and_send();
}

void Courier::connect_and_send() {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(url_.port);
  inet_pton(AF_INET, url_.address.c_str(), &address.sin_addr);
  socket_ = http::Descriptor(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (!socket_) return fail(std::strerror(errno));
  const auto* generic = reinterpret_cast<const sockaddr*>(&address);
  if (connect(socket_.get(), generic, sizeof address) != 0 && errno != EINPROGRESS) {
    return fail(std::strerror(errno));
  }
  loop_.watch(socket_.get(), POLLOUT, [this](short events) { ready(events); });
}

void Courier::ready(short events) {
  int error = 0;
  socklen_t size = sizeof error;
  getsockopt(socket_.get(), SOL_SOCKET, SO_ERROR, &error, &size);
  if (error != 0) return fail(std::strerror(error));
  if ((events & POLLOUT) != 0) return send_some();
  receive_some();
}

void Courier::send_some() {
  const std::string& request = waiting_.front();
  while (sent_ < request.size()) {
    const ssize_t count =
        send(socket_.get(), request.data() + sent_, request.size() - sent_, MSG_NOSIGNAL);
    if (count < 0) {
      if (errno == EAGAIN || errno == EINTR) return;
      return fail(std::strerror(errno));
    }
    sent_ += static_cast<std::size_t>(count);
  }
  loop_.set_events(socket_.get(), POLLIN);
}

// Only the first line of the answer matters: whether the listener took the indication.
void Courier::receive_some() {
  std::array<char, 4096> buffer;
  const ssize_t count = recv(socket_.get(), buffer.data(), buffer.size(), 0);
  if (count < 0) {
    if (errno == EAGAIN || errno == EINTR) return;
    return fail(std::strerror(errno));
  }
  answer_.append(buffer.data(), static_cast<std::size_t>(count));
  const std::size_t line_end = answer_.find('\n');
  if (line_end == std::string::npos) {
    if (count == 0 || answer_.size() > buffer.size()) fail("the answer is no HTTP");
    return;
  }
  const bool is_http = answer_.starts_with("HTTP/1.");
  const std::size_t status = answer_.find_first_not_of(' ', answer_.find(' '));
  const bool is_success = is_http && status != std::string::npos && answer_[status] == '2';
  if (!is_success) return fail("the answer is " + answer_.substr(0, line_end));
  finish();
}

void Courier::finish() {
  if (timer_) loop_.cancel(*timer_);
  timer_.reset();
  if (socket_) loop_.forget(socket_.get());
  socket_.close();
  waiting_.pop_front();
  // Not at once: a listener that refuses connections must not make the queue a deep recursion.
  if (waiting_.empty()) return;
  timer_ = loop_.after(http::Milliseconds(0), [this] {
    timer_.reset();
    begin_next();
  });
}

void Courier::fail(const std::string& why) {
  report_("an indication could not be delivered to " + url_.address + ':' +
          std::to_string(url_.port) + ": " + why);
  finish();
}

}  // namespace sandbox::indications
