// A server on a loopback port that plays a script on each connection that it accepts.
#include "support/scripted_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace support {
namespace {

constexpr std::chrono::seconds patience{10};

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

int listen_on_loopback(std::uint16_t* port) {
  const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* generic = reinterpret_cast<sockaddr*>(&address);
  if (listener < 0 || bind(listener, generic, size) != 0 || listen(listener, 16) != 0 ||
      getsockname(listener, generic, &size) != 0)
    throw std::runtime_error("no loopback port to listen on");
  *port = ntohs(address.sin_port);
  return listener;
}

// Bytes of the request that `text` begins with; 0 while it is not whole.
std::size_t request_size(std::string_view text) {
  std::size_t head = text.find("\n\n");
  const std::size_t lines = text.substr(0, head).find("\r\n\r\n");
  if (lines != std::string_view::npos) head = lines + 2;
  if (head == std::string_view::npos) return 0;
  head += 2;
  constexpr std::string_view label = "Content-Length:";
  const std::size_t found = text.substr(0, head).find(label);
  std::size_t body = 0;
  if (found != std::string_view::npos)
    body = std::strtoul(std::string(text.substr(found + label.size(), 20)).c_str(), nullptr, 10);
  return text.size() >= head + body ? head + body : 0;
}

}  // namespace

ServerScript& ServerScript::read_request() { return steps_.emplace_back(ReadRequest{}), *this; }
ServerScript& ServerScript::send(std::string bytes) {
  return send_in_pieces(std::move(bytes), SIZE_MAX);
}
ServerScript& ServerScript::send_in_pieces(std::string bytes, std::size_t size) {
  return steps_.emplace_back(Send{std::move(bytes), size}), *this;
}
ServerScript& ServerScript::pause(std::chrono::milliseconds time) {
  return steps_.emplace_back(Pause{time}), *this;
}
ServerScript& ServerScript::close() { return steps_.emplace_back(Close{false}), *this; }
ServerScript& ServerScript::reset() { return steps_.emplace_back(Close{true}), *this; }

ServerScript answer(std::string bytes) {
  return ServerScript().read_request().send(std::move(bytes));
}

// Plays one script on one connection.
class ScriptedServer::Player {
 public:
  Player(int connection, int stop) : connection_(connection), stop_(stop) {
    const int on = 1;
    setsockopt(connection_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  }
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;
  ~Player() {
    if (connection_ >= 0) ::close(connection_);
  }

  void play(const ServerScript& script) {
    for (const ServerScript::Step& step : script.steps()) {
      std::visit(Overloaded{[&](const ServerScript::ReadRequest&) { read_request(); },
                            [&](const ServerScript::Send& send) { write_pieces(send); },
                            [&](const ServerScript::Pause& pause) { wait(pause.time); },
                            [&](const ServerScript::Close& close) { end(close.reset); }},
                 step);
      if (connection_ < 0) return;
    }
    while (read_some()) {
    }
  }

  const std::string& received() const { return received_; }
  bool closed_by_client() const { return closed_by_client_; }

 private:
  // True when the client has sent something, or closed.
  bool readable() {
    std::array<pollfd, 2> states{{{connection_, POLLIN, 0}, {stop_, POLLIN, 0}}};
    const auto limit = static_cast<int>(std::chrono::milliseconds(patience).count());
    return poll(states.data(), states.size(), limit) > 0 && states[0].revents;
  }

  bool read_some() {
    if (!readable()) return false;
    std::array<char, 65536> bytes;
    const ssize_t count = recv(connection_, bytes.data(), bytes.size(), 0);
    if (count <= 0) return closed_by_client_ = true, false;
    received_.append(bytes.data(), static_cast<std::size_t>(count));
    return true;
  }

  void read_request() {
    while (request_size(received_) == 0 && read_some()) {
    }
  }

  void write_pieces(const ServerScript::Send& send) const {
    std::size_t at = 0;
    while (at < send.bytes.size()) {
      const std::size_t size = std::min(send.piece, send.bytes.size() - at);
      const ssize_t count = ::send(connection_, send.bytes.data() + at, size, MSG_NOSIGNAL);
      if (count < 0) return;
      at += static_cast<std::size_t>(count);
    }
  }

  void wait(std::chrono::milliseconds time) const {
    pollfd state{stop_, POLLIN, 0};
    poll(&state, 1, static_cast<int>(time.count()));
  }

  void end(bool reset) {
    const linger at_once{1, 0};
    if (reset) setsockopt(connection_, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
    ::close(std::exchange(connection_, -1));
    closed_by_client_ = true;  // nobody can tell any more
  }

  int connection_;
  int stop_;
  std::string received_;
  bool closed_by_client_ = false;
};

ScriptedServer::ScriptedServer(std::vector<ServerScript> scripts)
    : scripts_(std::move(scripts)),
      listener_(listen_on_loopback(&port_)),
      stop_(eventfd(0, EFD_CLOEXEC)),
      thread_([this] { run(); }) {}

ScriptedServer::~ScriptedServer() {
  eventfd_write(stop_, 1);
  thread_.join();
  close(stop_);
  close(listener_);
}

void ScriptedServer::run() {
  for (std::size_t number = 0;; ++number) {
    std::array<pollfd, 2> states{{{listener_, POLLIN, 0}, {stop_, POLLIN, 0}}};
    poll(states.data(), states.size(), -1);
    if (states[1].revents) return;
    const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (connection < 0) continue;
    Player player(connection, stop_);
    player.play(scripts_[std::min(number, scripts_.size() - 1)]);
    const std::lock_guard lock(mutex_);
    received_.push_back(player.received());
    closed_by_clients_ = closed_by_clients_ && player.closed_by_client();
    changed_.notify_all();
  }
}

void ScriptedServer::wait_for(std::unique_lock<std::mutex>& lock, std::size_t connections) {
  changed_.wait_for(lock, patience, [&] { return received_.size() >= connections; });
}

std::vector<std::string> ScriptedServer::received(std::size_t connections) {
  std::unique_lock lock(mutex_);
  wait_for(lock, connections);
  return received_;
}

bool ScriptedServer::closed_by_clients(std::size_t connections) {
  std::unique_lock lock(mutex_);
  wait_for(lock, connections);
  return received_.size() >= connections && closed_by_clients_;
}

std::uint16_t unused_port() {
  std::uint16_t port = 0;
  close(listen_on_loopback(&port));
  return port;
}

}  // namespace support
