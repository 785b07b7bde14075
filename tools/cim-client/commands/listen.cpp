// The command that receives indications.
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <iostream>
#include <system_error>

#include "command.h"
#include "descriptor.h"
#include "exchange.h"
#include "exit_status.h"
#include "indication_queue.h"
#include "indication_receiver.h"

namespace cli {
namespace {

// Indications that may wait to be written.
constexpr std::size_t queue_capacity = 256;

// While it lives, SIGINT and SIGTERM end nothing but make a descriptor readable.
class EndSignals {
 public:
  EndSignals() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &set, &before_);
    descriptor_ = Descriptor(signalfd(-1, &set, SFD_CLOEXEC));
    if (!descriptor_.is_open()) throw std::system_error(errno, std::generic_category(), "signalfd");
  }
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;
  ~EndSignals() {
    // A signal that has been taken note of must not end the program later.
    signalfd_siginfo taken = {};
    pollfd entry = {descriptor_.number(), POLLIN, 0};
    while (poll(&entry, 1, 0) > 0 && read(descriptor_.number(), &taken, sizeof taken) > 0) {
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }

  int descriptor() const { return descriptor_.number(); }

 private:
  sigset_t before_ = {};
  Descriptor descriptor_;
};

// Waits for an indication. False when a signal asks to end instead.
bool wait_for_indication(const IndicationQueue& queue, const EndSignals& signals) {
  std::array<pollfd, 2> entries = {pollfd{signals.descriptor(), POLLIN, 0},
                                   pollfd{queue.descriptor(), POLLIN, 0}};
  while (true) {
    if (poll(entries.data(), entries.size(), -1) < 0 && errno != EINTR)
      throw std::system_error(errno, std::generic_category(), "poll");
    if (entries[0].revents != 0) return false;
    if (entries[1].revents != 0) return true;
  }
}

void show(Context& context, Indication& indication) {
  last_exchange().answer = std::move(indication.document);  // what XML output is cut from
  context.output().indication(*indication.instance);
  context.out().flush();
  if (!context.out()) throw usage_failure("cannot write to standard output");
}

void say_refused(const IndicationReceiver& receiver) {
  if (receiver.malformed() > 0)
    std::cerr << "cim-client: " << receiver.malformed()
              << " requests were refused: they were no indications\n";
  if (receiver.turned_away() > 0)
    std::cerr << "cim-client: " << receiver.turned_away()
              << " indications were turned away: too many waited to be written\n";
}

void listen(Context& context, const Arguments& arguments) {
  const std::uint16_t port =
      arguments.listen_port == "0" ? std::uint16_t{0} : parse_port(arguments.listen_port);
  const EndSignals signals;  // before the receiver's thread begins, which then ignores them, too
  IndicationQueue queue(queue_capacity);
  IndicationReceiver receiver(arguments.listen_address, port, queue);
  std::cerr << "cim-client: listening on http://" << arguments.listen_address << ":"
            << receiver.port() << "\n";
  std::uint64_t shown = 0;
  const auto wanted = [&] { return arguments.count == 0 || shown < arguments.count; };
  const auto show_next = [&] {
    std::optional<Indication> indication = queue.pop();
    if (!indication) return false;
    show(context, *indication);
    ++shown;
    return true;
  };
  while (wanted() && wait_for_indication(queue, signals)) show_next();
  receiver.finish();
  while (wanted() && show_next()) {  // their senders count on it
  }
  say_refused(receiver);
}

}  // namespace

std::vector<Command> listen_commands() {
  return {
      {"listen",
       "",
       "Receive indications and show them",
       {},
       {Option::ListenPort, Option::ListenAddress, Option::Count, Option::Properties},
       "cim-client listen\n"
       "cim-client listen --listen-port 5990 --count 1 --output json",
       listen},
  };
}

}  // namespace cli
