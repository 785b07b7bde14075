// The connection to an object manager; CIMC_TcpConnect() is declared in cim_client.h.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>

namespace cim {

// Owns a stream socket, and closes it.  A negative descriptor is no socket: its operations fail.
class Socket {
 public:
  explicit Socket(int descriptor) : descriptor_(descriptor) {}
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;
  ~Socket();

  bool is_open() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }

  // Gives the descriptor to the caller, who closes it.
  int release();

  // Writes all `size` bytes.  False when a write fails.  No SIGPIPE reaches the application when
  // the peer has gone.
  bool write_all(const char* bytes, std::size_t size) const;

  // Reads once, at most `size` bytes.  The number read, or negative for a failure.
  ssize_t read(char* bytes, std::size_t size) const;

  // True when the peer has ended its stream: nothing can follow what was read.
  bool closed_by_peer() const;

  // Asks for a receive time-out, with an option length of 0, which systems refuse: reads wait
  // without limit.
  void request_receive_timeout(std::uint32_t milliseconds) const;

 private:
  int descriptor_;
};

}  // namespace cim
