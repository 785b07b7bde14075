// What every operation makes of what comes back.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

#include "operations/every_operation.h"
#include "support/allocations.h"
#include "support/captured_output.h"
#include "support/open_descriptors.h"

namespace operations_test {
namespace {

using support::CapturedOutput;
using support::ServerScript;

class Response : public testing::TestWithParam<Operation> {
 protected:
  const Operation& operation() const { return GetParam(); }

  // The answer to this operation, without its envelope.
  static std::string between(const std::string& text, const std::string& from,
                             const std::string& to) {
    const auto begin = text.find(from);
    return text.substr(begin, text.rfind(to) + to.size() - begin);
  }
  std::string simple_response() const {
    return between(operation().answer, "<SIMPLERSP>", "</SIMPLERSP>");
  }

  // Calls the operation once and says what came of it: the result, then the Error.
  std::string outcome(Handle* handle) const {
    Error* error = nullptr;
    const std::string result = operation().call(handle, &error);
    const OwnedError owned(error);
    return result + ", " + text_of(error);
  }
  std::string outcome_of(const std::string& http) const {
    return outcome(ObjectManager(http).handle());
  }
  std::string outcome_of(const ServerScript& script) const {
    return outcome(ObjectManager(script).handle());
  }

  // No result and no Error.
  std::string nothing() const { return operation().nothing + ", null"; }
};

TEST_P(Response, a_result_is_handed_out) {
  EXPECT_EQ(outcome_of(http_answer(operation().answer)), operation().result + ", null");
}

TEST_P(Response, an_empty_answer_gives_no_result_and_no_error) {
  EXPECT_EQ(outcome_of(http_answer(operation().empty_answer)), operation().empty_result + ", null");
}

TEST_P(Response, an_error_of_the_object_manager_goes_to_the_error_slot) {
  EXPECT_EQ(outcome_of(http_answer(operation().error_answer)),
            operation().nothing + ", 6 not found");
}

TEST_P(Response, an_error_without_an_error_slot_is_released) {
  ObjectManager object_manager(http_answer(operation().error_answer));
  EXPECT_EQ(operation().call(object_manager.handle(), nullptr), operation().nothing);
}

TEST_P(Response, an_error_slot_is_left_alone_when_there_is_nothing_to_report) {
  ObjectManager object_manager(http_answer(operation().answer));
  Error mine{};
  Error* error = &mine;
  operation().call(object_manager.handle(), &error);
  EXPECT_EQ(error, &mine);
}

TEST_P(Response, a_refused_user_gives_the_error_401) {
  EXPECT_EQ(outcome_of(http_refusal()),
            operation().refusal_result +
                (operation().reports_refusal ? ", 401 Unauthorized User" : ", null"));
}

TEST_P(Response, a_refusal_without_an_error_slot_is_released) {
  ObjectManager object_manager(http_refusal());
  EXPECT_EQ(operation().call(object_manager.handle(), nullptr), operation().refusal_result);
}

TEST_P(Response, a_null_handle_gives_nothing) { EXPECT_EQ(outcome(nullptr), nothing()); }

TEST_P(Response, nobody_listening_gives_nothing) {
  ObjectManager object_manager(http_answer(operation().answer));
  object_manager.handle()->port = support::unused_port();
  EXPECT_EQ(outcome(object_manager.handle()), nothing());
}

TEST_P(Response, a_null_host_gives_nothing) {
  ObjectManager object_manager(http_answer(operation().answer));
  char* host = std::exchange(object_manager.handle()->host, nullptr);
  EXPECT_EQ(outcome(object_manager.handle()), nothing());
  object_manager.handle()->host = host;
}

TEST_P(Response, a_connection_closed_without_an_answer_gives_nothing) {
  EXPECT_EQ(outcome_of(ServerScript().read_request().close()), nothing());
}

TEST_P(Response, an_answer_without_content_length_gives_nothing) {
  EXPECT_EQ(outcome_of("HTTP/1.1 200 OK\r\n\r\n" + operation().answer), nothing());
}

TEST_P(Response, an_answer_without_xml_gives_nothing) {
  EXPECT_EQ(outcome_of("HTTP/1.1 501 Not Implemented\r\nContent-Length: 4\r\n\r\nNo.\n"),
            nothing());
}

TEST_P(Response, an_answer_of_length_0_gives_nothing) {
  EXPECT_EQ(outcome_of("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n" + operation().answer),
            nothing());
}

TEST_P(Response, several_responses_give_nothing) {
  EXPECT_EQ(outcome_of(http_answer("<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\">"
                                   "<MESSAGE ID=\"1234\"><MULTIRSP>" +
                                   simple_response() + simple_response() +
                                   "</MULTIRSP></MESSAGE></CIM>")),
            nothing());
}

TEST_P(Response, an_answer_of_the_other_kind_gives_nothing) {
  const bool is_method = operation().name == "invokeMethod";
  const std::string other =
      is_method ? operation_answer("SetSpeed", "<ERROR CODE=\"6\" DESCRIPTION=\"x\"/>")
                : method_answer("GetClass", "<ERROR CODE=\"6\" DESCRIPTION=\"x\"/>");
  EXPECT_EQ(outcome_of(http_answer(other)), nothing());
}

TEST_P(Response, a_response_without_content_gives_nothing) {
  EXPECT_EQ(outcome_of(http_answer("<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\">"
                                   "<MESSAGE ID=\"1234\"><SIMPLERSP/></MESSAGE></CIM>")),
            nothing());
}

TEST_P(Response, a_message_without_response_gives_nothing) {
  EXPECT_EQ(outcome_of(http_answer("<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\">"
                                   "<MESSAGE ID=\"1234\"/></CIM>")),
            nothing());
}

TEST_P(Response, a_document_without_message_gives_nothing) {
  EXPECT_EQ(outcome_of(http_answer("<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\"></CIM>")),
            nothing());
}

// Also what IPARAMVALUE borrows: nobody else has seen it.
TEST_P(Response, a_request_that_comes_back_gives_nothing_and_is_released) {
  EXPECT_EQ(outcome_of(http_answer(
                "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
                "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
                "<IMETHODCALL NAME=\"GetClass\"><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
                "</LOCALNAMESPACEPATH><IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"CIM_Fan\"/>"
                "</IPARAMVALUE><IPARAMVALUE NAME=\"LocalOnly\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
                "</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>")),
            nothing());
}

TEST_P(Response, a_document_that_is_not_well_formed_gives_nothing_but_a_line) {
  const CapturedOutput output(stdout);
  EXPECT_EQ(outcome_of(http_answer(operation().answer + "</CIM>")), nothing());
  EXPECT_EQ(output.text().find("\n Invalid XML... "), 0u);
}

// parseXML() gives the tree of the document before; here that is the application's.
TEST_P(Response, a_document_without_cim_leaves_the_trees_of_the_application_alone) {
  CIM* mine = parseXML(operation().answer.c_str());
  ASSERT_NE(mine, nullptr);
  const CapturedOutput output(stdout);
  EXPECT_EQ(outcome_of(http_answer("<?xml version=\"1.0\"?><HTML><BODY/></HTML>")), nothing());
  EXPECT_EQ(returnAddress, mine);
  EXPECT_STREQ(mine->message->id, "1234");
  Free_CIM(mine);
}

TEST_P(Response, the_tree_of_an_answer_is_not_handed_out_again) {
  outcome_of(http_answer(operation().answer));
  EXPECT_EQ(returnAddress, nullptr);
  const CapturedOutput output(stdout);
  EXPECT_EQ(parseXML("<?xml version=\"1.0\"?><HTML><BODY/></HTML>"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, Response, testing::ValuesIn(every_operation()),
                         [](const auto& operation) { return operation.param.name; });

// ---- Repetition ----

TEST(TenThousandExchanges, leave_no_descriptor_open_and_no_memory_behind) {
  constexpr std::size_t rounds = 134;  // of every operation with every answer
  const auto& operations = every_operation();
  std::vector<ServerScript> scripts;
  for (const Operation& operation : operations)
    for (const std::string& http :
         {http_answer(operation.answer), http_answer(operation.error_answer), http_refusal(),
          std::string("HTTP/1.1 200 OK\r\n\r\n"), std::string()})
      scripts.push_back(support::answer(http).close());
  const std::size_t exchanges = scripts.size();
  for (std::size_t more = exchanges; more < rounds * exchanges; ++more)
    scripts.push_back(scripts[more % exchanges]);
  ObjectManager object_manager(std::move(scripts));

  const auto round = [&] {
    for (std::size_t exchange = 0; exchange < exchanges; ++exchange) {
      Error* error = nullptr;
      operations[exchange * operations.size() / exchanges].call(object_manager.handle(), &error);
      Free_Error(error);
    }
  };
  round();
  const auto descriptors = support::open_descriptors();
  const auto blocks = support::living_blocks();
  for (std::size_t others = 1; others < rounds; ++others) round();
  EXPECT_EQ(support::living_blocks(), blocks);
  EXPECT_EQ(support::open_descriptors(), descriptors);
}

// ---- The refusal ----

TEST(Refusal, its_texts_have_room_for_9_and_29_characters) {
  ObjectManager object_manager(http_refusal());
  Error* error = nullptr;
  EXPECT_EQ(CIMC_XML_GetClass(object_manager.handle(), nullptr, 2, 2, 2, nullptr, &error), nullptr);
  const OwnedError owned(error);
  ASSERT_NE(error, nullptr);
  EXPECT_EQ(std::memcmp(error->code, "401\0\0\0\0\0\0", 10), 0);
  EXPECT_EQ(std::memcmp(error->description, "Unauthorized User\0\0\0\0\0\0\0\0\0\0\0\0", 30), 0);
  EXPECT_EQ(error->instance, nullptr);
}

// ---- Returned values and errors together ----

TEST(ReturnedWithError, what_is_returned_counts) {
  ObjectManager object_manager(http_answer(operation_answer(
      "EnumerateClassNames",
      "<ERROR CODE=\"6\" DESCRIPTION=\"x\"/><IRETURNVALUE><CLASSNAME NAME=\"CIM_Fan\"/>"
      "</IRETURNVALUE>")));
  Error* error = nullptr;
  const OwnedClassName names(
      CIMC_XML_EnumerateClassNames(object_manager.handle(), nullptr, 2, &error));
  ASSERT_NE(names, nullptr);
  EXPECT_STREQ(names->name, "CIM_Fan");
  EXPECT_EQ(error, nullptr);
}

TEST(ReturnedWithError, a_value_of_another_kind_gives_null_without_an_error) {
  ObjectManager object_manager(http_answer(
      operation_answer("GetClass", "<IRETURNVALUE><CLASSNAME NAME=\"CIM_Fan\"/></IRETURNVALUE>")));
  Error* error = nullptr;
  EXPECT_EQ(CIMC_XML_GetClass(object_manager.handle(), nullptr, 2, 2, 2, nullptr, &error), nullptr);
  EXPECT_EQ(error, nullptr);
}

TEST(ReturnedWithError, deleting_looks_for_the_error_alone) {
  ObjectManager object_manager(http_answer(operation_answer(
      "DeleteInstance", "<ERROR CODE=\"6\" DESCRIPTION=\"x\"/><IRETURNVALUE></IRETURNVALUE>")));
  Error* error = nullptr;
  EXPECT_EQ(CIMC_XML_DeleteInstance(object_manager.handle(), nullptr, &error), 0);
  const OwnedError owned(error);
  EXPECT_EQ(text_of(error), "6 x");
}

TEST(AnError, brings_its_instances) {
  ObjectManager object_manager(http_answer(operation_answer(
      "GetClass",
      "<ERROR CODE=\"1\" DESCRIPTION=\"no\"><INSTANCE CLASSNAME=\"CIM_Error\"></INSTANCE>"
      "</ERROR>")));
  Error* error = nullptr;
  EXPECT_EQ(CIMC_XML_GetClass(object_manager.handle(), nullptr, 2, 2, 2, nullptr, &error), nullptr);
  const OwnedError owned(error);
  ASSERT_NE(error, nullptr);
  ASSERT_NE(error->instance, nullptr);
  EXPECT_STREQ(error->instance->className->name, "CIM_Error");
}

}  // namespace
}  // namespace operations_test
