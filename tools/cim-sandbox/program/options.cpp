// The command line, read with CLI11.
#include "program/options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <fstream>

namespace sandbox {
namespace {

std::optional<Generation> generation_from(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == 0 || equals == std::string::npos) return std::nullopt;
  Generation generation{text.substr(0, equals), 0};
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data() + equals + 1, end, generation.count);
  constexpr std::size_t most = 10'000'000;
  if (read.ec != std::errc() || read.ptr != end || generation.count > most) return std::nullopt;
  return generation;
}

// The first line of a file.
std::optional<std::string> first_line_of(const std::string& path) {
  std::ifstream file(path);
  std::string line;
  if (!file.is_open()) return std::nullopt;
  std::getline(file, line);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

// What CLI11 fills, beside what goes into Options directly.
struct Raw {
  std::string user;
  std::string password;
  std::string password_file;
  std::vector<std::string> generations;
};

void describe(CLI::App& app, Options& options, Raw& raw) {
  app.set_version_flag("--version", CIM_SANDBOX_VERSION);
  app.add_option("--port", options.port, "TCP port; 0 takes a free one (default 5988)");
  app.add_option("--address", options.address, "IPv4 address to listen on (default 127.0.0.1)");
  app.add_option("--connections", options.connections,
                 "connections served at once; more wait (default 256)")
      ->check(CLI::Range(1, 10000));
  app.add_option("--namespace", options.name_space,
                 "namespace of models that name none (default root/cimv2)");
  app.add_option("--user", raw.user, "answer 401 to anybody else");
  app.add_option("--password", raw.password, "the user's password");
  app.add_option("--password-file", raw.password_file, "a file whose first line is the password")
      ->excludes("--password");
  app.add_option("--model", options.models,
                 "MOF file to serve; may be repeated (default: the sample model)");
  app.add_option("--generate", raw.generations,
                 "CLASS=COUNT: add that many synthetic instances; may be repeated");
  app.add_flag("--verbose", options.verbose, "say each request on standard error");
}

// An empty text when all is well.
std::string complete(Options& options, const Raw& raw) {
  if (raw.user.empty() && !(raw.password.empty() && raw.password_file.empty())) {
    return "a password needs --user";
  }
  if (!raw.user.empty()) options.credentials = http::Credentials{raw.user, raw.password};
  if (!raw.password_file.empty()) {
    const auto password = first_line_of(raw.password_file);
    if (!password) return "--password-file: cannot read " + raw.password_file;
    options.credentials->password = *password;
  }
  for (const std::string& text : raw.generations) {
    const auto generation = generation_from(text);
    if (!generation) return "--generate: expected CLASS=COUNT, not " + text;
    options.generations.push_back(*generation);
  }
  return {};
}

}  // namespace

Parsed parse_options(int argument_count, char** arguments) {
  constexpr int usage_status = 2;
  CLI::App app(
      "An object manager to try CIM clients on: it serves the classes and instances of\n"
      "MOF files over CIM-XML.");
  Options options;
  Raw raw;
  describe(app, options, raw);
  try {
    app.parse(argument_count, arguments);
  } catch (const CLI::ParseError& error) {
    return {std::nullopt, app.exit(error) == 0 ? 0 : usage_status};
  }
  if (const std::string problem = complete(options, raw); !problem.empty()) {
    std::fprintf(stderr, "cim-sandbox: %s\n", problem.c_str());
    return {std::nullopt, usage_status};
  }
  return {std::move(options), 0};
}

}  // namespace sandbox
