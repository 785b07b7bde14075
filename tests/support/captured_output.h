// What a test writes to standard output or standard error.
#pragma once

#include <cstdio>
#include <string>

namespace support {

// Takes what is written to `stream` while it exists, also what is written to its descriptor.
class CapturedOutput {
 public:
  explicit CapturedOutput(std::FILE* stream);
  CapturedOutput(const CapturedOutput&) = delete;
  CapturedOutput& operator=(const CapturedOutput&) = delete;
  ~CapturedOutput();

  // Everything written so far.
  std::string text() const;

 private:
  std::FILE* stream_;
  std::FILE* file_;
  int original_;
};

}  // namespace support
