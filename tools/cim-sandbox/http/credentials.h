// Basic authentication.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sandbox::http {

// The bytes that a base64 text stands for (RFC 4648, section 4); nothing when it is not valid.
std::optional<std::string> decode_base64(std::string_view text);

struct Credentials {
  std::string user;
  std::string password;

  // True when an Authorization header's value carries them; null: the header is missing.
  bool match(const std::string* authorization) const;
};

}  // namespace sandbox::http
