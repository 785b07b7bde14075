// What the environment variable asks for.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace rtlog {

inline constexpr const char* variable = "CIM_CLIENT_LOG";

// The variable's value; null where it is not set, and in programs with more rights than their
// caller.
const char* value_of_variable();

// The numbers that callers pass.
enum class Level { Error, Warning, Info, Debug, Trace };

// The nearest one, of any number.
Level level_of(int number);

enum class Target { Nowhere, StandardError, Syslog, File };

struct Settings {
  Target target = Target::Nowhere;
  Level level = Level::Info;  // and those before it

  // Of Target::File:
  std::string_view path;           // borrowed from the value
  std::size_t size = 1024 * 1024;  // bytes; a file that would grow beyond it is set aside
  std::size_t keep = 3;            // files set aside
};

// Why a value cannot be understood: a sentence, which may end in a part of the value, quoted.
struct Complaint {
  std::string_view what;
  std::optional<std::string_view> part;  // borrowed from the value
};

// Nothing when `value` cannot be understood; `complaint` then says why.
std::optional<Settings> parse_settings(std::string_view value, Complaint& complaint);

}  // namespace rtlog
