// Connecting to an object manager, and writing to and reading from the connection.
#include "CIMC_SendRequest/connection.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>
#include <utility>

#include "cim_client.h"

namespace {

// Blocks SIGPIPE in the calling thread.  A SIGPIPE that was pending before stays pending.
class BlockedPipeSignal {
 public:
  BlockedPipeSignal() {
    sigset_t pending;
    sigemptyset(&pending);
    sigpending(&pending);
    was_pending_ = sigismember(&pending, SIGPIPE) == 1;
    sigemptyset(&pipe_);
    sigaddset(&pipe_, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
  }
  BlockedPipeSignal(const BlockedPipeSignal&) = delete;
  BlockedPipeSignal& operator=(const BlockedPipeSignal&) = delete;
  ~BlockedPipeSignal() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

  // Takes back the signal that a write has raised.
  void take_back() const {
    if (was_pending_) return;
    const timespec at_once{};
    while (sigtimedwait(&pipe_, nullptr, &at_once) == -1 && errno == EINTR) {
    }
  }

 private:
  sigset_t pipe_;
  sigset_t before_;
  bool was_pending_;
};

// A connect that a signal interrupts goes on by itself: the next call waits for it, or finds the
// socket connected.
bool connect_to(const cim::Socket& socket, const sockaddr_in& address) {
  bool interrupted = false;
  while (connect(socket.descriptor(), reinterpret_cast<const sockaddr*>(&address),
                 sizeof address) == -1) {
    if (errno == EISCONN) return interrupted;
    if (errno != EINTR) return false;
    interrupted = true;
  }
  return true;
}

}  // namespace

namespace cim {

Socket::~Socket() {
  if (is_open()) close(descriptor_);
}

int Socket::release() { return std::exchange(descriptor_, -1); }

bool Socket::write_all(const char* bytes, std::size_t size) const {
  const BlockedPipeSignal signal;
  while (size > 0) {
    const ssize_t count = write(descriptor_, bytes, size);
    if (count < 0) {
      if (errno == EINTR) continue;
      if (errno == EPIPE) signal.take_back();
      return false;
    }
    bytes += count;
    size -= static_cast<std::size_t>(count);
  }
  return true;
}

ssize_t Socket::read(char* bytes, std::size_t size) const {
  ssize_t count;
  do count = recv(descriptor_, bytes, size, 0);
  while (count < 0 && errno == EINTR);
  return count;
}

bool Socket::closed_by_peer() const {
  pollfd state{descriptor_, POLLRDHUP, 0};
  return poll(&state, 1, 0) > 0 && (state.revents & POLLRDHUP);
}

void Socket::request_receive_timeout(std::uint32_t milliseconds) const {
  timeval limit{};
  limit.tv_sec = static_cast<time_t>(milliseconds / 1000);
  limit.tv_usec = static_cast<suseconds_t>(milliseconds % 1000);  // milliseconds as they stand
  setsockopt(descriptor_, SOL_SOCKET, SO_RCVTIMEO, &limit, 0);
}

}  // namespace cim

extern "C" {

int CIMC_TcpConnect(const char* host, uint32_t port) {
  if (!host) return -1;
  cim::Socket socket(::socket(AF_INET, SOCK_STREAM, 0));
  if (!socket.is_open()) return -1;
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<uint16_t>(port));
  address.sin_addr.s_addr = inet_addr(host);
  return connect_to(socket, address) ? socket.release() : -1;
}

}  // extern "C"
