// Decoding and comparing credentials.
#include "http/credentials.h"

#include "model/text.h"

namespace sandbox::http {
namespace {

int value_of(char letter) {
  if (letter >= 'A' && letter <= 'Z') return letter - 'A';
  if (letter >= 'a' && letter <= 'z') return letter - 'a' + 26;
  if (letter >= '0' && letter <= '9') return letter - '0' + 52;
  if (letter == '+') return 62;
  return letter == '/' ? 63 : -1;
}

}  // namespace

std::optional<std::string> decode_base64(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  std::size_t padding = 0;
  while (padding < 2 && text.ends_with('=')) {
    text.remove_suffix(1);
    ++padding;
  }
  std::string bytes;
  unsigned group = 0;
  unsigned bits = 0;
  for (const char letter : text) {
    const int value = value_of(letter);
    if (value < 0) return std::nullopt;
    group = (group << 6U | static_cast<unsigned>(value)) & 0xffffU;
    bits += 6;
    if (bits < 8) continue;
    bits -= 8;
    bytes.push_back(static_cast<char>(group >> bits & 0xffU));
  }
  return bytes;
}

bool Credentials::match(const std::string* authorization) const {
  constexpr std::string_view scheme = "Basic ";
  if (!authorization || !same_name(authorization->substr(0, scheme.size()), scheme)) return false;
  const auto given = decode_base64(trimmed(std::string_view(*authorization).substr(scheme.size())));
  return given && *given == user + ':' + password;
}

}  // namespace sandbox::http
