// Where indications go.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sandbox::indications {

struct Url {
  std::string address;  // IPv4, dotted
  std::uint16_t port;
  std::string path;  // begins with a slash
};

// Reads "http://ADDRESS[:PORT][/PATH]"; "localhost" is 127.0.0.1, and the port otherwise 80.
std::optional<Url> url_from(std::string_view text);

}  // namespace sandbox::indications
