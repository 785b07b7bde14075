// The memory behind a password.
#include "secret.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace cli {

Secret::Secret() : buffer_(std::make_unique<char[]>(limit + 1)) {}

Secret::Secret(std::string_view text) : Secret() {
  length_ = std::min(text.size(), limit);
  std::copy_n(text.begin(), length_, buffer_.get());
}

Secret::Secret(Secret&& other) noexcept
    : buffer_(std::move(other.buffer_)), length_(std::exchange(other.length_, 0)) {}

Secret& Secret::operator=(Secret&& other) noexcept {
  std::swap(buffer_, other.buffer_);
  std::swap(length_, other.length_);
  return *this;
}

Secret::~Secret() {
  if (buffer_ != nullptr) explicit_bzero(buffer_.get(), limit + 1);
}

bool Secret::append(char letter) {
  if (length_ == limit) return false;
  buffer_[length_++] = letter;
  return true;
}

void Secret::drop_last() {
  if (length_ == 0) return;
  buffer_[--length_] = '\0';
}

}  // namespace cli
