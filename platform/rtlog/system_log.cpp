// The system log.  openlog() is left alone: it would change the application's own entries.
#include "system_log.h"

#include <syslog.h>
#include <unistd.h>

#include <algorithm>

namespace rtlog {
namespace {

// What any syslog daemon takes in one message, less room for its own head and ours
// (RFC 3164: 1024 bytes in all).
constexpr std::size_t longest_part = 800;  // bytes

// The first part of `line` that fits, without cutting a UTF-8 character.
std::string_view first_part(std::string_view line) {
  if (line.size() <= longest_part) return line;
  const auto continues = [&](std::size_t at) {
    return (static_cast<unsigned char>(line[at]) & 0xC0U) == 0x80U;
  };
  std::size_t end = longest_part;
  while (end > longest_part - 3 && continues(end)) --end;
  return {line.data(), end};
}

int priority(Level level) {
  switch (level) {
    case Level::Error:
      return LOG_ERR;
    case Level::Warning:
      return LOG_WARNING;
    case Level::Info:
      return LOG_INFO;
    default:
      return LOG_DEBUG;
  }
}

void write_line(Level level, std::string_view place, std::string_view line) {
  do {
    const std::string_view part = first_part(line);
    ::syslog(priority(level), "[%d] %.*s: %.*s", ::getpid(), static_cast<int>(place.size()),
             place.data(), static_cast<int>(part.size()), part.data());
    line.remove_prefix(part.size());
  } while (!line.empty());
}

}  // namespace

void write_to_system_log(Level level, std::string_view place, std::string_view text) {
  do {
    const std::size_t line_end = std::min(text.find('\n'), text.size());
    write_line(level, place, {text.data(), line_end});
    text.remove_prefix(std::min(line_end + 1, text.size()));
  } while (!text.empty());
}

}  // namespace rtlog
