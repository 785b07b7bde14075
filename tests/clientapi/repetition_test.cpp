// Local operations repeated ten thousand times leave memory, descriptors and the broker as they
// were.
#include <gtest/gtest.h>

#include "clientapi/local_operations.h"
#include "clientapi/local_records.h"
#include "support/allocations.h"
#include "support/captured_output.h"
#include "support/footprint.h"
#include "support/open_descriptors.h"
#include "support/scale.h"

namespace {

using namespace support;
using sandbox_local::Ledger;

const int repetitions = scaled(10'000);
constexpr char name_space[] = "root/cimv2";

class LocalRepetition : public testing::TestWithParam<LocalOperation> {
 protected:
  LocalRepetition() { forget_calls(); }

  // Nobody notes calls and releases, since notes would take memory.
  static void forget_calls() {
    Ledger::of_process().listener = nullptr;
    Ledger::of_process().release_listener = nullptr;
  }

  static void call(const char* given_name_space) {
    Error* error = nullptr;
    GetParam().call(&error, given_name_space);
    Free_Error(error);
  }

  static void repeat(const char* given_name_space = name_space) {
    for (int warm_up = 0; warm_up < 10; ++warm_up) call(given_name_space);
    const std::size_t descriptors = open_descriptors();
    const long bytes = bytes_in_use();
    const long blocks = living_blocks();
    for (int repetition = 0; repetition < repetitions; ++repetition) call(given_name_space);
    EXPECT_EQ(living_blocks(), blocks);
    EXPECT_LT(bytes_in_use() - bytes, 10'000);  // less than a byte for each
    EXPECT_EQ(open_descriptors(), descriptors);
    EXPECT_EQ(Ledger::of_process().live_count(), 0U);
  }

  ScriptedBroker broker_;
};

TEST_P(LocalRepetition, of_results_leaves_nothing_behind) {
  broker_.script.instance = std::make_shared<sandbox_local::InstanceObject>(
      fan({{"Speed", uint32(7)}, {"System", sandbox_local::reference(fan_path())}}));
  broker_.script.elements = {sandbox_local::instance(*broker_.script.instance),
                             sandbox_local::reference(fan_path())};
  broker_.script.found_class = std::make_shared<sandbox_local::ClassObject>("CIM_Fan");
  broker_.script.path = std::make_shared<sandbox_local::Path>(fan_path());
  broker_.script.out = {{"Text", sandbox_local::text("text")}};
  repeat();
}

TEST_P(LocalRepetition, of_errors_with_a_text_leaves_nothing_behind) {
  broker_.script.code = 5;
  broker_.script.message = "what went wrong";
  repeat();
}

TEST_P(LocalRepetition, of_errors_with_an_empty_text_leaves_nothing_behind) {
  broker_.script.code = 5;
  broker_.script.message = "";
  repeat();
}

TEST_P(LocalRepetition, of_errors_without_a_text_leaves_nothing_behind) {
  broker_.script.code = 5;
  repeat();
}

TEST_P(LocalRepetition, of_connections_that_fail_leaves_nothing_behind) {
  const CapturedOutput output(stdout);
  broker_.script.connects = false;
  repeat();
}

TEST_P(LocalRepetition, of_missing_arguments_leaves_nothing_behind) { repeat(nullptr); }

TEST_P(LocalRepetition, of_answers_that_cannot_be_read_leaves_nothing_behind) {
  broker_.script.elements = {sandbox_local::instance(fan()), sandbox_local::reference(fan_path())};
  broker_.script.instance = std::make_shared<sandbox_local::InstanceObject>(fan());
  broker_.script.found_class = std::make_shared<sandbox_local::ClassObject>("CIM_Fan");
  broker_.script.refused = {"getClassName"};
  repeat();
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, LocalRepetition, testing::ValuesIn(local_operations()),
                         [](const auto& operation) { return operation.param.name; });

}  // namespace
