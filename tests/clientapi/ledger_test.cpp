// The count that the stand-in broker keeps of its objects.
#include "ledger.h"

#include <gtest/gtest.h>

#include "cim_client.h"
#include "objects.h"
#include "support/captured_output.h"

namespace {

using sandbox_local::CIMCEnv;
using sandbox_local::CIMCString;
using sandbox_local::Ledger;
using Texts = std::vector<std::string>;

class LedgerOfBroker : public testing::Test {
 protected:
  LedgerOfBroker() {
    int code = 0;
    char* message = nullptr;
    env_ = static_cast<CIMCEnv*>(getCIMCEnv("SfcbLocal", 0, &code, &message));
  }
  ~LedgerOfBroker() override {
    env_->ft->release(env_);
    Ledger::of_process().forget_complaints();
  }

  CIMCEnv* env_;
};

TEST_F(LedgerOfBroker, knows_what_is_live_and_what_is_not) {
  CIMCString* text = env_->ft->newString(env_, "text", nullptr);
  EXPECT_EQ(Ledger::of_process().live_count(), 2U);
  text->ft->release(text);
  EXPECT_EQ(Ledger::of_process().live(), Texts{"environment"});
}

TEST_F(LedgerOfBroker, complains_of_an_object_that_is_released_twice) {
  CIMCString* text = env_->ft->newString(env_, "text", nullptr);
  const auto release = text->ft->release;
  release(text);
  const support::CapturedOutput output(stderr);
  release(text);
  const std::string complaint =
      "release (string) of an object that is not the client's any more, or never was";
  EXPECT_EQ(Ledger::of_process().complaints(), Texts{complaint});
  EXPECT_EQ(output.text(), "cim-sandbox-local: " + complaint + "\n");
}

TEST_F(LedgerOfBroker, complains_of_a_part_that_is_released_for_itself) {
  sandbox_local::Text part("text");
  const support::CapturedOutput output(stderr);
  part.ft->release(&part);
  EXPECT_EQ(Ledger::of_process().complaints().size(), 1U);
}

}  // namespace
