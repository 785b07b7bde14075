// cim-sandbox: puts the parts together and serves until a signal ends it.
#include <poll.h>
#include <sys/signalfd.h>

#include <csignal>
#include <cstdio>
#include <memory>

#include "http/server.h"
#include "indications/courier.h"
#include "indications/herald.h"
#include "model/object_manager.h"
#include "program/exchange.h"
#include "program/model_loading.h"
#include "program/options.h"
#include "record/record.h"

namespace sandbox {
namespace {

int complain(const std::string& text) {
  std::fprintf(stderr, "cim-sandbox: %s\n", text.c_str());
  return 1;
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

// Announces changes of instances to a listener.
struct Announcements {
  Announcements(http::EventLoop& loop, const indications::Url& url, const ClassTable& classes)
      : courier(loop, url, {}, [](const std::string& problem) { complain(problem); }),
        herald(
            classes, [this](const std::string& document) { courier.deliver(document); },
            indications::present_time) {}

  indications::Courier courier;
  indications::Herald herald;
};

int serve(const Options& options) {
  Repository repository;
  if (const auto problem = load_models(options, repository)) return complain(*problem);
  ObjectManager manager(repository);
  cimxml::Service service(manager);
  record::Recorder recorder;
  if (!options.record.empty() && !recorder.open(options.record)) {
    return complain("--record: cannot write " + options.record);
  }
  Exchange exchange(service, {options.credentials, options.faults, options.verbose},
                    options.record.empty() ? nullptr : &recorder);

  const http::Descriptor signals = open_signals();
  http::EventLoop loop;
  loop.watch(signals.get(), POLLIN, [&loop](short) { loop.stop(); });
  std::unique_ptr<Announcements> announcements;
  if (options.indicate) {
    announcements = std::make_unique<Announcements>(loop, *options.indicate,
                                                    repository.open(options.name_space).classes);
    manager.set_listener(&announcements->herald);
  }
  http::Server server(
      loop, [&exchange](const http::Request& request) { return exchange.answer(request); },
      {options.address, options.port, options.connections, {}});
  if (const auto problem = server.start()) return complain(*problem);
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
