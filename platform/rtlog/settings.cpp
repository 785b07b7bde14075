// The environment variable and its grammar.
#include "settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <utility>

namespace rtlog {
namespace {

constexpr std::size_t kilobyte = 1024;
constexpr std::size_t megabyte = 1024 * kilobyte;
constexpr std::size_t smallest_size = 4 * kilobyte;
constexpr std::size_t largest_size = 1024 * megabyte;
constexpr std::size_t most_kept = 100;  // files

// Nothing unless `text` is a decimal number and nothing else.
std::optional<std::size_t> number(std::string_view text) {
  std::size_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<std::size_t> file_size(std::string_view text) {
  std::size_t unit = 1;
  if (text.ends_with('K')) unit = kilobyte;
  if (text.ends_with('M')) unit = megabyte;
  if (unit != 1) text.remove_suffix(1);
  const auto count = number(text);
  if (!count || *count > largest_size / unit || *count * unit < smallest_size) return std::nullopt;
  return *count * unit;
}

// The part of `text` before and behind its first `count` bytes.  substr() and what it serves may
// throw.
std::string_view front(std::string_view text, std::size_t count) {
  return {text.data(), std::min(count, text.size())};
}

std::string_view behind(std::string_view text, std::size_t count) {
  text.remove_prefix(std::min(count, text.size()));
  return text;
}

bool begins_with(std::string_view text, std::string_view beginning) {
  return front(text, beginning.size()) == beginning;
}

// `options` is what follows the path, from the first comma on.
bool parse_file_options(std::string_view options, Settings& settings, Complaint& complaint) {
  constexpr std::string_view size = ",size=";
  constexpr std::string_view keep = ",keep=";
  while (!options.empty()) {
    const std::string_view option = front(options, options.find(',', 1));
    options.remove_prefix(option.size());
    if (begins_with(option, size)) {
      const std::string_view text = behind(option, size.size());
      const auto bytes = file_size(text);
      if (!bytes) {
        complaint = {"size is a number of bytes from 4K to 1024M, not ", text};
        return false;
      }
      settings.size = *bytes;
    } else if (begins_with(option, keep)) {
      const std::string_view text = behind(option, keep.size());
      const auto files = number(text);
      if (!files || *files > most_kept) {
        complaint = {"keep is a number of files from 0 to 100, not ", text};
        return false;
      }
      settings.keep = *files;
    } else {
      complaint = {"unknown option ", behind(option, 1)};
      return false;
    }
  }
  return true;
}

// Commas belong to the path unless a known option follows.
std::size_t end_of_path(std::string_view text) {
  return std::min({text.find(",size="), text.find(",keep="), text.size()});
}

bool parse_target(std::string_view text, Settings& settings, Complaint& complaint) {
  constexpr std::string_view file = "file=";
  if (text == "stderr") {
    settings.target = Target::StandardError;
    return true;
  }
  if (text == "syslog") {
    settings.target = Target::Syslog;
    return true;
  }
  if (!begins_with(text, file)) {
    complaint = {"the target is stderr, syslog or file=PATH, not ", text};
    return false;
  }
  text.remove_prefix(file.size());
  const std::size_t path_size = end_of_path(text);
  if (path_size == 0) {
    complaint = {"file= needs a path", std::nullopt};
    return false;
  }
  settings.target = Target::File;
  settings.path = front(text, path_size);
  return parse_file_options(behind(text, path_size), settings, complaint);
}

bool parse_level(std::string_view text, Settings& settings, Complaint& complaint) {
  constexpr std::array<std::pair<std::string_view, Level>, 5> levels{{{"error", Level::Error},
                                                                      {"warning", Level::Warning},
                                                                      {"info", Level::Info},
                                                                      {"debug", Level::Debug},
                                                                      {"trace", Level::Trace}}};
  for (const auto& [name, level] : levels) {
    if (text != name) continue;
    settings.level = level;
    return true;
  }
  complaint = {"the level is off, error, warning, info, debug or trace, not ", text};
  return false;
}

}  // namespace

const char* value_of_variable() { return ::secure_getenv(variable); }

Level level_of(int number) {
  constexpr int last = static_cast<int>(Level::Trace);
  return static_cast<Level>(std::clamp(number, 0, last));
}

std::optional<Settings> parse_settings(std::string_view value, Complaint& complaint) {
  if (value.empty()) return Settings{};
  const std::size_t colon = value.rfind(':');
  Settings settings;
  if (!parse_target(front(value, colon), settings, complaint)) return std::nullopt;
  if (colon == std::string_view::npos) return settings;
  const std::string_view level = behind(value, colon + 1);
  if (level == "off") return Settings{};
  if (!parse_level(level, settings, complaint)) return std::nullopt;
  return settings;
}

}  // namespace rtlog
