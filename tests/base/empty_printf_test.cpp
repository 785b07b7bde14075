// EmptyPrintf as the library has it.
#include <gtest/gtest.h>

#include <cstdlib>

#include "cim_client.h"

namespace {

TEST(EmptyPrintf, takes_any_arguments_prints_nothing_and_gives_0) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_EQ(EmptyPrintf("nothing"), 0);
  EXPECT_EQ(EmptyPrintf("%s %d %p", "text", 1, static_cast<void*>(nullptr)), 0);
  EXPECT_EQ(EmptyPrintf(nullptr), 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(EmptyPrintf, the_library_traces_in_silence) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_EQ(Free_CIMName(nullptr), 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
