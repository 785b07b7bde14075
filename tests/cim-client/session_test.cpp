// Operations and their outcomes.
#include "session.h"

#include <gtest/gtest.h>

#include "cim-client/answers.h"
#include "exit_status.h"
#include "support/scripted_server.h"

namespace cli {
namespace {

using support::ScriptedServer;
using support::ServerScript;

Session session_with(std::uint16_t port) {
  Target target;
  target.host = "127.0.0.1";
  target.port = port;
  return Session(target, Secret(), std::chrono::seconds(20), false);
}

ClassNameOwner ask(Session& session) {
  return session.ask<ClassNameOwner>([](struct client_Configuration* handle, Error** error) {
    return EnumerateClassNames(handle, nullptr, 0, error);
  });
}

void tell(Session& session) {
  session.tell([](struct client_Configuration* handle, Error** error) {
    return DeleteInstance(handle, nullptr, error);
  });
}

// The failure that `action` ends in.
template <class Action>
Failure failure_of(Action action) {
  try {
    action();
  } catch (const Failure& failure) {
    return failure;
  }
  ADD_FAILURE() << "no failure";
  return {ExitStatus::Success, ""};
}

Failure asking_fails(ScriptedServer& server) {
  Session session = session_with(server.port());
  return failure_of([&session] { ask(session); });
}

TEST(Session, records_found_are_handed_out) {
  ScriptedServer server(support::answer(
      answers::operation("<IRETURNVALUE><CLASSNAME NAME=\"CIM_Fan\"/></IRETURNVALUE>")));
  Session session = session_with(server.port());
  const ClassNameOwner names = ask(session);
  ASSERT_NE(names, nullptr);
  EXPECT_STREQ(names->name, "CIM_Fan");
}

TEST(Session, nothing_found_is_null_and_takes_one_exchange) {
  ScriptedServer server(support::answer(answers::nothing()));
  Session session = session_with(server.port());
  EXPECT_EQ(ask(session), nullptr);
  EXPECT_EQ(server.received().size(), 1U);
}

TEST(Session, an_error_is_a_failure_with_its_code_and_description) {
  ScriptedServer server(support::answer(answers::error(6, "no such fan")));
  const Failure failure = asking_fails(server);
  EXPECT_EQ(failure.status(), ExitStatus::CimError);
  EXPECT_STREQ(failure.what(), "CIM error 6 CIM_ERR_NOT_FOUND: no such fan");
}

TEST(Session, a_refusal_is_unauthorised) {
  ScriptedServer server(support::answer(answers::unauthorised()));
  EXPECT_EQ(asking_fails(server).status(), ExitStatus::Unauthorised);
}

TEST(Session, a_failed_connection_is_no_answer) {
  Session session = session_with(support::unused_port());
  const Failure failure = failure_of([&session] { ask(session); });
  EXPECT_EQ(failure.status(), ExitStatus::NoAnswer);
  EXPECT_NE(std::string(failure.what()).find("Connection refused"), std::string::npos);
}

TEST(Session, a_dropped_connection_is_no_answer_and_not_an_empty_result) {
  ScriptedServer server(ServerScript().read_request().close());
  const Failure failure = asking_fails(server);
  EXPECT_EQ(failure.status(), ExitStatus::NoAnswer);
  EXPECT_NE(std::string(failure.what()).find("without an answer"), std::string::npos);
}

TEST(Session, an_http_error_is_no_answer_and_names_its_status) {
  ScriptedServer server(support::answer(answers::http("", "503 Service Unavailable")));
  EXPECT_NE(std::string(asking_fails(server).what()).find("503 Service Unavailable"),
            std::string::npos);
}

TEST(Session, xml_that_is_no_cim_is_no_answer) {
  ScriptedServer server(support::answer(answers::http("<?xml version=\"1.0\"?><html/>")));
  EXPECT_EQ(asking_fails(server).status(), ExitStatus::NoAnswer);
}

TEST(Session, broken_xml_is_no_answer) {
  ScriptedServer server(support::answer(answers::http("<?xml version=\"1.0\"?><CIM><MESS")));
  EXPECT_EQ(asking_fails(server).status(), ExitStatus::NoAnswer);
}

TEST(Session, a_result_of_another_kind_is_said_to_be_one) {
  ScriptedServer server(support::answer(
      answers::operation("<IRETURNVALUE><INSTANCENAME CLASSNAME=\"X\"/></IRETURNVALUE>")));
  const Failure failure = asking_fails(server);
  EXPECT_EQ(failure.status(), ExitStatus::NoAnswer);
  EXPECT_NE(std::string(failure.what()).find("something else than was asked for"),
            std::string::npos);
}

TEST(Session, an_operation_without_result_succeeds_when_it_was_answered) {
  ScriptedServer server(support::answer(answers::operation("")));
  Session session = session_with(server.port());
  tell(session);
  EXPECT_EQ(server.received().size(), 1U);
}

TEST(Session, an_operation_without_result_fails_when_the_connection_was_dropped) {
  ScriptedServer server(ServerScript().read_request().close());
  Session session = session_with(server.port());
  EXPECT_EQ(failure_of([&session] { tell(session); }).status(), ExitStatus::NoAnswer);
}

TEST(Session, an_operation_without_result_fails_with_its_error) {
  ScriptedServer server(support::answer(answers::error(2, "not you")));
  Session session = session_with(server.port());
  EXPECT_STREQ(failure_of([&session] { tell(session); }).what(),
               "CIM error 2 CIM_ERR_ACCESS_DENIED: not you");
}

TEST(Session, the_second_look_changes_nothing_at_the_object_manager) {
  ScriptedServer server(
      {ServerScript().read_request().close(), support::answer(answers::nothing())});
  Session session = session_with(server.port());
  failure_of([&session] { tell(session); });
  const std::vector<std::string> received = server.received(2);
  ASSERT_EQ(received.size(), 2U);
  EXPECT_NE(received[0].find("NAME=\"DeleteInstance\""), std::string::npos);
  EXPECT_NE(received[1].find("NAME=\"GetClass\""), std::string::npos);
}

TEST(Session, operations_address_the_namespace_that_was_set) {
  ScriptedServer server(support::answer(answers::nothing()));
  Session session = session_with(server.port());
  session.set_namespace("root/interop");
  ask(session);
  EXPECT_NE(server.received()[0].find("<NAMESPACE NAME=\"root/interop\"/>"), std::string::npos);
}

TEST(Session, a_host_name_is_resolved) {
  ScriptedServer server(support::answer(answers::nothing()));
  Target target;
  target.host = "localhost";
  target.port = server.port();
  Session session(target, Secret(), std::chrono::seconds(20), false);
  EXPECT_EQ(session.address(), "127.0.0.1");
  EXPECT_EQ(ask(session), nullptr);
}

}  // namespace
}  // namespace cli
