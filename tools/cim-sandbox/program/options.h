// The command line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "faults/fault.h"
#include "http/credentials.h"
#include "indications/url.h"

namespace sandbox {

// "CLASS=COUNT"
struct Generation {
  std::string class_name;
  std::size_t count;
};

struct Options {
  std::string address = "127.0.0.1";
  std::uint16_t port = 5988;  // the registered port of CIM-XML over HTTP
  std::size_t connections = 256;
  std::string name_space = "root/cimv2";
  std::optional<http::Credentials> credentials;
  std::vector<std::string> models;  // empty: the sample model
  std::vector<Generation> generations;
  faults::Plan faults;
  std::string record;                        // a file's name; empty: nothing is recorded
  std::optional<indications::Url> indicate;  // where indications go
  bool verbose = false;
};

// Options, or the status with which the program ends at once: help and version were printed, or
// what is wrong with the command line.
struct Parsed {
  std::optional<Options> options;
  int exit_status = 0;
};
Parsed parse_options(int argument_count, char** arguments);

}  // namespace sandbox
