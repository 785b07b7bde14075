// Operations repeated ten thousand times leave the memory as it was.
#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

#include "operations/canned_exchange.h"
#include "operations/every_operation.h"
#include "support/allocations.h"
#include "support/captured_output.h"
#include "support/scale.h"

namespace operations_test {
namespace {

const int repetitions = support::scaled(10'000);

char host[] = "192.0.2.1";
char name_space[] = "root/cimv2";
char user[] = "user";
char password[] = "secret";

class Repetition : public testing::TestWithParam<Operation> {
 protected:
  // How many blocks more live after ten thousand calls than after one.
  static long growth(Handle handle, int result, const char* body) {
    const CannedExchange exchange(result, body);
    call(&handle);
    const long before = support::living_blocks();
    for (int repetition = 0; repetition < repetitions; ++repetition) call(&handle);
    return support::living_blocks() - before;
  }
  long growth(int result, const std::string& body) const {
    return growth(handle(), result, body.c_str());
  }

  static Handle handle() {
    return {.host = host,
            .port = 5988,
            .namespace_ = name_space,
            .timeout = 0,
            .user = user,
            .password = password,
            .interface = 0};
  }

 private:
  static void call(Handle* handle) {
    Error* error = nullptr;
    GetParam().call(handle, &error);
    Free_Error(error);
  }
};

TEST_P(Repetition, of_results_leaves_no_memory_behind) {
  EXPECT_EQ(growth(0, GetParam().answer), 0);
}

TEST_P(Repetition, of_empty_answers_leaves_no_memory_behind) {
  EXPECT_EQ(growth(0, GetParam().empty_answer), 0);
}

TEST_P(Repetition, of_errors_leaves_no_memory_behind) {
  EXPECT_EQ(growth(0, GetParam().error_answer), 0);
}

TEST_P(Repetition, of_refusals_leaves_no_memory_behind) {
  EXPECT_EQ(growth(handle(), 401, nullptr), 0);
}

TEST_P(Repetition, of_refusals_without_an_error_slot_leaves_no_memory_behind) {
  const CannedExchange refusal(401, nullptr);
  Handle asked = handle();
  GetParam().call(&asked, nullptr);
  const long before = support::living_blocks();
  for (int repetition = 0; repetition < repetitions; ++repetition) GetParam().call(&asked, nullptr);
  EXPECT_EQ(support::living_blocks(), before);
}

TEST_P(Repetition, of_failures_leaves_no_memory_behind) {
  EXPECT_EQ(growth(handle(), -1, nullptr), 0);
}

TEST_P(Repetition, of_failures_with_a_body_leaves_no_memory_behind) {
  EXPECT_EQ(growth(-1, ""), 0);
  EXPECT_EQ(growth(-1, GetParam().answer), 0);
}

// ---- Answers of other shapes ----

using RepetitionOfShapes = Repetition;

TEST_P(RepetitionOfShapes, of_several_responses_leaves_no_memory_behind) {
  EXPECT_EQ(growth(0,
                   "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\"><MESSAGE ID=\"1\"><MULTIRSP>"
                   "<SIMPLERSP><IMETHODRESPONSE NAME=\"GetClass\"><IRETURNVALUE>"
                   "<CLASS NAME=\"CIM_Fan\"></CLASS></IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP>"
                   "<SIMPLERSP><METHODRESPONSE NAME=\"SetSpeed\"><RETURNVALUE><VALUE>1</VALUE>"
                   "</RETURNVALUE></METHODRESPONSE></SIMPLERSP></MULTIRSP></MESSAGE></CIM>"),
            0);
}

TEST_P(RepetitionOfShapes, of_requests_that_come_back_leaves_no_memory_behind) {
  EXPECT_EQ(growth(0,
                   "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\"><MESSAGE ID=\"1\"><SIMPLEREQ>"
                   "<IMETHODCALL NAME=\"GetClass\"><IPARAMVALUE NAME=\"ClassName\">"
                   "<CLASSNAME NAME=\"CIM_Fan\"/></IPARAMVALUE><IPARAMVALUE NAME=\"LocalOnly\">"
                   "<VALUE>TRUE</VALUE></IPARAMVALUE></IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>"),
            0);
}

TEST_P(RepetitionOfShapes, of_answers_of_the_wrong_kind_leaves_no_memory_behind) {
  EXPECT_EQ(growth(0, method_answer("SetSpeed",
                                    "<ERROR CODE=\"1\" DESCRIPTION=\"x\"/>"
                                    "<RETURNVALUE><VALUE>1</VALUE></RETURNVALUE>"
                                    "<PARAMVALUE NAME=\"Out\"><VALUE>1</VALUE>"
                                    "</PARAMVALUE>")),
            0);
  EXPECT_EQ(growth(0, operation_answer("GetClass",
                                       "<ERROR CODE=\"1\" DESCRIPTION=\"x\"/>"
                                       "<IRETURNVALUE><VALUE>1</VALUE>"
                                       "</IRETURNVALUE>")),
            0);
}

TEST_P(RepetitionOfShapes, of_documents_without_message_leaves_no_memory_behind) {
  EXPECT_EQ(growth(0, "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\"></CIM>"), 0);
}

TEST_P(RepetitionOfShapes, of_other_documents_leaves_no_memory_behind) {
  const support::CapturedOutput output(stdout);
  EXPECT_EQ(growth(0, "<?xml version=\"1.0\"?><HTML><BODY/></HTML>"), 0);
  EXPECT_EQ(growth(0, "<?xml version=\"1.0\"?><INSTANCE CLASSNAME=\"CIM_Fan\"></INSTANCE>"), 0);
}

TEST_P(RepetitionOfShapes, of_documents_that_are_not_well_formed_leaves_no_memory_behind) {
  const support::CapturedOutput output(stdout);
  EXPECT_EQ(growth(0, "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\"><MESSAGE ID=\"1\">"), 0);
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, Repetition, testing::ValuesIn(every_operation()),
                         [](const auto& operation) { return operation.param.name; });

// One operation for each way to read an answer.
std::vector<Operation> reading_operations() {
  std::vector<Operation> operations = every_operation();
  std::erase_if(operations, [](const Operation& operation) {
    return operation.name != "GetClass" && operation.name != "DeleteInstance" &&
           operation.name != "invokeMethod";
  });
  return operations;
}

INSTANTIATE_TEST_SUITE_P(EveryReading, RepetitionOfShapes, testing::ValuesIn(reading_operations()),
                         [](const auto& operation) { return operation.param.name; });

}  // namespace
}  // namespace operations_test
