// The commands: how each is typed, what it says of itself, and what runs it.
#pragma once

#include <array>
#include <cstdint>
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
  bool partial = false;

  std::string assoc_class;
  std::string result_class;
  std::string role;
  std::string result_role;

  std::string language = "WQL";
  std::string probe_class;

  std::uint16_t depth = 1;
  std::string svg_file;
  std::string png_file;

  std::string listen_port = "5990";
  std::string listen_address = "127.0.0.1";
  std::uint64_t count = 0;  // indications; 0: no limit
};

// An option of one or more commands; command_line.cpp says how each is typed.
enum class Option {
  LocalOnly,
  Deep,
  Shallow,
  Qualifiers,
  NoQualifiers,
  ClassOrigin,
  Properties,
  Partial,
  AssocClass,
  ResultClass,
  Role,
  ResultRole,
  Language,
  ProbeClass,
  Depth,
  SvgFile,
  PngFile,
  ListenPort,
  ListenAddress,
  Count
};

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
std::vector<Command> change_commands();
std::vector<Command> association_commands();
std::vector<Command> method_commands();
std::vector<Command> listen_commands();
std::vector<Command> graph_commands();
std::vector<Command> doctor_commands();

}  // namespace cli
