// The command line, read with CLI11.
#include "program/options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <fstream>
#include <sstream>

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

std::optional<std::string> content_of(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  if (!file.is_open() || !(content << file.rdbuf())) return std::nullopt;
  return std::move(content).str();
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
  std::vector<std::string> faults;
  std::string fault_file;
  std::string indicate;
};

void describe(CLI::App& app, Options& options, Raw& raw) {
  app.set_version_flag("--version", "cim-sandbox " CIM_SANDBOX_VERSION, "print the version");
  app.set_help_flag("--help,-h", "print this help");
  const auto add = [&app](const char* name, auto& target, const char* type, const char* text) {
    return app.add_option(name, target, text)->type_name(type)->allow_extra_args(false);
  };
  add("--port", options.port, "NUMBER", "TCP port; 0 takes a free one (default 5988)");
  add("--address", options.address, "IPV4", "address to listen on (default 127.0.0.1)");
  add("--connections", options.connections, "NUMBER",
      "connections served at once, from 1 to 10000; more wait (default 256)")
      ->check([](const std::string& text) {
        return CLI::Range(1, 10000)(text).empty() ? "" : "expected a number from 1 to 10000";
      });
  add("--namespace", options.name_space, "NAME",
      "namespace of models that name none (default root/cimv2)");
  add("--user", raw.user, "NAME", "answer 401 to anybody else");
  add("--password", raw.password, "TEXT", "the user's password");
  add("--password-file", raw.password_file, "FILE",
      "a file whose first line is the password, instead of --password");
  add("--model", options.models, "FILE",
      "MOF file to serve, may be repeated (default: the sample model)");
  add("--generate", raw.generations, "CLASS=COUNT",
      "add that many synthetic instances, may be repeated");
  add("--fault", raw.faults, "TEXT",
      "misbehave on purpose, such as \"every 3 delay 500\", may be repeated");
  add("--faults", raw.fault_file, "FILE", "a file with one such fault on each line");
  add("--indicate", raw.indicate, "URL",
      "report changes of instances to a URL such as http://127.0.0.1:5990/");
  add("--record", options.record, "FILE", "write every exchange into a file");
  app.add_flag("--verbose", options.verbose, "tell each request on standard error");
}

// An empty text when all is well.
std::string read_faults(faults::Plan& plan, const Raw& raw) {
  if (!raw.fault_file.empty()) {
    const auto content = content_of(raw.fault_file);
    if (!content) return "--faults: cannot read " + raw.fault_file;
    if (const auto problem = plan.add(raw.fault_file, *content)) return *problem;
  }
  for (const std::string& text : raw.faults) {
    if (const auto problem = plan.add("--fault", text)) return *problem;
  }
  return {};
}

std::string complete(Options& options, const Raw& raw) {
  if (raw.user.empty() && !(raw.password.empty() && raw.password_file.empty())) {
    return "a password needs --user";
  }
  if (!raw.password.empty() && !raw.password_file.empty()) {
    return "--password and --password-file exclude each other";
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
  if (!raw.indicate.empty()) {
    options.indicate = indications::url_from(raw.indicate);
    if (!options.indicate) return "--indicate: expected http://ADDRESS:PORT/PATH";
  }
  return read_faults(options.faults, raw);
}

}  // namespace

Parsed parse_options(int argument_count, char** arguments) {
  constexpr int usage_status = 2;
  CLI::App app(
      "An object manager to try CIM clients on: it serves the classes and instances of\n"
      "MOF files over CIM-XML.",
      "cim-sandbox");
  app.failure_message([](const CLI::App*, const CLI::Error& error) {
    return std::string("cim-sandbox: ") + error.what() + "\nSee cim-sandbox --help.\n";
  });
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
