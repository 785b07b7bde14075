// Host names and addresses.
#include "resolve.h"

#include <gtest/gtest.h>

#include "exit_status.h"

namespace cli {
namespace {

TEST(Resolve, dotted_addresses_stay_as_they_are) {
  EXPECT_EQ(resolve("127.0.0.1"), "127.0.0.1");
  EXPECT_EQ(resolve("192.168.1.20"), "192.168.1.20");
}

TEST(Resolve, names_become_addresses) { EXPECT_EQ(resolve("localhost"), "127.0.0.1"); }

TEST(Resolve, an_unknown_name_is_no_answer_and_is_named) {
  try {
    resolve("no-such-host.invalid");
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.status(), ExitStatus::NoAnswer);
    EXPECT_EQ(std::string(failure.what())
                  .find("no IPv4 address is known for host no-such-host.invalid: "),
              0U);
  }
}

}  // namespace
}  // namespace cli
