// Variables that stand in for options.
#include "environment.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "exit_status.h"

namespace cli {
namespace {

// Sets a variable while it lives.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) { setenv(name, value, 1); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { unsetenv(name_); }

 private:
  const char* name_;
};

TEST(Environment, an_empty_variable_is_as_good_as_none) {
  EXPECT_FALSE(environment("CIM_CLIENT_HOST"));
  const Variable host("CIM_CLIENT_HOST", "");
  EXPECT_FALSE(environment("CIM_CLIENT_HOST"));
}

TEST(Environment, single_variables_name_single_parts) {
  const Variable host("CIM_CLIENT_HOST", "device");
  const Variable port("CIM_CLIENT_PORT", "5990");
  const Variable name_space("CIM_CLIENT_NAMESPACE", "/root/interop");
  const Variable user("CIM_CLIENT_USER", "admin");
  const TargetParts parts = target_from_environment();
  EXPECT_EQ(parts.host, "device");
  EXPECT_EQ(parts.port, 5990);
  EXPECT_EQ(parts.name_space, "root/interop");
  EXPECT_EQ(parts.user, "admin");
}

TEST(Environment, the_url_variable_is_a_source_of_its_own) {
  const Variable url("CIM_CLIENT_URL", "http://admin@device:5990");
  EXPECT_EQ(url_from_environment().host, "device");
  EXPECT_FALSE(target_from_environment().host);
}

TEST(Environment, a_bad_variable_is_refused_like_a_bad_option) {
  const Variable port("CIM_CLIENT_PORT", "many");
  EXPECT_THROW(target_from_environment(), Failure);
}

}  // namespace
}  // namespace cli
