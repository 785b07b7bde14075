// Local operations whose memory runs out, at each of their allocations.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <set>

#include "clientapi/local_operations.h"
#include "clientapi/local_records.h"
#include "support/allocations.h"
#include "support/captured_output.h"

namespace {

using namespace support;
using sandbox_local::Ledger;

constexpr char name_space[] = "root/cimv2";

// What an operation gives when a result cannot be made: nothing, or in the case of a created
// instance its name as far as it could be read.
bool is_incomplete(const std::string& operation, const std::string& text) {
  if (operation == "EnumInstances" || operation == "EnumInstanceNames" || operation == "References")
    return text == "0";
  if (operation == "CreateInstance")
    return text == "-1" || text.starts_with("0 <INSTANCENAME CLASSNAME=");
  if (operation == "InvokeMethod") return text == "0" || text == "2";
  return text == "-1";
}

class LocalMemory : public testing::TestWithParam<LocalOperation> {
 protected:
  struct Outcome {
    std::string answer;
    std::string error;
    bool has_failed;  // whether the allocation was made, and failed
  };

  LocalMemory() { Ledger::of_process().listener = nullptr; }

  // One call with the allocation failing that has `successes` others before it.
  static Outcome call(std::size_t successes) {
    Error* error = nullptr;
    bool has_failed = false;
    const Answer answer = [&] {
      const FailingAllocation failing(successes);
      Answer made = GetParam().call(&error, name_space);
      has_failed = failing.has_failed();
      return made;
    }();
    return {answer.text(), taken(error), has_failed};
  }

  // Lets each allocation fail once: check(outcome) after each.  Returns how many there are.
  template <class Check>
  static std::size_t starve(Check check) {
    call(SIZE_MAX);
    for (std::size_t successes = 0;; ++successes) {
      const Outcome outcome = call(successes);
      if (!outcome.has_failed) return successes;
      check(outcome);
      const long before = living_blocks();
      call(successes);
      EXPECT_EQ(living_blocks(), before) << successes;
      EXPECT_EQ(Ledger::of_process().live_count(), 0U) << successes;
    }
  }

  ScriptedBroker broker_;
};

TEST_P(LocalMemory, that_runs_out_on_the_way_to_a_result_gives_nothing) {
  broker_.script = rich_script();
  const std::string complete = call(SIZE_MAX).answer;
  const std::size_t allocations = starve([&](const Outcome& outcome) {
    EXPECT_TRUE(outcome.answer == complete || is_incomplete(GetParam().name, outcome.answer))
        << outcome.answer;
    EXPECT_EQ(outcome.error, "");
  });
  const std::string name = GetParam().name;
  const bool asks_for_nothing = name == "ModifyInstance" || name == "DeleteInstance";
  EXPECT_GE(allocations, asks_for_nothing ? 0U : 8U);
}

// The error's record, its code and its text are all that is allocated, but for what the arguments
// of a method need.
TEST_P(LocalMemory, that_runs_out_on_the_way_to_an_error_gives_minus_1) {
  broker_.script.code = 5;
  broker_.script.message = "what went wrong";
  const std::string name = GetParam().name;
  std::set<std::string> seen;
  const std::size_t allocations = starve([&](const Outcome& outcome) {
    if (outcome.error != "5: what went wrong") seen.insert(outcome.answer + "|" + outcome.error);
  });
  EXPECT_GE(allocations, 3U);
  if (name == "InvokeMethod") {  // not called, or the status code
    EXPECT_EQ(seen, (std::set<std::string>{"2|", "5|", "5|: ", "5|5: "}));
  } else {
    const std::string result = name == "References" ? "0" : "-1";
    EXPECT_EQ(seen, (std::set<std::string>{result + "|", result + "|: ", result + "|5: "}));
  }
}

TEST_P(LocalMemory, is_not_needed_to_fail_without_a_connection) {
  const CapturedOutput output(stdout);
  broker_.script.connects = false;
  EXPECT_EQ(starve([](const Outcome&) {}), 0U);
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, LocalMemory, testing::ValuesIn(local_operations()),
                         [](const auto& operation) { return operation.param.name; });

TEST(LoaderMemory, that_runs_out_leaves_the_code_without_a_message) {
  ScriptedBroker broker;
  Error* error = nullptr;
  local_operations().front().call(&error, name_space);  // opens the library
  int code = 0;
  char* message = nullptr;
  const std::size_t allocations = fail_each_allocation(
      [&] {
        std::free(message);
        message = nullptr;
        EXPECT_EQ(getCIMCEnv("Other", 0, &code, &message), nullptr);
      },
      [&] { EXPECT_EQ(code, 2); });
  EXPECT_GE(allocations, 1U);
  const std::unique_ptr<char, void (*)(void*)> owner(message, std::free);
  EXPECT_STREQ(owner.get(), "Unable to locate entry _Create_Other_Env in libcimcClientOther.so");
}

}  // namespace
