// Reading URLs and joining what several sources say of a target.
#include "target.h"

#include <charconv>

#include "exit_status.h"
#include "utf8.h"

namespace cli {
namespace {

// The value of a hexadecimal digit, or -1.
constexpr int hex_value(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  return -1;
}

// The byte that the escape at the front of `text` ("%2F") stands for, or -1.
int escaped_byte(std::string_view text) {
  if (text.size() < 3) return -1;
  const int high = hex_value(text[1]);
  const int low = hex_value(text[2]);
  return high < 0 || low < 0 ? -1 : high * 16 + low;
}

std::string percent_decoded(std::string_view text, std::string_view what) {
  std::string result;
  while (!text.empty()) {
    if (text.front() != '%') {
      result += text.front();
      text.remove_prefix(1);
      continue;
    }
    const int byte = escaped_byte(text);
    if (byte <= 0)
      throw usage_failure("the " + std::string(what) + " in the URL holds a \"%\" without two " +
                          "hexadecimal digits; write \"%25\" for the character itself");
    result += static_cast<char>(byte);
    text.remove_prefix(3);
  }
  return result;
}

// Takes the scheme off the front of `url`.
std::string_view without_scheme(std::string_view url) {
  const std::size_t end = url.find("://");
  if (end == std::string_view::npos) return url;
  const std::string_view scheme = url.substr(0, end);
  if (!same_name(scheme, "http"))
    throw usage_failure("the URL begins with \"" + printable(scheme) +
                        "://\"; only http:// is spoken");
  return url.substr(end + 3);
}

std::string parse_url_user(std::string_view text) {
  if (text.find(':') != std::string_view::npos)
    throw usage_failure(
        "the URL holds a password, which other users of this machine could read; give it with "
        "--password-file, CIM_CLIENT_PASSWORD or at the prompt");
  return parse_user(percent_decoded(text, "user name"));
}

// Reads "host" or "host:port" into `parts`.
void parse_authority(std::string_view text, TargetParts& parts) {
  if (!text.empty() && text.front() == '[')
    throw usage_failure("the URL holds an IPv6 address; only IPv4 is spoken");
  const std::size_t colon = text.find(':');
  const std::string_view host = text.substr(0, colon);
  if (host.empty()) throw usage_failure("the URL names no host");
  parts.host = std::string(host);
  if (colon != std::string_view::npos) parts.port = parse_port(text.substr(colon + 1));
}

// The first of `sources` that names the part.
template <class Part>
std::optional<Part> first_named(std::initializer_list<TargetParts> sources,
                                std::optional<Part> TargetParts::*part) {
  for (const TargetParts& source : sources) {
    if (source.*part) return source.*part;
  }
  return std::nullopt;
}

}  // namespace

std::uint16_t parse_port(std::string_view text) {
  std::uint16_t port = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (problem != std::errc() || end != text.data() + text.size() || port == 0)
    throw usage_failure("\"" + printable(text) + "\" is no port; ports go from 1 to 65535");
  return port;
}

std::string parse_namespace(std::string_view text) {
  const std::size_t first = text.find_first_not_of('/');
  if (first == std::string_view::npos) throw usage_failure("the namespace is empty");
  const std::size_t last = text.find_last_not_of('/');
  return std::string(text.substr(first, last - first + 1));
}

std::string parse_user(std::string_view text) {
  if (text.find(':') != std::string_view::npos)
    throw usage_failure("a user name cannot hold a colon");
  return std::string(text);
}

TargetParts parse_url(std::string_view url) {
  TargetParts parts;
  std::string_view rest = without_scheme(url);
  const std::size_t slash = rest.find('/');
  const std::string_view path =
      slash == std::string_view::npos ? std::string_view() : rest.substr(slash + 1);
  rest = rest.substr(0, slash);
  const std::size_t at = rest.rfind('@');
  if (at != std::string_view::npos) {
    parts.user = parse_url_user(rest.substr(0, at));
    rest = rest.substr(at + 1);
  }
  parse_authority(rest, parts);
  if (!path.empty()) parts.name_space = parse_namespace(percent_decoded(path, "namespace"));
  return parts;
}

Target merged(std::initializer_list<TargetParts> sources) {
  Target target;
  target.host = first_named(sources, &TargetParts::host).value_or(target.host);
  target.port = first_named(sources, &TargetParts::port).value_or(target.port);
  target.name_space = first_named(sources, &TargetParts::name_space).value_or(target.name_space);
  target.user = first_named(sources, &TargetParts::user).value_or(target.user);
  return target;
}

}  // namespace cli
