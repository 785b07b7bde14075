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

// Runs `program` with standard error going to `errors`, as nobody where root asks for it.
int run(const fs::path& program, const fs::path& errors) {
  const int file = open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  setenv("CIM_CLIENT_LOG", "stderr", 1);
  const pid_t process = fork();
  if (process == 0) {
    dup2(file, STDERR_FILENO);
    if (geteuid() != 0 ||
        (setresgid(nobody, nobody, nobody) == 0 && setresuid(nobody, nobody, nobody) == 0))
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

TEST_F(Privileges, of_the_caller_alone_leave_the_log_on) {
  fs::copy_file(LOG_WRITER, program());
  fs::permissions(program(), fs::perms(0755));
  EXPECT_EQ(run(program(), errors()), 0);
  EXPECT_EQ(lines_of(contents(errors())).size(), 1U);
}

// Where nobody can be given more rights, a program stands for it from which the environment is
// hidden as libc hides it from one with more rights.
TEST_F(Privileges, beyond_those_of_the_caller_switch_the_log_off) {
  fs::copy_file(can_be_given() ? LOG_WRITER : CONFINED_LOG_WRITER, program());
  fs::permissions(program(), fs::perms(can_be_given() ? 04755 : 0755));
  EXPECT_EQ(run(program(), errors()), 0);
  EXPECT_EQ(contents(errors()), "");
}

TEST_F(Privileges, are_what_libc_says_they_are) {
  fs::copy_file(CONFINED_LOG_WRITER, program());
  fs::permissions(program(), fs::perms(0755));
  EXPECT_EQ(run(program(), errors()), 0);
  EXPECT_EQ(contents(errors()), "");
}

}  // namespace
