// A running sandbox object manager.
#include "clientapi/sandbox_process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

namespace support {

SandboxProcess::SandboxProcess(const char* program) {
  int output[2];
  if (pipe(output) != 0) return;
  process_ = fork();
  if (process_ == 0) {
    dup2(output[1], STDOUT_FILENO);
    close(output[0]);
    close(output[1]);
    execl(program, program, "--port", "0", nullptr);
    _exit(127);
  }
  close(output[1]);
  std::FILE* greeting = fdopen(output[0], "r");
  unsigned port = 0;
  if (std::fscanf(greeting, "listening on 127.0.0.1:%u", &port) == 1)
    port_ = static_cast<std::uint16_t>(port);
  std::fclose(greeting);
}

SandboxProcess::~SandboxProcess() {
  if (process_ <= 0) return;
  kill(process_, SIGTERM);
  waitpid(process_, nullptr, 0);
}

}  // namespace support
