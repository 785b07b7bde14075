// A running sandbox object manager.
#pragma once

#include <sys/types.h>

#include <cstdint>

namespace support {

// Serves the sample model on a free port of the loopback while it exists.
class SandboxProcess {
 public:
  explicit SandboxProcess(const char* program);
  SandboxProcess(const SandboxProcess&) = delete;
  SandboxProcess& operator=(const SandboxProcess&) = delete;
  ~SandboxProcess();

  // 0 when it did not start.
  std::uint16_t port() const { return port_; }

 private:
  pid_t process_ = 0;
  std::uint16_t port_ = 0;
};

}  // namespace support
