// A listening socket whose test accepts, reads and answers by itself.
#pragma once

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace sandbox::test {

class Listener {
 public:
  Listener() : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    EXPECT_EQ(bind(socket_, generic, sizeof address), 0);
    EXPECT_EQ(listen(socket_, 8), 0);
    socklen_t size = sizeof address;
    getsockname(socket_, generic, &size);
    port_ = ntohs(address.sin_port);
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() { close(socket_); }

  std::uint16_t port() const { return port_; }

  // Takes one connection, reads until `end` has arrived, answers, and gives what it read.
  std::string serve(std::string_view end, std::string_view answer) const {
    const int client = accept(socket_, nullptr, nullptr);
    std::string all;
    while (!all.ends_with(end)) {
      char buffer[4096];
      const ssize_t count = recv(client, buffer, sizeof buffer, 0);
      if (count <= 0) break;
      all.append(buffer, static_cast<std::size_t>(count));
    }
    EXPECT_EQ(send(client, answer.data(), answer.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(answer.size()));
    close(client);
    return all;
  }

 private:
  int socket_;
  std::uint16_t port_ = 0;
};

}  // namespace sandbox::test
