// cim-sandbox: puts the parts together and serves until a signal ends it.
#include <poll.h>
#include <sys/signalfd.h>

#include <csignal>
#include <cstdio>
#include <filesystem>

#include "http/server.h"
#include "model/generator.h"
#include "model/object_manager.h"
#include "mof/reader.h"
#include "program/exchange.h"
#include "program/model_files.h"
#include "program/options.h"

namespace sandbox {
namespace {

constexpr int failed = 1;

bool complain(const std::string& text) {
  std::fprintf(stderr, "cim-sandbox: %s\n", text.c_str());
  return false;
}

bool load(const Options& options, Repository& repository) {
  mof::Reader reader(repository, options.name_space);
  std::vector<std::string> models = options.models;
  if (models.empty()) {
    const auto sample = sample_model();
    if (!sample) return complain("the sample model is not installed; use --model");
    models.push_back(sample->string());
  }
  for (const std::string& model : models) {
    if (const auto problem = reader.read_file(model)) return complain(to_text(*problem));
  }
  if (const auto problem = reader.finish()) return complain(to_text(*problem));
  for (const Generation& wanted : options.generations) {
    const auto done =
        generate_instances(repository, options.name_space, wanted.class_name, wanted.count);
    if (!done) return complain("--generate: " + done.error().description);
  }
  return true;
}

// SIGTERM and SIGINT as a readable descriptor; SIGPIPE has no effect.
http::Descriptor open_signals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  std::signal(SIGPIPE, SIG_IGN);
  return http::Descriptor(signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC));
}

int serve(const Options& options) {
  Repository repository;
  if (!load(options, repository)) return failed;
  ObjectManager manager(repository);
  cimxml::Service service(manager);
  Exchange exchange(service, options.credentials, options.verbose);

  const http::Descriptor signals = open_signals();
  http::EventLoop loop;
  loop.watch(signals.get(), POLLIN, [&loop](short) { loop.stop(); });
  http::Server server(
      loop, [&exchange](const http::Request& request) { return exchange.answer(request); },
      {options.address, options.port, options.connections, {}});
  if (const auto problem = server.start()) {
    complain(*problem);
    return failed;
  }
  std::printf("listening on %s:%u\n", options.address.c_str(), unsigned{server.port()});
  std::fflush(stdout);
  loop.run();
  return 0;
}

}  // namespace
}  // namespace sandbox

int main(int argument_count, char** arguments) {
  const sandbox::Parsed parsed = sandbox::parse_options(argument_count, arguments);
  if (!parsed.options) return parsed.exit_status;
  return sandbox::serve(*parsed.options);
}
