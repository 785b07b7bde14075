// Standard output, for this program alone: the library prints remarks of its own there.
#pragma once

#include <array>
#include <ostream>
#include <streambuf>

#include "descriptor.h"

namespace cli {

// Writes to a descriptor. A failed write puts the stream into the state "bad".
class DescriptorBuffer : public std::streambuf {
 public:
  explicit DescriptorBuffer(int descriptor);

 protected:
  int_type overflow(int_type letter) override;
  int sync() override;

 private:
  bool empty();

  int descriptor_;
  std::array<char, 65536> buffer_;
};

// While it lives, the process's standard output goes nowhere, or to standard error, and stream()
// is the true one.
class StandardOutput {
 public:
  explicit StandardOutput(bool remarks_to_standard_error);
  StandardOutput(const StandardOutput&) = delete;
  StandardOutput& operator=(const StandardOutput&) = delete;
  ~StandardOutput();

  std::ostream& stream() { return stream_; }

  // Writes what is pending. Throws a failure when standard output does not take it.
  void finish();

 private:
  Descriptor true_output_;
  DescriptorBuffer buffer_;
  std::ostream stream_;
};

}  // namespace cli
