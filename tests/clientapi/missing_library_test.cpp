// A machine without the broker's client library.
#include <gtest/gtest.h>

#include <cstdlib>

#include "cim_client.h"
#include "support/captured_output.h"

namespace {

TEST(MissingLibrary, every_operation_tries_again_and_says_what_is_missing) {
  InstanceName* names = nullptr;
  ObjectWithPath* objects = nullptr;
  ObjectName object{};
  Error* error = nullptr;
  for (int i = 0; i < 2; ++i) {
    std::string said;
    {
      const support::CapturedOutput output(stderr);
      EXPECT_EQ(CIMC_EnumInstanceNames(&names, "CIM_Fan", "", "u", "p", &error, "root/cimv2"), -1);
      said = output.text();
    }
    EXPECT_EQ(said.find(" local connect failed [Unable to load libcimcClientSfcbLocal.so library "
                        "libcimcClientSfcbLocal.so"),
              0U)
        << said;
    EXPECT_EQ(said.substr(said.size() - 3), "] \n");
  }
  const support::CapturedOutput output(stderr);
  EXPECT_EQ(CIMC_References(&objects, &object, nullptr, nullptr, 0, 0, nullptr, "root/cimv2", "u",
                            "p", &error),
            0);
  EXPECT_EQ(CIMC_InvokeMethod(nullptr, "Stop", "root/cimv2", nullptr, nullptr, "u", "p", &error),
            2);
  EXPECT_EQ(error, nullptr);
  EXPECT_EQ(names, nullptr);
}

TEST(MissingLibrary, the_loader_gives_code_and_message) {
  int code = 0;
  char* message = nullptr;
  EXPECT_EQ(getCIMCEnv("SfcbLocal", 0, &code, &message), nullptr);
  EXPECT_EQ(code, 1);
  ASSERT_NE(message, nullptr);
  EXPECT_EQ(std::string(message).find("Unable to load libcimcClientSfcbLocal.so library "), 0U);
  std::free(message);
}

}  // namespace
