// The header block of a request, with Basic authentication.
#include "CIMC_SendRequest/headers.h"

#include <string.h>  // explicit_bzero

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "CIMC_SendRequest/base64.h"
#include "cim_client.h"

namespace {

constexpr std::string_view authorization = "Authorization: Basic ";
constexpr std::string_view line_end = "\r\n";

// Bytes of each working buffer.
constexpr std::size_t working_size = 16384;

// Bytes of credentials whose header line just fits a working buffer.  What is longer is cut: the
// line stays whole, and the object manager refuses the credentials.
constexpr std::size_t credentials_limit =
    (working_size - 1 - authorization.size() - line_end.size()) / 4 * 3;

// Characters of the block but for the credentials, and its terminator.
constexpr std::size_t room_without_credentials = 128;

// A working buffer for a text that holds credentials: cleared when it goes.
class SecretText {
 public:
  SecretText() { text[0] = '\0'; }
  SecretText(const SecretText&) = delete;
  SecretText& operator=(const SecretText&) = delete;
  ~SecretText() { explicit_bzero(text, strnlen(text, sizeof text)); }

  char text[working_size];
};

// Appends to the text in a buffer of fixed size, always terminated.  What does not fit is cut off.
class BoundedText {
 public:
  BoundedText(char* buffer, std::size_t size)
      : buffer_(buffer), size_(size), length_(strnlen(buffer, size)) {}

  BoundedText& put(std::string_view piece) {
    if (length_ + 1 >= size_) return *this;
    const std::size_t count = std::min(piece.size(), size_ - 1 - length_);
    std::memcpy(buffer_ + length_, piece.data(), count);
    length_ += count;
    buffer_[length_] = '\0';
    return *this;
  }

  std::size_t length() const { return length_; }

 private:
  char* buffer_;
  std::size_t size_;
  std::size_t length_;
};

std::string_view view(const char* text) { return text ? text : ""; }

void put_content_length(BoundedText& block, int length) {
  char line[40];
  std::snprintf(line, sizeof line, "Content-Length: %d\r\n", length);
  block.put(line);
}

void put_authorization(BoundedText& block, const char* user, const char* password) {
  SecretText credentials;
  SecretText encoded;
  BoundedText(credentials.text, credentials_limit + 1).put(view(user)).put(":").put(view(password));
  Encode64(encoded.text, credentials.text, working_size);
  block.put(authorization).put(encoded.text).put(line_end);
}

}  // namespace

namespace cim {

std::size_t header_block_room(const char* user, const char* password) {
  const std::size_t credentials = view(user).size() + 1 + view(password).size();
  return room_without_credentials + encoded_length(std::min(credentials, credentials_limit));
}

}  // namespace cim

extern "C" {

int CIMC_CreateStdHttpHeaders(const char*, int contentLength, char* buffer, int bufferSize,
                              const char* user, const char* password) {
  if (!buffer || bufferSize <= 0) return 0;
  BoundedText block(buffer, static_cast<std::size_t>(bufferSize));
  // Both extra blanks belong to the request line that object managers of the field know.
  block.put("POST  /cimom HTTP/1.1 \r\n");
  block.put("Content-Type: application/xml; charset=\"utf-8\"\r\n");
  put_content_length(block, contentLength);
  put_authorization(block, user, password);
  return static_cast<int>(block.length());
}

}  // extern "C"
