// A server on a loopback port that plays a script on each connection that it accepts.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <variant>
#include <vector>

namespace support {

// What the server does on one connection, step by step.  Behind the last step it waits for the
// client to close, and closes.
class ServerScript {
 public:
  // Reads one request: up to the empty line, then as many bytes as its Content-Length says.
  ServerScript& read_request();
  // Writes bytes in one piece, which the client's first read finds together.
  ServerScript& send(std::string bytes);
  // Writes bytes in pieces of `size`, each a segment of its own.
  ServerScript& send_in_pieces(std::string bytes, std::size_t size);
  ServerScript& pause(std::chrono::milliseconds time);
  // Closes; unread bytes of the client make that a reset.
  ServerScript& close();
  // Closes with a reset.
  ServerScript& reset();

  struct ReadRequest {};
  struct Send {
    std::string bytes;
    std::size_t piece;
  };
  struct Pause {
    std::chrono::milliseconds time;
  };
  struct Close {
    bool reset;
  };
  using Step = std::variant<ReadRequest, Send, Pause, Close>;
  const std::vector<Step>& steps() const { return steps_; }

 private:
  std::vector<Step> steps_;
};

// The most common script: reads the request and answers it in one piece.
ServerScript answer(std::string bytes);

class ScriptedServer {
 public:
  // Plays one script per connection, in turn; the last one again for every further connection.
  explicit ScriptedServer(std::vector<ServerScript> scripts);
  explicit ScriptedServer(ServerScript script) : ScriptedServer(std::vector{std::move(script)}) {}
  ScriptedServer(const ScriptedServer&) = delete;
  ScriptedServer& operator=(const ScriptedServer&) = delete;
  ~ScriptedServer();

  const char* host() const { return "127.0.0.1"; }
  std::uint16_t port() const { return port_; }

  // Bytes that the clients have sent, one text per connection, once `connections` of them are
  // over.  Fewer when that takes more than ten seconds.
  std::vector<std::string> received(std::size_t connections = 1);

  // True when each client has closed its connection, once `connections` of them are over.
  bool closed_by_clients(std::size_t connections = 1);

 private:
  class Player;

  void run();
  void wait_for(std::unique_lock<std::mutex>& lock, std::size_t connections);

  std::vector<ServerScript> scripts_;
  std::uint16_t port_ = 0;
  int listener_;
  int stop_;  // readable when the server ends
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::string> received_;
  bool closed_by_clients_ = true;
  std::thread thread_;
};

// A loopback port on which nobody listens.
std::uint16_t unused_port();

}  // namespace support
