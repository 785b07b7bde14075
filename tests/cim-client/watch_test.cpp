// Waiting within bounds.
#include "watch.h"

#include <gtest/gtest.h>

#include <thread>

#include "exchange.h"

namespace cli {
namespace {

using namespace std::chrono_literals;

TEST(WatchDeathTest, the_process_ends_when_the_time_is_over) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        const Watch watch("device:5988", 1s, false);
        std::this_thread::sleep_for(30s);
      },
      testing::ExitedWithCode(3),
      "cim-client: no answer from device:5988 within 1 s \\(see --timeout\\)");
}

TEST(Watch, ends_at_once_when_the_wait_is_over) {
  const auto begin = std::chrono::steady_clock::now();
  { const Watch watch("device:5988", 60s, true); }
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
}

TEST(Watch, without_a_limit_it_waits_on) {
  const Watch watch("device:5988", 0s, false);
  std::this_thread::sleep_for(500ms);
}

TEST(Watch, shows_its_progress_on_request_and_takes_it_back) {
  testing::internal::CaptureStderr();
  last_exchange().clear();
  {
    const Watch watch("device:5988", 60s, true);
    std::this_thread::sleep_for(1500ms);
    last_exchange().objects = 20;
    std::this_thread::sleep_for(500ms);
  }
  const std::string shown = testing::internal::GetCapturedStderr();
  EXPECT_NE(shown.find("\r\x1b[Kwaiting for device:5988, 1 s"), std::string::npos) << shown;
  EXPECT_NE(shown.find("\r\x1b[Kreading the answer, 20 objects"), std::string::npos) << shown;
  EXPECT_TRUE(shown.ends_with("\r\x1b[K")) << "the terminal is left clean";
}

TEST(Watch, shows_nothing_otherwise) {
  testing::internal::CaptureStderr();
  {
    const Watch watch("device:5988", 60s, false);
    std::this_thread::sleep_for(1500ms);
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace cli
