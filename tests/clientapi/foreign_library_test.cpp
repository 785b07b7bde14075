// A library of the right name that is not the broker's.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "cim_client.h"
#include "support/captured_output.h"

namespace {

TEST(ForeignLibrary, every_operation_says_that_the_factory_is_missing) {
  for (int i = 0; i < 2; ++i) {
    InstanceName* names = nullptr;
    Error* error = nullptr;
    const support::CapturedOutput output(stderr);
    EXPECT_EQ(CIMC_EnumInstanceNames(&names, "CIM_Fan", "", "u", "p", &error, "root/cimv2"), -1);
    EXPECT_EQ(output.text(),
              " local connect failed [Unable to locate entry _Create_SfcbLocal_Env in "
              "libcimcClientSfcbLocal.so] \n");
    EXPECT_EQ(names, nullptr);
    EXPECT_EQ(error, nullptr);
  }
}

TEST(ForeignLibrary, the_loader_gives_code_and_message) {
  int code = 0;
  char* message = nullptr;
  EXPECT_EQ(getCIMCEnv("SfcbLocal", 0, &code, &message), nullptr);
  EXPECT_EQ(code, 2);
  EXPECT_STREQ(message,
               "Unable to locate entry _Create_SfcbLocal_Env in libcimcClientSfcbLocal.so");
  std::free(message);
  EXPECT_EQ(getCIMCEnv("SfcbLocal", 0, nullptr, nullptr), nullptr);
}

TEST(ForeignLibrary, one_trace_word_without_the_other_is_left_alone) {
  const std::unique_ptr<void, int (*)(void*)> library(dlopen("libcimcClientSfcbLocal.so", RTLD_NOW),
                                                      dlclose);
  ASSERT_NE(library, nullptr);
  const auto* mask = static_cast<const int*>(dlsym(library.get(), "_sfcb_trace_mask"));
  ASSERT_NE(mask, nullptr);
  setenv("SFCB_TRACE", "4096", 1);
  setSFCBTrace(library.get());
  unsetenv("SFCB_TRACE");
  EXPECT_EQ(*mask, -1);
}

}  // namespace
