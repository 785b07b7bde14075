// A client that sends and receives bytes as a test says.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace sandbox::test {

class RawClient {
 public:
  explicit RawClient(std::uint16_t port) : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    connected_ = connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  }
  RawClient(const RawClient&) = delete;
  RawClient& operator=(const RawClient&) = delete;
  ~RawClient() { close(socket_); }

  bool connected() const { return connected_; }

  void send(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
      if (count <= 0) return;
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }
  void finish_sending() { shutdown(socket_, SHUT_WR); }

  // One read of at most `size` bytes, as soon as there are any; empty at the end, after an error
  // (see was_reset) and after ten seconds without a byte.
  std::string receive_once(std::size_t size) {
    pollfd waiting{socket_, POLLIN, 0};
    constexpr int longest_wait_ms = 10000;
    if (poll(&waiting, 1, longest_wait_ms) <= 0) {
      timed_out_ = true;
      return {};
    }
    std::string bytes(size, '\0');
    const ssize_t count = recv(socket_, bytes.data(), bytes.size(), 0);
    was_reset_ = count < 0;
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return bytes;
  }

  // True when nothing arrives within that time.
  bool stays_silent(int milliseconds) {
    pollfd waiting{socket_, POLLIN, 0};
    return poll(&waiting, 1, milliseconds) == 0;
  }

  // Everything until the other side closes.
  std::string receive_all() {
    std::string all;
    while (true) {
      const std::string piece = receive_once(65536);
      if (piece.empty()) return all;
      all += piece;
    }
  }

  // One whole response, by its Content-Length.
  std::string receive_response() {
    std::string response;
    while (!is_complete(response)) {
      const std::string piece = receive_once(65536);
      if (piece.empty()) break;
      response += piece;
    }
    return response;
  }

  bool was_reset() const { return was_reset_; }
  bool timed_out() const { return timed_out_; }

 private:
  static bool is_complete(const std::string& response) {
    const std::size_t head_end = response.find("\r\n\r\n");
    if (head_end == std::string::npos) return false;
    const std::size_t label = response.find("Content-Length: ");
    const std::size_t length = label < head_end ? std::stoul(response.substr(label + 16)) : 0;
    return response.size() >= head_end + 4 + length;
  }

  int socket_;
  bool connected_ = false;
  bool was_reset_ = false;
  bool timed_out_ = false;
};

}  // namespace sandbox::test
