// How people write values on the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

// A "Name=value" as it was typed.
struct Assignment {
  std::string name;
  std::string value;
};

// Splits at the first "=". Throws a usage failure without one, or without a name.
Assignment parse_assignment(std::string_view text);

// A single value: `null` is none, a text in double quotes loses them (with \", \\ and \n inside),
// anything else stands for itself.
std::optional<std::string> scalar_of(std::string_view text);

// What a letter behind a backslash stands for: n, t and r for white space, others for themselves.
char unescaped(char letter);

// The elements of `[a, "b, c", D{E=1}]` as they were typed; a text without brackets is the only
// element. Throws a usage failure when brackets or quotes do not match.
std::vector<std::string> elements_of(std::string_view text);

// An embedded instance, `CIM_Setting{Name="a", Speed=3}`.
struct EmbeddedText {
  std::string class_name;
  std::vector<Assignment> members;
};

// Throws a usage failure when the text has another form.
EmbeddedText embedded_of(std::string_view text);

}  // namespace cli
