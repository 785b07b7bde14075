// A text that must not stay behind in memory.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace cli {

// Holds a password of bounded length; its memory is overwritten when it goes. It can be moved,
// not copied, and nothing prints it.
class Secret {
 public:
  static constexpr std::size_t limit = 1024;  // bytes, without the terminator

  Secret();
  explicit Secret(std::string_view text);  // cut at `limit`
  Secret(Secret&& other) noexcept;
  Secret& operator=(Secret&& other) noexcept;
  Secret(const Secret&) = delete;
  Secret& operator=(const Secret&) = delete;
  ~Secret();

  // Adds one byte. False when there is no room.
  bool append(char letter);

  // Takes the last byte away, if there is one.
  void drop_last();

  // The text, terminated.
  const char* text() const { return buffer_.get(); }
  std::size_t length() const { return length_; }

 private:
  std::unique_ptr<char[]> buffer_;
  std::size_t length_ = 0;
};

}  // namespace cli
