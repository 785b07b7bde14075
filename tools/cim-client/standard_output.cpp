// Keeping standard output clean.
#include "standard_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "exit_status.h"

namespace cli {

DescriptorBuffer::DescriptorBuffer(int descriptor) : descriptor_(descriptor), buffer_() {
  setp(buffer_.data(), buffer_.data() + buffer_.size());
}

DescriptorBuffer::int_type DescriptorBuffer::overflow(int_type letter) {
  if (!empty()) return traits_type::eof();
  if (traits_type::eq_int_type(letter, traits_type::eof())) return traits_type::not_eof(letter);
  return sputc(traits_type::to_char_type(letter));
}

int DescriptorBuffer::sync() { return empty() ? 0 : -1; }

bool DescriptorBuffer::empty() {
  const char* next = pbase();
  while (next < pptr()) {
    const ssize_t count = write(descriptor_, next, static_cast<std::size_t>(pptr() - next));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    next += count;
  }
  setp(buffer_.data(), buffer_.data() + buffer_.size());
  return true;
}

StandardOutput::StandardOutput(bool remarks_to_standard_error)
    : true_output_(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3)),
      buffer_(true_output_.number()),
      stream_(&buffer_) {
  std::fflush(stdout);
  if (remarks_to_standard_error) {
    dup2(STDERR_FILENO, STDOUT_FILENO);
    return;
  }
  const Descriptor nowhere(open("/dev/null", O_WRONLY | O_CLOEXEC));
  if (nowhere.is_open()) dup2(nowhere.number(), STDOUT_FILENO);
}

StandardOutput::~StandardOutput() {
  std::fflush(stdout);
  if (true_output_.is_open()) dup2(true_output_.number(), STDOUT_FILENO);
}

void StandardOutput::finish() {
  errno = 0;
  stream_.flush();
  if (stream_) return;
  const int reason = errno;
  throw usage_failure(std::string("cannot write to standard output") +
                      (reason == 0 ? "" : std::string(": ") + std::strerror(reason)));
}

}  // namespace cli
