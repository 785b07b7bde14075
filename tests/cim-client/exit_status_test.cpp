// Statuses and what is said with them.
#include "exit_status.h"

#include <gtest/gtest.h>

namespace cli {
namespace {

TEST(ExitStatus, codes_have_their_dmtf_names) {
  EXPECT_EQ(cim_status_name(1), "CIM_ERR_FAILED");
  EXPECT_EQ(cim_status_name(6), "CIM_ERR_NOT_FOUND");
  EXPECT_EQ(cim_status_name(17), "CIM_ERR_METHOD_NOT_FOUND");
  EXPECT_EQ(cim_status_name(29), "CIM_ERR_QUERY_FEATURE_NOT_SUPPORTED");
  EXPECT_EQ(cim_status_name(18), "");
  EXPECT_EQ(cim_status_name(0), "");
}

TEST(ExitStatus, a_cim_error_shows_code_name_and_description) {
  const Failure failure = cim_failure("6", "no such fan");
  EXPECT_EQ(failure.status(), ExitStatus::CimError);
  EXPECT_STREQ(failure.what(), "CIM error 6 CIM_ERR_NOT_FOUND: no such fan");
}

TEST(ExitStatus, missing_parts_of_an_error_are_left_out) {
  EXPECT_STREQ(cim_failure("5", nullptr).what(), "CIM error 5 CIM_ERR_INVALID_CLASS");
  EXPECT_STREQ(cim_failure("5", "").what(), "CIM error 5 CIM_ERR_INVALID_CLASS");
  EXPECT_STREQ(cim_failure(nullptr, nullptr).what(), "CIM error unknown");
}

TEST(ExitStatus, vendor_codes_are_shown_as_they_are) {
  EXPECT_STREQ(cim_failure("1234", "odd").what(), "CIM error 1234: odd");
  EXPECT_STREQ(cim_failure("6x", "odd").what(), "CIM error 6x: odd");
}

TEST(ExitStatus, the_librarys_401_is_a_refusal_not_a_cim_error) {
  EXPECT_EQ(cim_failure("401", "Unauthorized User").status(), ExitStatus::Unauthorised);
}

TEST(ExitStatus, descriptions_cannot_steer_the_terminal) {
  EXPECT_STREQ(cim_failure("1", "a\x1b[2Jb\nc").what(),
               "CIM error 1 CIM_ERR_FAILED: a\\x1b[2Jb\\nc");
}

}  // namespace
}  // namespace cli
