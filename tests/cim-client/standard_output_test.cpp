// Standard output that only this program writes to.
#include "standard_output.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <string>

#include "exit_status.h"

namespace cli {
namespace {

// What a child process writes to its standard output and standard error while it runs `body`.
template <class Body>
std::array<std::string, 2> written_by(Body body) {
  std::array<std::array<int, 2>, 2> pipes = {};
  for (auto& ends : pipes) EXPECT_EQ(pipe(ends.data()), 0);
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    dup2(pipes[0][1], STDOUT_FILENO);
    dup2(pipes[1][1], STDERR_FILENO);
    body();
    _exit(0);
  }
  std::array<std::string, 2> texts;
  for (std::size_t index = 0; index < 2; ++index) {
    close(pipes[index][1]);
    char letter = '\0';
    while (read(pipes[index][0], &letter, 1) == 1) texts[index] += letter;
    close(pipes[index][0]);
  }
  waitpid(child, nullptr, 0);
  return texts;
}

TEST(StandardOutput, remarks_of_the_library_do_not_mix_with_results) {
  const auto texts = written_by([] {
    StandardOutput output(false);
    std::puts("remark");
    output.stream() << "result\n";
    output.finish();
  });
  EXPECT_EQ(texts[0], "result\n");
  EXPECT_EQ(texts[1], "");
}

TEST(StandardOutput, remarks_go_to_standard_error_on_request) {
  const auto texts = written_by([] {
    StandardOutput output(true);
    std::puts("remark");
    output.stream() << "result\n";
    output.finish();
  });
  EXPECT_EQ(texts[0], "result\n");
  EXPECT_EQ(texts[1], "remark\n");
}

TEST(StandardOutput, more_than_a_buffer_comes_out_whole) {
  const std::string text(1'000'000, 'x');
  const auto texts = written_by([&text] {
    StandardOutput output(false);
    output.stream() << text;
    output.finish();
  });
  EXPECT_EQ(texts[0].size(), text.size());
}

TEST(StandardOutput, output_that_cannot_be_written_is_a_failure) {
  const auto texts = written_by([] {
    std::FILE* full = std::fopen("/dev/full", "w");
    dup2(fileno(full), STDOUT_FILENO);
    StandardOutput output(false);
    output.stream() << "result\n";
    try {
      output.finish();
    } catch (const Failure& failure) {
      std::fputs(failure.what(), stderr);
    }
  });
  EXPECT_EQ(texts[1], "cannot write to standard output: No space left on device");
}

}  // namespace
}  // namespace cli
