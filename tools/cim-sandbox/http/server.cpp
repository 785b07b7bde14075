// Listening and accepting.
#include "http/server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstring>

namespace sandbox::http {
namespace {

std::string with_reason(const std::string& what) { return what + ": " + std::strerror(errno); }

}  // namespace

Server::Server(EventLoop& loop, Connection::Handler handler, Options options)
    : loop_(loop), handler_(std::move(handler)), options_(std::move(options)) {}

Server::~Server() {
  if (listener_) loop_.forget(listener_.get());
}

std::optional<std::string> Server::start() {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(options_.port);
  if (inet_pton(AF_INET, options_.address.c_str(), &address.sin_addr) != 1) {
    return '"' + options_.address + "\" is no IPv4 address";
  }
  listener_ = Descriptor(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (!listener_) return with_reason("cannot make a socket");
  const int on = 1;
  setsockopt(listener_.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  const auto* generic = reinterpret_cast<const sockaddr*>(&address);
  if (bind(listener_.get(), generic, sizeof address) != 0 || listen(listener_.get(), 128) != 0) {
    return with_reason("cannot listen on " + options_.address + ':' +
                       std::to_string(options_.port));
  }
  socklen_t size = sizeof address;
  getsockname(listener_.get(), reinterpret_cast<sockaddr*>(&address), &size);
  port_ = ntohs(address.sin_port);
  loop_.watch(listener_.get(), POLLIN, [this](short) { accept_one(); });
  return std::nullopt;
}

void Server::accept_one() {
  Descriptor socket(accept4(listener_.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
  if (!socket) {
    // Without descriptors the listener stays ready: rest a little instead of spinning.
    if (errno == EMFILE || errno == ENFILE) {
      loop_.set_events(listener_.get(), 0);
      loop_.after(Milliseconds(100), [this] { update_events(); });
    }
    return;
  }
  const int on = 1;
  setsockopt(socket.get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  const auto place = connections_.emplace(connections_.end());
  *place = std::make_unique<Connection>(loop_, std::move(socket), handler_, options_.timeouts,
                                        [this, place] {
                                          connections_.erase(place);
                                          update_events();
                                        });
  update_events();
}

void Server::update_events() {
  const bool has_room = connections_.size() < options_.most_connections;
  loop_.set_events(listener_.get(), has_room ? short{POLLIN} : short{0});
}

}  // namespace sandbox::http
