// Operations whose memory runs out.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <vector>

#include "operations/every_operation.h"
#include "support/allocations.h"
#include "support/captured_output.h"

namespace operations_test {
namespace {

class Memory : public testing::TestWithParam<Operation> {
 protected:
  // What came of one call: the result, and the Error.
  struct Outcome {
    std::string result{};
    OwnedError error{};
    bool has_failed = false;  // whether the allocation was made, and failed

    std::string text() const { return result + ", " + text_of(error.get()); }
  };

  // Calls the operation with the allocation failing that has `successes` others before it.
  static Outcome call(Handle* handle, std::size_t successes) {
    Outcome outcome;
    Error* error = nullptr;
    {
      const support::FailingAllocation allocation(successes);
      outcome.result = GetParam().call(handle, &error);
      outcome.has_failed = allocation.has_failed();
    }
    outcome.error.reset(error);
    return outcome;
  }

  // Lets every allocation of the call fail once.  The first without any is that of the request:
  // see below.  Every outcome must be `complete` or `incomplete`, and leave no memory behind.
  // Returns how many were incomplete.
  static int starve(const std::string& http, const std::string& complete,
                    const std::string& incomplete) {
    const support::CapturedOutput output(stdout), errors(stderr);
    ObjectManager object_manager(http);
    EXPECT_EQ(call(object_manager.handle(), SIZE_MAX).text(), complete);
    const long before = support::living_blocks();  // with what the reader keeps for the next time
    int incomplete_ones = 0;
    for (std::size_t successes = 1;; ++successes) {
      Outcome outcome = call(object_manager.handle(), successes);
      EXPECT_TRUE(outcome.text() == complete || outcome.text() == incomplete) << outcome.text();
      if (!outcome.has_failed) {
        EXPECT_EQ(outcome.text(), complete);
        return incomplete_ones;
      }
      if (outcome.text() == incomplete) ++incomplete_ones;
      outcome = {};
      EXPECT_LE(support::living_blocks(), before) << successes;
    }
  }
};

TEST_P(Memory, running_out_on_the_way_to_a_result_gives_nothing) {
  const int incomplete = starve(http_answer(GetParam().answer), GetParam().result + ", null",
                                GetParam().nothing + ", null");
  EXPECT_GT(incomplete, GetParam().result == GetParam().nothing ? -1 : 10);
}

TEST_P(Memory, running_out_on_the_way_to_an_error_gives_nothing) {
  EXPECT_GT(starve(http_answer(GetParam().error_answer), GetParam().nothing + ", 6 not found",
                   GetParam().nothing + ", null"),
            10);
}

using MemoryOfRefusals = Memory;

// The refusal itself is known when the memory for its Error is sought.
TEST_P(MemoryOfRefusals, running_out_after_a_refusal_gives_no_error) {
  ObjectManager object_manager(http_refusal());
  const std::string complete = GetParam().refusal_result + ", 401 Unauthorized User";
  const std::string incomplete = GetParam().refusal_result + ", null";
  EXPECT_EQ(call(object_manager.handle(), SIZE_MAX).text(), complete);
  const long before = support::living_blocks();
  {
    std::vector<std::string> outcomes;
    for (std::size_t successes = 1;; ++successes) {
      const Outcome outcome = call(object_manager.handle(), successes);
      if (!outcome.has_failed) break;
      outcomes.push_back(outcome.text());
    }
    // The last three allocations are the Error, its code and its description.
    ASSERT_GT(outcomes.size(), 3u);
    EXPECT_EQ(std::vector(outcomes.end() - 3, outcomes.end()), std::vector(3, incomplete));
  }
  EXPECT_LE(support::living_blocks(), before);
}

// Applications are known to rely on the process ending quietly when there is no memory at all.
TEST_P(Memory, none_at_all_for_the_request_ends_the_process_with_status_0) {
  Handle* handle =
      client_Configuration("127.0.0.1", support::unused_port(), "root/cimv2", 0, "user", "secret");
  GetParam().call(handle, nullptr);
  EXPECT_EXIT(
      {
        const support::FailingAllocation allocation(0);
        GetParam().call(handle, nullptr);
        _exit(1);
      },
      testing::ExitedWithCode(0), "");
  Free_client_Configuration(handle);
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, Memory, testing::ValuesIn(every_operation()),
                         [](const auto& operation) { return operation.param.name; });

// Those that make an Error of a refusal.
std::vector<Operation> reporting_operations() {
  std::vector<Operation> operations = every_operation();
  std::erase_if(operations, [](const Operation& operation) { return !operation.reports_refusal; });
  return operations;
}

INSTANTIATE_TEST_SUITE_P(EveryReportingOperation, MemoryOfRefusals,
                         testing::ValuesIn(reporting_operations()),
                         [](const auto& operation) { return operation.param.name; });

}  // namespace
}  // namespace operations_test
