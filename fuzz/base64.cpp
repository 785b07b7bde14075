// Encode64() and Decode64() with rooms of arbitrary size, and there and back.  The first byte of
// the input is the size of the room.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "cim_client.h"

namespace {

// A room whose end the sanitizers watch.
using Room = std::unique_ptr<char[]>;
Room room(std::size_t size) { return Room(new char[size]); }

// Padding and the terminator go behind characters that are cut at the size.
void encode(const std::string& text, std::size_t size) {
  const Room out = room(size + 3);
  Encode64(out.get(), text.c_str(), static_cast<int>(size));
  if (std::strlen(out.get()) > size + 2) std::abort();
}

// "String too big" takes 15 bytes whatever the size is.
void decode(const std::string& text, std::size_t size) {
  const Room out = room(size < 15 ? 15 : size);
  const int result = Decode64(out.get(), text.c_str(), static_cast<int>(size));
  if (result != 0 && std::strcmp(out.get(), "String too big") != 0) std::abort();
}

// The decoder does not know "+" and "/".
void there_and_back(const std::string& text) {
  const std::size_t size = text.size() * 2 + 8;
  const Room encoded = room(size);
  Encode64(encoded.get(), text.c_str(), static_cast<int>(size));
  if (std::strpbrk(encoded.get(), "+/")) return;
  const Room decoded = room(size);
  if (Decode64(decoded.get(), encoded.get(), static_cast<int>(size)) != 0) std::abort();
  if (text != decoded.get()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const auto* begin = reinterpret_cast<const char*>(data + 1);
  const std::string text(begin, strnlen(begin, size - 1));
  encode(text, data[0]);
  decode(text, data[0]);
  there_and_back(text);
  return 0;
}
