// Reading URLs.
#include "indications/url.h"

#include <arpa/inet.h>

#include <charconv>

namespace sandbox::indications {

std::optional<Url> url_from(std::string_view text) {
  constexpr std::string_view scheme = "http://";
  if (!text.starts_with(scheme)) return std::nullopt;
  text.remove_prefix(scheme.size());
  const std::string_view authority = text.substr(0, text.find('/'));
  Url url{std::string(authority.substr(0, authority.find(':'))), 80,
          std::string(text.substr(authority.size()))};
  if (url.path.empty()) url.path += '/';
  if (url.path.find_first_of(" \t\r\n") != std::string::npos) return std::nullopt;
  if (url.address == "localhost") url.address = "127.0.0.1";
  in_addr address{};
  if (inet_pton(AF_INET, url.address.c_str(), &address) != 1) return std::nullopt;
  const std::size_t colon = authority.find(':');
  if (colon == std::string_view::npos) return url;
  const std::string_view port = authority.substr(colon + 1);
  const auto read = std::from_chars(port.data(), port.data() + port.size(), url.port);
  const bool is_port = read.ec == std::errc() && read.ptr == port.data() + port.size();
  if (!is_port || url.port == 0) return std::nullopt;
  return url;
}

}  // namespace sandbox::indications
