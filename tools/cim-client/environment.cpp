// Reading the environment.
#include "environment.h"

#include <cstdlib>

namespace cli {

std::optional<std::string> environment(const char* name) {
  const char* value = std::getenv(name);
  if (value == nullptr || *value == '\0') return std::nullopt;
  return std::string(value);
}

TargetParts target_from_environment() {
  TargetParts parts;
  parts.host = environment("CIM_CLIENT_HOST");
  if (const auto port = environment("CIM_CLIENT_PORT")) parts.port = parse_port(*port);
  if (const auto name = environment("CIM_CLIENT_NAMESPACE"))
    parts.name_space = parse_namespace(*name);
  if (const auto user = environment("CIM_CLIENT_USER")) parts.user = parse_user(*user);
  return parts;
}

TargetParts url_from_environment() {
  const std::optional<std::string> url = environment("CIM_CLIENT_URL");
  return url ? parse_url(*url) : TargetParts();
}

}  // namespace cli
