// Where the password comes from.
#include "password.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "exit_status.h"

namespace cli {
namespace {

// A file with a password, gone with the object.
class PasswordFile {
 public:
  explicit PasswordFile(const std::string& content, mode_t mode = 0600) {
    char name[] = "/tmp/cim-client-password-XXXXXX";
    const int descriptor = mkstemp(name);
    path_ = name;
    EXPECT_EQ(write(descriptor, content.data(), content.size()),
              static_cast<ssize_t>(content.size()));
    fchmod(descriptor, mode);
    close(descriptor);
  }
  PasswordFile(const PasswordFile&) = delete;
  PasswordFile& operator=(const PasswordFile&) = delete;
  ~PasswordFile() { std::remove(path_.c_str()); }

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

class Password : public testing::Test {
 protected:
  void TearDown() override {
    unsetenv("CIM_CLIENT_PASSWORD");
    unsetenv("CIM_CLIENT_PASSWORD_FILE");
  }

  std::string found(const PasswordSource& source) const {
    return find_password(source, target_).text();
  }

  Target target_;
};

TEST_F(Password, without_a_user_it_is_empty) { EXPECT_EQ(found({}), ""); }

TEST_F(Password, comes_from_the_first_line_of_a_file) {
  const PasswordFile file("geheim\nsecond line\n");
  EXPECT_EQ(found({file.path(), false}), "geheim");
}

TEST_F(Password, a_file_may_end_without_line_end_or_with_a_dos_line_end) {
  const PasswordFile bare("geheim");
  EXPECT_EQ(found({bare.path(), false}), "geheim");
  const PasswordFile dos("geheim\r\n");
  EXPECT_EQ(found({dos.path(), false}), "geheim");
}

TEST_F(Password, blanks_belong_to_it) {
  const PasswordFile file("  two words \n");
  EXPECT_EQ(found({file.path(), false}), "  two words ");
}

TEST_F(Password, a_missing_file_is_said) {
  try {
    found({"/nowhere/password", false});
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_STREQ(failure.what(),
                 "cannot read the password file /nowhere/password: No such file or directory");
    EXPECT_EQ(failure.status(), ExitStatus::Usage);
  }
}

TEST_F(Password, a_line_beyond_the_limit_is_refused) {
  const PasswordFile file(std::string(Secret::limit + 1, 'x'));
  EXPECT_THROW(found({file.path(), false}), Failure);
}

TEST_F(Password, a_file_that_others_can_read_is_warned_of) {
  const PasswordFile file("geheim\n", 0644);
  testing::internal::CaptureStderr();
  EXPECT_EQ(found({file.path(), false}), "geheim");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "cim-client: warning: other users can read the password file " + file.path() + "\n");
}

TEST_F(Password, the_variable_is_wiped_once_it_was_read) {
  setenv("CIM_CLIENT_PASSWORD", "geheim", 1);
  const char* place = std::getenv("CIM_CLIENT_PASSWORD");
  EXPECT_EQ(found({}), "geheim");
  EXPECT_EQ(std::getenv("CIM_CLIENT_PASSWORD"), nullptr);
  EXPECT_STREQ(place, "");
}

TEST_F(Password, the_variable_is_wiped_even_when_a_file_goes_first) {
  const PasswordFile file("from file\n");
  setenv("CIM_CLIENT_PASSWORD", "from variable", 1);
  EXPECT_EQ(found({file.path(), false}), "from file");
  EXPECT_EQ(std::getenv("CIM_CLIENT_PASSWORD"), nullptr);
}

TEST_F(Password, a_variable_may_name_the_file) {
  const PasswordFile file("geheim\n");
  setenv("CIM_CLIENT_PASSWORD_FILE", file.path().c_str(), 1);
  EXPECT_EQ(found({}), "geheim");
}

}  // namespace
}  // namespace cli
