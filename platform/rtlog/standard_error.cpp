// Standard error, written to directly: the application may have closed or replaced the C library's
// own stream.
#include "standard_error.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace rtlog {

void write_to_standard_error(std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
      continue;
    }
    if (errno == EINTR) continue;
    if (errno != EAGAIN) return;
    pollfd standard_error = {STDERR_FILENO, POLLOUT, 0};
    constexpr int patience = 100;  // milliseconds; then the rest is dropped
    if (::poll(&standard_error, 1, patience) == 0) return;
  }
}

}  // namespace rtlog
