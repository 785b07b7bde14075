// The password prompt.
#include "prompt.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "descriptor.h"
#include "exit_status.h"
#include "password.h"

namespace cli {
namespace {

constexpr const char* terminal_path = "/dev/tty";

// What the terminal must be put back to when a signal arrives. Only one prompt is open at a
// time, so the handler finds it here.
int prompt_terminal = -1;
termios state_before;

// Puts the terminal back and lets the signal do what it does without a handler.
void restore_and_die(int signal_number) {
  tcsetattr(prompt_terminal, TCSANOW, &state_before);
  std::signal(signal_number, SIG_DFL);
  std::raise(signal_number);
}

// While it lives the terminal shows nothing of what is typed.
class HiddenInput {
 public:
  explicit HiddenInput(int terminal) {
    if (tcgetattr(terminal, &state_before) != 0)
      throw usage_failure("the terminal cannot be asked for a password");
    prompt_terminal = terminal;
    for (std::size_t index = 0; index < signal_numbers.size(); ++index)
      install(signal_numbers[index], previous_[index]);
    termios hidden = state_before;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    hidden.c_lflag |= ECHONL;
    tcsetattr(terminal, TCSAFLUSH, &hidden);
  }

  ~HiddenInput() {
    tcsetattr(prompt_terminal, TCSANOW, &state_before);
    for (std::size_t index = 0; index < signal_numbers.size(); ++index)
      sigaction(signal_numbers[index], &previous_[index], nullptr);
    prompt_terminal = -1;
  }

  HiddenInput(const HiddenInput&) = delete;
  HiddenInput& operator=(const HiddenInput&) = delete;

 private:
  static void install(int signal_number, struct sigaction& previous) {
    struct sigaction action = {};
    action.sa_handler = restore_and_die;
    sigemptyset(&action.sa_mask);
    sigaction(signal_number, &action, &previous);
  }

  static constexpr std::array signal_numbers = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
  std::array<struct sigaction, 4> previous_ = {};
};

void write_all(int descriptor, const std::string& text) {
  std::size_t written = 0;
  while (written < text.size()) {
    const ssize_t count = write(descriptor, text.data() + written, text.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    written += static_cast<std::size_t>(count);
  }
}

}  // namespace

bool terminal_at_hand() {
  return Descriptor(open(terminal_path, O_RDWR | O_NOCTTY | O_CLOEXEC)).is_open();
}

Secret ask_secret(const std::string& question) {
  const Descriptor terminal(open(terminal_path, O_RDWR | O_NOCTTY | O_CLOEXEC));
  if (!terminal.is_open()) throw usage_failure("there is no terminal to ask for the password");
  const HiddenInput hidden(terminal.number());
  write_all(terminal.number(), question);
  return read_secret_line(terminal.number());
}

}  // namespace cli
