// The commands: how each is typed, what it says of itself, and what runs it.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "context.h"

namespace cli {

// What was typed after a command's name.
struct Arguments {
  std::array<std::string, 2> words;  // the first operands; empty: not given
  std::vector<std::string> rest;     // the operands after them

  bool local_only = false;
  bool deep = false;
  bool shallow = false;
  bool qualifiers = false;
  bool no_qualifiers = false;
  bool class_origin = false;
};

// An option of one or more commands; command_line.cpp says how each is typed.
enum class Option { LocalOnly, Deep, Shallow, Qualifiers, NoQualifiers, ClassOrigin, Properties };

struct Operand {
  enum class Count { One, Optional, Any };

  std::string_view name;  // such as "CLASS"
  std::string_view help;
  Count count = Count::One;
};

struct Command {
  std::string_view name;   // such as "get-class"
  std::string_view alias;  // such as "gc"; empty: none
  std::string_view summary;
  std::vector<Operand> operands;
  std::vector<Option> options;
  std::string_view examples;  // one per line
  void (*run)(Context& context, const Arguments& arguments);
};

// Every command, in the order in which --help lists them.
const std::vector<Command>& commands();

// One group of them each.
std::vector<Command> class_commands();
std::vector<Command> instance_commands();

}  // namespace cli
