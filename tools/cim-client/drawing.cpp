// Running dot.
#include "drawing.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "descriptor.h"
#include "exit_status.h"

extern char** environ;

namespace cli {
namespace {

// What posix_spawn() does with the child's descriptors.
class SpawnActions {
 public:
  SpawnActions() { posix_spawn_file_actions_init(&actions_); }
  SpawnActions(const SpawnActions&) = delete;
  SpawnActions& operator=(const SpawnActions&) = delete;
  ~SpawnActions() { posix_spawn_file_actions_destroy(&actions_); }

  void put(int descriptor, int place) {
    posix_spawn_file_actions_adddup2(&actions_, descriptor, place);
  }
  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_ = {};
};

// While it lives, writing to a program that has ended is an error and no signal.
class NoPipeSignal {
 public:
  NoPipeSignal() : before_(std::signal(SIGPIPE, SIG_IGN)) {}
  NoPipeSignal(const NoPipeSignal&) = delete;
  NoPipeSignal& operator=(const NoPipeSignal&) = delete;
  ~NoPipeSignal() { std::signal(SIGPIPE, before_); }

 private:
  void (*before_)(int);
};

pid_t start_dot(const std::string& format, const std::string& file, int input) {
  SpawnActions actions;
  actions.put(input, STDIN_FILENO);
  actions.put(STDERR_FILENO, STDOUT_FILENO);
  std::string format_option = "-T" + format;
  std::string program = "dot";
  std::string output_option = "-o";
  std::string path = file;
  std::array<char*, 5> words = {program.data(), format_option.data(), output_option.data(),
                                path.data(), nullptr};
  pid_t child = 0;
  const int problem =
      posix_spawnp(&child, program.c_str(), actions.get(), nullptr, words.data(), environ);
  if (problem == ENOENT)
    throw usage_failure(
        "drawing needs the program 'dot' of Graphviz, which is not installed here; without --svg "
        "and --png the graph is written as text for it");
  if (problem != 0) throw usage_failure(std::string("cannot run dot: ") + std::strerror(problem));
  return child;
}

void write_all(int descriptor, const std::string& text) {
  std::size_t written = 0;
  while (written < text.size()) {
    const ssize_t count = write(descriptor, text.data() + written, text.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;  // dot has ended: its status says more
    written += static_cast<std::size_t>(count);
  }
}

}  // namespace

void draw(const std::string& graph, const std::string& format, const std::string& file) {
  std::array<int, 2> ends = {-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC) != 0)
    throw usage_failure(std::string("cannot run dot: ") + std::strerror(errno));
  Descriptor input(ends[0]);
  Descriptor output(ends[1]);
  const NoPipeSignal no_signal;
  const pid_t child = start_dot(format, file, input.number());
  input.reset();
  write_all(output.number(), graph);
  output.reset();
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
    throw usage_failure("dot could not draw " + file);
}

}  // namespace cli
