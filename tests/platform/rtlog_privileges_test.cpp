// A program that has more rights than who called it logs nothing.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/text_files.h"

namespace {

namespace fs = std::filesystem;

constexpr uid_t nobody = 65534;

// Runs `program` as nobody with standard error going to `errors`.
int run_as_nobody(const fs::path& program, const fs::path& errors) {
  const int file = open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  setenv("CIM_CLIENT_LOG", "stderr", 1);
  const pid_t process = fork();
  if (process == 0) {
    dup2(file, STDERR_FILENO);
    if (setresgid(nobody, nobody, nobody) == 0 && setresuid(nobody, nobody, nobody) == 0)
      execl(program.c_str(), program.c_str(), "init", "log=2=text", nullptr);
    _exit(99);
  }
  close(file);
  int status = 0;
  waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class Privileges : public testing::Test {
 protected:
  Privileges() {
    std::string name = (fs::temp_directory_path() / "rtlog-test-XXXXXX").string();
    folder_ = mkdtemp(name.data());
    fs::permissions(folder_, fs::perms(0755));
  }
  ~Privileges() override { fs::remove_all(folder_); }

  fs::path program() const { return folder_ / "writer"; }
  fs::path errors() const { return folder_ / "stderr"; }

  // Whether a program can be run with other rights than its caller's here.
  bool can_be_given() const {
    struct statvfs file_system = {};
    return geteuid() == 0 && statvfs(folder_.c_str(), &file_system) == 0 &&
           (file_system.f_flag & ST_NOSUID) == 0;
  }

 private:
  fs::path folder_;
};

// ctest tells this test as skipped where it is.
TEST_F(Privileges, beyond_those_of_the_caller_switch_the_log_off) {
  if (!can_be_given()) GTEST_SKIP() << "needs root and a place for programs with other rights";
  fs::copy_file(LOG_WRITER, program());

  fs::permissions(program(), fs::perms(0755));
  EXPECT_EQ(run_as_nobody(program(), errors()), 0);
  EXPECT_EQ(lines_of(contents(errors())).size(), 1U);

  fs::permissions(program(), fs::perms(04755));
  EXPECT_EQ(run_as_nobody(program(), errors()), 0);
  EXPECT_EQ(contents(errors()), "");
}

}  // namespace
