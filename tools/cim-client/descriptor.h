// File descriptors that close themselves.
#pragma once

#include <unistd.h>

#include <utility>

namespace cli {

// Owns a file descriptor; -1: none.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { reset(); }

  bool is_open() const { return number_ >= 0; }
  int number() const { return number_; }

  void reset() {
    if (number_ >= 0) close(number_);
    number_ = -1;
  }

 private:
  int number_ = -1;
};

}  // namespace cli
