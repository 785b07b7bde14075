// Where the object manager is, and as whom to ask it.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace cli {

struct Target {
  std::string host = "localhost";
  std::uint16_t port = 5988;  // the port registered for CIM-XML over HTTP
  std::string name_space = "root/cimv2";
  std::string user;  // may be empty
};

// What one source (an option, a URL, the environment) says of a target.
struct TargetParts {
  std::optional<std::string> host;
  std::optional<std::uint16_t> port;
  std::optional<std::string> name_space;
  std::optional<std::string> user;
};

// Reads "http://user@host:port/namespace"; everything but the host may be missing, as may
// "http://". User and namespace are percent-decoded. Throws a usage failure, also for a password
// in the URL: every process of the machine could read it there.
TargetParts parse_url(std::string_view url);

// A port number from 1 to 65535. Throws a usage failure.
std::uint16_t parse_port(std::string_view text);

// A namespace without slashes at its ends. Throws a usage failure when nothing is left.
std::string parse_namespace(std::string_view text);

// A user name. Throws a usage failure for one with a colon, which HTTP cannot send.
std::string parse_user(std::string_view text);

// The target made of the first source that names each part, and of the defaults.
Target merged(std::initializer_list<TargetParts> sources);

}  // namespace cli
