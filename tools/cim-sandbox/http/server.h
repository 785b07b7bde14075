// Listens on a loopback port and keeps the connections.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>

#include "http/connection.h"
#include "http/descriptor.h"
#include "http/event_loop.h"

namespace sandbox::http {

class Server {
 public:
  struct Options {
    std::string address = "127.0.0.1";
    std::uint16_t port = 0;              // 0: any free one
    std::size_t most_connections = 256;  // more wait until one ends
    Timeouts timeouts;
  };

  Server(EventLoop& loop, Connection::Handler handler, Options options);
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  // Begins to listen.  The text says why it cannot.
  std::optional<std::string> start();
  std::uint16_t port() const { return port_; }

 private:
  void accept_one();
  void update_events();

  EventLoop& loop_;
  Connection::Handler handler_;
  Options options_;
  Descriptor listener_;
  std::uint16_t port_ = 0;
  std::list<std::unique_ptr<Connection>> connections_;
};

}  // namespace sandbox::http
