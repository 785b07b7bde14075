// What operations hand to the exchange, and what they make of outcomes that no network gives.
#include <gtest/gtest.h>

#include "operations/canned_exchange.h"
#include "operations/every_operation.h"

namespace operations_test {
namespace {

char host[] = "192.0.2.1";
char name_space[] = "root/cimv2";
char user[] = "user";
char password[] = "secret";

class Exchange : public testing::TestWithParam<Operation> {
 protected:
  // Calls the operation once and says what came of it: the result, then the Error.
  std::string outcome_of(int result, const std::string& body) {
    const CannedExchange exchange(result, body.c_str());
    return outcome();
  }
  std::string outcome_without_body(int result) {
    const CannedExchange exchange(result, nullptr);
    return outcome();
  }
  std::string outcome() {
    Error* error = nullptr;
    const std::string result = GetParam().call(&handle_, &error);
    const OwnedError owned(error);
    return result + ", " + text_of(error);
  }

  bool parses_what_is_left() const {
    return GetParam().name == "ModifyInstance" || GetParam().name == "DeleteInstance" ||
           GetParam().name == "invokeMethod";
  }

  Handle handle_{.host = host,
                 .port = 5988,
                 .namespace_ = name_space,
                 .timeout = 1500,
                 .user = user,
                 .password = password,
                 .interface = 0};
};

TEST_P(Exchange, gets_the_fields_of_the_handle) {
  const CannedExchange exchange(-1, nullptr);
  outcome();
  EXPECT_EQ(exchange.calls(), 1);
  EXPECT_EQ(exchange.arguments().host, host);
  EXPECT_EQ(exchange.arguments().port, 5988u);
  EXPECT_EQ(exchange.arguments().user, user);
  EXPECT_EQ(exchange.arguments().password, password);
  EXPECT_EQ(exchange.arguments().timeout, 1500u);
}

TEST_P(Exchange, success_without_a_body_gives_nothing) {
  EXPECT_EQ(outcome_without_body(0), GetParam().nothing + ", null");
}

TEST_P(Exchange, failure_that_leaves_an_empty_body_gives_nothing) {
  EXPECT_EQ(outcome_of(-1, ""), GetParam().nothing + ", null");
}

// Modifying, deleting and invoking go on with what a failed exchange has left behind.
TEST_P(Exchange, an_error_left_behind_by_a_failure_counts_in_three_operations) {
  EXPECT_EQ(outcome_of(-1, GetParam().error_answer),
            GetParam().nothing + (parses_what_is_left() ? ", 6 not found" : ", null"));
}

TEST_P(Exchange, a_result_left_behind_by_a_failure_counts_in_three_operations) {
  EXPECT_EQ(outcome_of(-1, GetParam().answer),
            (parses_what_is_left() ? GetParam().result : GetParam().nothing) + ", null");
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, Exchange, testing::ValuesIn(every_operation()),
                         [](const auto& operation) { return operation.param.name; });

}  // namespace
}  // namespace operations_test
