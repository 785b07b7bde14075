// What a test writes to standard output or standard error.
#include "support/captured_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace support {

CapturedOutput::CapturedOutput(std::FILE* stream)
    : stream_(stream), file_(std::tmpfile()), original_(fcntl(fileno(stream), F_DUPFD_CLOEXEC, 0)) {
  std::fflush(stream_);
  if (!file_ || original_ < 0 || dup2(fileno(file_), fileno(stream_)) < 0)
    throw std::runtime_error("output cannot be captured");
}

CapturedOutput::~CapturedOutput() {
  std::fflush(stream_);
  dup2(original_, fileno(stream_));
  close(original_);
  std::fclose(file_);
}

std::string CapturedOutput::text() const {
  std::fflush(stream_);
  std::string text;
  std::array<char, 4096> bytes;
  ssize_t count;
  while ((count = pread(fileno(file_), bytes.data(), bytes.size(),
                        static_cast<off_t>(text.size()))) > 0)
    text.append(bytes.data(), static_cast<std::size_t>(count));
  return text;
}

}  // namespace support
