// Options and operands, read by CLI11.
#include "command_line.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <charconv>
#include <iostream>
#include <new>

#include "command.h"
#include "context.h"
#include "environment.h"
#include "exit_status.h"
#include "standard_output.h"
#include "version.h"

namespace cli {
namespace {

constexpr const char* footer =
    "Where the object manager is, each part from the first place that names it:\n"
    "  1. --host, --port, --namespace, --user\n"
    "  2. --url http://USER@HOST:PORT/NAMESPACE\n"
    "  3. CIM_CLIENT_HOST, CIM_CLIENT_PORT, CIM_CLIENT_NAMESPACE, CIM_CLIENT_USER\n"
    "  4. CIM_CLIENT_URL\n"
    "  5. localhost, port 5988, root/cimv2, no user\n"
    "\n"
    "The password is asked for on the terminal when a user is named; or it comes from\n"
    "--password-file or from the variables CIM_CLIENT_PASSWORD, CIM_CLIENT_PASSWORD_FILE.\n"
    "\n"
    "Exit status: 0 success, 1 the object manager reported an error, 2 the command cannot be\n"
    "carried out as given, 3 no answer, 4 user or password refused.\n"
    "\n"
    "Examples:\n"
    "  cim-client enumerate-instances CIM_Fan\n"
    "  cim-client --url http://admin@192.168.1.20/root/cimv2 get-class CIM_Fan\n"
    "  cim-client --output json ei CIM_Fan\n"
    "\n"
    "'cim-client COMMAND --help' says more about a command.\n";

// What was typed before or after the command's name and holds for every command.
struct GlobalOptions {
  std::string url;
  std::string host;
  std::string port;
  std::string name_space;
  std::string user;
  std::string password_file;
  bool ask_password = false;
  std::string timeout;
  std::string output;
  std::string layout;
  std::string backend;
  bool verbose = false;
};

std::optional<std::string> given(const std::string& text) {
  return text.empty() ? std::nullopt : std::optional(text);
}

void declare_global_options(CLI::App& app, GlobalOptions& options) {
  app.add_option("-u,--url", options.url, "the object manager: http://USER@HOST:PORT/NAMESPACE")
      ->type_name("URL");
  app.add_option("-H,--host", options.host, "its host, a name or an IPv4 address")
      ->type_name("HOST");
  app.add_option("-P,--port", options.port, "its port")->type_name("PORT");
  app.add_option("-n,--namespace", options.name_space, "the namespace to address")
      ->type_name("NAMESPACE");
  app.add_option("-U,--user", options.user, "the user to ask as")->type_name("USER");
  app.add_option("--password-file", options.password_file,
                 "file whose first line is the password; - is standard input")
      ->type_name("FILE");
  app.add_flag("-W,--ask-password", options.ask_password, "ask for the password");
  app.add_option("-t,--timeout", options.timeout,
                 "seconds to wait for an answer, 0 without limit (default 60)")
      ->type_name("SECONDS");
  app.add_option("-o,--output", options.output, "text (default), json or xml")->type_name("FORMAT");
  app.add_option("--layout", options.layout,
                 "of text: auto (default: tables if they fit the terminal), table or blocks")
      ->type_name("LAYOUT");
  app.add_option("--backend", options.backend,
                 "xml (CIM-XML over HTTP) or local (the broker of this machine), for this run")
      ->type_name("BACKEND");
  app.add_flag("-v,--verbose", options.verbose, "show the exchange on standard error");
}

// Adds one of a command's options that take a value.
void declare_value_option(CLI::App& app, Option option, Arguments& arguments) {
  const auto add = [&app](const char* names, auto& place, const char* type, const char* help) {
    app.add_option(names, place, help)->type_name(type);
  };
  switch (option) {
    case Option::AssocClass:
      return add("--assoc-class", arguments.assoc_class, "CLASS",
                 "only through associations of this class");
    case Option::ResultClass:
      return add("--result-class", arguments.result_class, "CLASS", "only results of this class");
    case Option::Role:
      return add("--role", arguments.role, "NAME", "only where OBJECT plays this role");
    case Option::ResultRole:
      return add("--result-role", arguments.result_role, "NAME",
                 "only where the result plays this role");
    case Option::Language:
      return add("--language", arguments.language, "NAME", "the query language (default WQL)");
    case Option::ProbeClass:
      return add("--class", arguments.probe_class, "CLASS",
                 "the class to read (default: the first in the namespace)");
    case Option::Depth:
      return add("--depth", arguments.depth, "N", "how many associations away to go (default 1)");
    case Option::SvgFile:
      return add("--svg", arguments.svg_file, "FILE", "draw into an SVG file; needs 'dot'");
    case Option::PngFile:
      return add("--png", arguments.png_file, "FILE", "draw into a PNG file; needs 'dot'");
    case Option::ListenPort:
      return add("--listen-port", arguments.listen_port, "PORT",
                 "the port to listen on, 0 for a free one (default 5990)");
    case Option::ListenAddress:
      return add("--listen-address", arguments.listen_address, "ADDRESS",
                 "the IPv4 address to listen on (default 127.0.0.1)");
    case Option::Count:
      return add("--count", arguments.count, "N", "end after N indications");
    default:
      return;
  }
}

// Adds one of a command's options.
void declare_option(CLI::App& app, Option option, Arguments& arguments,
                    std::vector<std::string>& properties) {
  switch (option) {
    case Option::LocalOnly:
      app.add_flag("--local-only", arguments.local_only,
                   "only what the class itself defines, nothing inherited");
      return;
    case Option::Deep:
      app.add_flag("--deep", arguments.deep, "all subclasses, not the direct ones only");
      return;
    case Option::Shallow:
      app.add_flag("--shallow", arguments.shallow,
                   "of subclasses' instances only the properties of CLASS");
      return;
    case Option::Qualifiers:
      app.add_flag("--qualifiers", arguments.qualifiers, "ask for qualifiers, too");
      return;
    case Option::NoQualifiers:
      app.add_flag("--no-qualifiers", arguments.no_qualifiers, "ask for no qualifiers");
      return;
    case Option::ClassOrigin:
      app.add_flag("--class-origin", arguments.class_origin,
                   "ask which class introduced each element");
      return;
    case Option::Properties:
      app.add_option("-p,--properties", properties, "show these only: NAME,NAME,...")
          ->delimiter(',')
          ->type_name("NAMES")
          ->allow_extra_args(false);
      return;
    case Option::Partial:
      app.add_flag("--partial", arguments.partial,
                   "send the given properties alone, without reading the others first");
      return;
    default:
      declare_value_option(app, option, arguments);
  }
}

void declare_operands(CLI::App& app, const Command& command, Arguments& arguments) {
  std::size_t index = 0;
  for (const Operand& operand : command.operands) {
    const std::string name(operand.name);
    const std::string help(operand.help);
    if (operand.count == Operand::Count::Any) {
      app.add_option(name, arguments.rest, help)->type_name("");
      continue;
    }
    CLI::Option* option = app.add_option(name, arguments.words.at(index++), help)->type_name("");
    if (operand.count == Operand::Count::One) option->required();
  }
}

std::string indented(std::string_view lines) {
  std::string text = "Examples:";
  while (!lines.empty()) {
    const std::size_t end = std::min(lines.find('\n'), lines.size());
    text.append("\n  ").append(lines.substr(0, end));
    lines.remove_prefix(std::min(end + 1, lines.size()));
  }
  return text;
}

// A command among CLI11's subcommands, and where its arguments go.
struct Declared {
  const Command* command;
  CLI::App* app;
};

std::vector<Declared> declare_commands(CLI::App& app, Arguments& arguments,
                                       std::vector<std::string>& properties) {
  std::vector<Declared> declared;
  for (const Command& command : commands()) {
    CLI::App* sub = app.add_subcommand(std::string(command.name), std::string(command.summary));
    if (!command.alias.empty()) sub->alias(std::string(command.alias));
    declare_operands(*sub, command, arguments);
    for (const Option option : command.options) declare_option(*sub, option, arguments, properties);
    sub->footer(indented(command.examples) +
                "\n\nOptions of 'cim-client --help' may follow, too.\n");
    sub->group("Commands");
    sub->fallthrough();
    declared.push_back({&command, sub});
  }
  return declared;
}

Format parse_format(const std::string& text) {
  if (text == "text") return Format::Text;
  if (text == "json") return Format::Json;
  if (text == "xml") return Format::Xml;
  throw usage_failure("there is no output format " + text + "; there are text, json and xml");
}

Layout parse_layout(const std::string& text) {
  if (text == "auto") return Layout::Automatic;
  if (text == "table") return Layout::Table;
  if (text == "blocks") return Layout::Blocks;
  throw usage_failure("there is no layout " + text + "; there are auto, table and blocks");
}

std::chrono::seconds parse_timeout(const std::string& text) {
  constexpr unsigned longest = 365U * 24 * 60 * 60;
  unsigned seconds = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  if (problem != std::errc() || end != text.data() + text.size() || seconds > longest)
    throw usage_failure(text + " is no time-out; seconds are wanted, 0 for no limit");
  return std::chrono::seconds(seconds);
}

// Columns of the terminal behind standard output; 0 when there is none.
std::size_t terminal_columns() {
  if (isatty(STDOUT_FILENO) == 0) return 0;
  constexpr std::size_t usual = 80;
  winsize size = {};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return usual;
  return size.ws_col;
}

TargetParts target_options(const GlobalOptions& options) {
  TargetParts parts;
  parts.host = given(options.host);
  if (!options.port.empty()) parts.port = parse_port(options.port);
  if (!options.name_space.empty()) parts.name_space = parse_namespace(options.name_space);
  if (!options.user.empty()) parts.user = parse_user(options.user);
  return parts;
}

Settings settings_from(const GlobalOptions& options, const std::vector<std::string>& properties) {
  Settings settings;
  const TargetParts url = options.url.empty() ? TargetParts() : parse_url(options.url);
  settings.target =
      merged({target_options(options), url, target_from_environment(), url_from_environment()});
  if (!options.backend.empty()) settings.backend = parse_backend(options.backend);
  settings.password = {given(options.password_file), options.ask_password};
  const auto timeout =
      options.timeout.empty() ? environment("CIM_CLIENT_TIMEOUT") : given(options.timeout);
  if (timeout) settings.timeout = parse_timeout(*timeout);
  const auto format =
      options.output.empty() ? environment("CIM_CLIENT_OUTPUT") : given(options.output);
  if (format) settings.output.format = parse_format(*format);
  if (!options.layout.empty()) settings.output.layout = parse_layout(options.layout);
  settings.output.columns = terminal_columns();
  settings.output.properties = properties;
  settings.verbose = options.verbose;
  return settings;
}

// Runs the command that was typed, once everything on the command line has been understood.
void run_command(const Command& command, const Arguments& arguments, Settings settings) {
  // What the library logs at the level "info" are its requests and answers.
  if (settings.verbose) setenv("CIM_CLIENT_LOG", "stderr:info", 1);
  StandardOutput output(settings.verbose);
  Context context(std::move(settings), output.stream());
  command.run(context, arguments);
  output.finish();
}

// What is wrong with the command line, in words.
std::string mistake(const CLI::App& app, const CLI::ParseError& error) {
  const std::vector<std::string> unknown = app.remaining();
  if (!app.get_subcommands().empty()) return error.what();
  if (!unknown.empty()) return "there is no command \"" + unknown.front() + "\"";
  return error.get_name() == "RequiredError" ? "a command is missing" : error.what();
}

void parse_and_run(int argc, const char* const* argv) {
  CLI::App app("Talks to CIM object managers over CIM-XML.", "cim-client");
  app.set_version_flag("--version", std::string("cim-client ") + version);
  app.footer(footer);
  app.require_subcommand(1);
  app.get_formatter()->column_width(34);
  app.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app.get_formatter()->label("Positionals", "Operands");
  app.get_formatter()->label("REQUIRED", "");
  GlobalOptions options;
  Arguments arguments;
  std::vector<std::string> properties;
  declare_global_options(app, options);
  const std::vector<Declared> declared = declare_commands(app, arguments, properties);
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& finished) {
    app.exit(finished);  // --help and --version
    return;
  } catch (const CLI::ParseError& error) {
    throw usage_failure(mistake(app, error) + "\n'cim-client --help' says what may be given");
  }
  for (const Declared& entry : declared) {
    if (entry.app->parsed())
      return run_command(*entry.command, arguments, settings_from(options, properties));
  }
}

int report(ExitStatus status, const char* text) {
  std::cerr << "cim-client: " << text << "\n";
  return static_cast<int>(status);
}

}  // namespace

int run(int argc, const char* const* argv) {
  try {
    parse_and_run(argc, argv);
    return static_cast<int>(ExitStatus::Success);
  } catch (const Failure& failure) {
    return report(failure.status(), failure.what());
  } catch (const std::bad_alloc&) {
    return report(ExitStatus::Usage, "memory ran out");
  } catch (const std::exception& error) {
    return report(ExitStatus::Usage, error.what());
  }
}

}  // namespace cli
