// One exchange with an object manager, when something goes wrong.
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "cim_client.h"
#include "exchange.h"
#include "support/allocations.h"
#include "support/captured_output.h"
#include "support/recorded_log.h"
#include "support/scripted_server.h"
#include "support/system_calls.h"

namespace {

using exchange::body;
using exchange::failure;
using exchange::head;
using exchange::Outcome;
using exchange::refusal;
using exchange::send;
using exchange::success;
using std::chrono::milliseconds;
using support::answer;
using support::CapturedOutput;
using support::FailingAllocation;
using support::RecordedLog;
using support::ScriptedServer;
using support::ServerScript;
using support::SystemCalls;
using Strings = std::vector<std::string>;

constexpr char log_of_request[] =
    "src/CIMC_SendRequest.c|295|CIMCLIENT|network|2|Request:\n%s|<?xml a?>";
constexpr char read_error[] = "ERROR!!! while recv data\n";

class ExchangeFailure : public exchange::Test {};

// Sends, and holds what was written to standard error and the log against what is expected.
Outcome send_and_expect(std::uint16_t port, const std::string& errors, const Strings& log_calls) {
  const RecordedLog log;
  const CapturedOutput standard_error(stderr);
  const CapturedOutput standard_output(stdout);
  Outcome outcome = send(port);
  EXPECT_EQ(standard_error.text(), errors);
  EXPECT_EQ(standard_output.text(), "");
  EXPECT_EQ(log.calls(), log_calls);
  return outcome;
}

// The same for a failure that says nothing.
Outcome send_in_silence(std::uint16_t port) {
  return send_and_expect(port, "", {"init", log_of_request});
}

// How often the socket that was made has been closed.
std::size_t times_closed(const SystemCalls& calls) {
  const auto sockets = calls.made("socket");
  const auto closes = calls.made("close");
  return static_cast<std::size_t>(
      std::count_if(closes.begin(), closes.end(), [&](const support::SystemCall& call) {
        return !sockets.empty() && call.descriptor == sockets[0].result;
      }));
}

// Arguments

TEST_F(ExchangeFailure, null_arguments_fail_without_a_connection) {
  const SystemCalls calls;
  char untouched[] = "";
  char* text = untouched;
  EXPECT_EQ(CIMSendRequest(nullptr, &text, "127.0.0.1", 80, "u", "p", 0), -1);
  EXPECT_EQ(CIMSendRequest("a", nullptr, "127.0.0.1", 80, "u", "p", 0), -1);
  EXPECT_EQ(CIMSendRequest("a", &text, nullptr, 80, "u", "p", 0), -1);
  EXPECT_EQ(text, untouched);
  EXPECT_TRUE(calls.made().empty());
}

// Connecting

TEST_F(ExchangeFailure, no_socket_is_a_failure) {
  SystemCalls calls;
  calls.fail("socket", EMFILE);
  EXPECT_EQ(send_in_silence(80), failure());
  EXPECT_EQ(calls.made("connect").size(), 0u);
}

TEST_F(ExchangeFailure, a_refused_connection_is_a_failure) {
  EXPECT_EQ(send_in_silence(support::unused_port()), failure());
}

TEST_F(ExchangeFailure, an_interrupted_connect_is_repeated) {
  ScriptedServer server(answer(exchange::answer(100)));
  SystemCalls calls;
  calls.fail("connect", EINTR, 3);
  EXPECT_EQ(send(server.port()), success(body(100)));
}

// Writing

TEST_F(ExchangeFailure, a_failed_write_is_a_failure) {
  for (const int error : {EPIPE, ECONNRESET, EAGAIN, EIO, EBADF}) {
    ScriptedServer server{ServerScript()};
    SystemCalls calls;
    calls.fail("write", error);
    EXPECT_EQ(send_in_silence(server.port()), failure());
    EXPECT_EQ(calls.made("write").size(), 1u);
    EXPECT_EQ(times_closed(calls), 1u);
  }
}

TEST_F(ExchangeFailure, a_write_that_fails_half_way_is_a_failure) {
  ScriptedServer server{ServerScript()};
  SystemCalls calls;
  calls.shorten("write", 20).fail("write", ECONNRESET);
  EXPECT_EQ(send_in_silence(server.port()), failure());
  EXPECT_EQ(server.received(), Strings{exchange::request.substr(0, 20)});
}

TEST_F(ExchangeFailure, short_and_interrupted_writes_go_on_where_they_were) {
  ScriptedServer server(answer(exchange::answer(100)));
  SystemCalls calls;
  calls.shorten("write", 1).fail("write", EINTR).shorten("write", 30).fail("write", EINTR, 2);
  EXPECT_EQ(send(server.port()), success(body(100)));
  EXPECT_EQ(server.received(), Strings{exchange::request});
  Strings written;
  for (const support::SystemCall& call : calls.made("write")) written.push_back(call.bytes);
  EXPECT_EQ(written, (Strings{exchange::request, exchange::request.substr(1),
                              exchange::request.substr(1), exchange::request.substr(31),
                              exchange::request.substr(31), exchange::request.substr(31)}));
}

TEST_F(ExchangeFailure, a_write_of_0_bytes_is_repeated) {
  ScriptedServer server(answer(exchange::answer(100)));
  SystemCalls calls;
  calls.give("write", 0).give("write", 0);
  EXPECT_EQ(send(server.port()), success(body(100)));
  EXPECT_EQ(server.received(), Strings{exchange::request});
}

// The first read

TEST_F(ExchangeFailure, a_failed_first_read_is_a_failure) {
  for (const int error : {ECONNRESET, EAGAIN, ETIMEDOUT, ENOTCONN}) {
    ScriptedServer server{ServerScript()};
    SystemCalls calls;
    calls.fail("recv", error);
    EXPECT_EQ(send_in_silence(server.port()), failure());
    EXPECT_EQ(times_closed(calls), 1u);
  }
}

TEST_F(ExchangeFailure, an_interrupted_first_read_is_repeated) {
  ScriptedServer server(answer(exchange::answer(100)));
  SystemCalls calls;
  calls.fail("recv", EINTR, 2);
  EXPECT_EQ(send(server.port()), success(body(100)));
  EXPECT_EQ(calls.made("recv")[2].size, 2047u);
}

TEST_F(ExchangeFailure, a_peer_that_closes_unanswered_is_a_failure) {
  ScriptedServer server(ServerScript().read_request().close());
  EXPECT_EQ(send_in_silence(server.port()), failure());
}

TEST_F(ExchangeFailure, a_peer_that_resets_unanswered_is_a_failure) {
  ScriptedServer server(ServerScript().read_request().reset());
  EXPECT_EQ(send_in_silence(server.port()), failure());
}

TEST_F(ExchangeFailure, a_refusal_leaves_the_body_untouched_and_closes_the_socket) {
  ScriptedServer server(answer("HTTP/1.1  401 Unauthorized\r\nContent-Length: 0\r\n\r\n"));
  SystemCalls calls;
  EXPECT_EQ(send_in_silence(server.port()), refusal());
  EXPECT_EQ(times_closed(calls), 1u);
}

TEST_F(ExchangeFailure, an_answer_without_a_length_leaves_the_body_untouched) {
  ScriptedServer server(answer("HTTP/1.1 200 OK\r\n\r\n" + body(100)));
  SystemCalls calls;
  EXPECT_EQ(send_in_silence(server.port()), failure());
  EXPECT_EQ(times_closed(calls), 1u);
}

TEST_F(ExchangeFailure, an_answer_without_xml_leaves_an_empty_body_with_the_caller) {
  ScriptedServer server(answer(head("100") + std::string(100, 'x')));
  SystemCalls calls;
  EXPECT_EQ(send_in_silence(server.port()), (Outcome{-1, true, true, ""}));
  EXPECT_EQ(times_closed(calls), 1u);
}

// Later reads

Strings log_with(const std::string& text) {
  return {"init", log_of_request,
          "src/CIMC_SendRequest.c|397|CIMCLIENT|network|2|Respone:\n%s|" + text};
}

TEST_F(ExchangeFailure, a_later_read_that_fails_gives_what_has_arrived) {
  for (const int error : {ECONNRESET, EAGAIN, ETIMEDOUT}) {
    ScriptedServer server(answer(head("1000") + body(300)));
    SystemCalls calls;
    calls.pass("recv").fail("recv", error);
    EXPECT_EQ(send_and_expect(server.port(), read_error, log_with(body(300))), success(body(300)));
    EXPECT_EQ(times_closed(calls), 1u);
  }
}

TEST_F(ExchangeFailure, a_reset_half_way_gives_what_has_arrived) {
  ScriptedServer server(
      ServerScript().read_request().send(head("1000") + body(300)).pause(milliseconds(50)).reset());
  EXPECT_EQ(send_and_expect(server.port(), read_error, log_with(body(300))), success(body(300)));
}

TEST_F(ExchangeFailure, a_peer_that_closes_half_way_gives_what_has_arrived) {
  for (const std::size_t sent : {10u, 700u, 2999u}) {
    ScriptedServer server(ServerScript().read_request().send(head("3000") + body(sent)).close());
    EXPECT_EQ(send_and_expect(server.port(), read_error, log_with(body(sent))),
              success(body(sent)));
  }
}

TEST_F(ExchangeFailure, a_read_of_0_bytes_does_not_end_the_body_while_the_peer_is_there) {
  ScriptedServer server(answer(exchange::answer(1000)));
  SystemCalls calls;
  calls.shorten("recv", head("1000").size() + 300).give("recv", 0).give("recv", 0);
  EXPECT_EQ(send_and_expect(server.port(), "", log_with(body(1000))), success(body(1000)));
  EXPECT_EQ(calls.made("recv").size(), 4u);
}

TEST_F(ExchangeFailure, an_interrupted_later_read_is_repeated) {
  ScriptedServer server(answer(exchange::answer(5000)));
  SystemCalls calls;
  calls.pass("recv").fail("recv", EINTR).shorten("recv", 5).fail("recv", EINTR, 2);
  EXPECT_EQ(send_and_expect(server.port(), "", log_with(body(5000))), success(body(5000)));
}

TEST_F(ExchangeFailure, a_close_at_any_offset_of_an_answer_ends_the_exchange) {
  const std::string whole = exchange::answer(600);
  std::vector<ServerScript> scripts;
  for (std::size_t size = 0; size <= whole.size(); ++size)
    scripts.push_back(ServerScript().read_request().send(whole.substr(0, size)).close());
  ScriptedServer server(scripts);
  const CapturedOutput standard_error(stderr);
  const std::size_t label = whole.find("Content-Length:") + 15;
  const std::size_t start = whole.find("<?xml");
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const Outcome outcome = send(server.port());
    if (size < label)
      EXPECT_EQ(outcome, failure()) << size;
    else if (size < start + 5)
      EXPECT_EQ(outcome, (Outcome{-1, true, true, ""})) << size;
    else
      EXPECT_EQ(outcome, success(body(size - start))) << size;
  }
}

TEST_F(ExchangeFailure, a_failed_close_does_not_matter) {
  ScriptedServer server(answer(exchange::answer(100)));
  int socket = -1;
  {
    SystemCalls calls;
    calls.fail("close", EIO);
    EXPECT_EQ(send(server.port()), success(body(100)));
    ASSERT_EQ(calls.made("close").size(), 1u);
    socket = calls.made("close")[0].descriptor;
    close(socket);
  }
}

// Memory

TEST_F(ExchangeFailure, no_memory_for_the_message_is_a_failure_before_anything_happens) {
  SystemCalls calls;
  RecordedLog log;
  char untouched[] = "";
  char* text = untouched;
  {
    const FailingAllocation allocation(0);
    EXPECT_EQ(CIMSendRequest("<?xml a?>", &text, "127.0.0.1", 80, "u", "p", 0), -1);
    EXPECT_TRUE(allocation.has_failed());
  }
  EXPECT_EQ(text, untouched);
  EXPECT_TRUE(calls.made().empty());
  EXPECT_TRUE(log.calls().empty());
}

TEST_F(ExchangeFailure, no_memory_for_the_body_is_said_on_standard_error) {
  ScriptedServer server(answer(exchange::answer(1000)));
  const CapturedOutput standard_error(stderr);
  RecordedLog log;
  char untouched[] = "";
  char* text = untouched;
  {
    const FailingAllocation allocation(1);
    EXPECT_EQ(CIMSendRequest("<?xml a?>", &text, "127.0.0.1", server.port(), "u", "p", 0), -1);
    EXPECT_TRUE(allocation.has_failed());
    EXPECT_EQ(allocation.size(), 1001u);
  }
  EXPECT_EQ(text, nullptr);
  EXPECT_EQ(standard_error.text(), "src/CIMC_SendRequest.c 355 could not allocate memory ");
  EXPECT_EQ(log.calls(), (Strings{"init", log_of_request}));
  EXPECT_TRUE(server.closed_by_clients());
}

TEST_F(ExchangeFailure, a_body_of_1_gib_is_asked_for) {
  ScriptedServer server(answer(head("1073741824") + body(100)));
  const CapturedOutput standard_error(stderr);
  char* text = nullptr;
  const FailingAllocation allocation(1);
  EXPECT_EQ(CIMSendRequest("<?xml a?>", &text, "127.0.0.1", server.port(), "u", "p", 0), -1);
  EXPECT_TRUE(allocation.has_failed());
  EXPECT_EQ(allocation.size(), 1073741825u);
}

TEST_F(ExchangeFailure, an_exchange_makes_two_allocations) {
  ScriptedServer server(answer(exchange::answer(1000)));
  char* text = nullptr;
  {
    const FailingAllocation allocation(2);
    EXPECT_EQ(CIMSendRequest("<?xml a?>", &text, "127.0.0.1", server.port(), "u", "p", 0), 0);
    EXPECT_FALSE(allocation.has_failed());
  }
  std::free(text);
}

TEST_F(ExchangeFailure, no_credentials_stay_in_released_memory) {
  ScriptedServer server(answer(exchange::answer(100)));
  char* text = nullptr;
  for (const std::uint16_t port : {server.port(), support::unused_port()}) {
    // "somebody:swordfish"
    const support::ReleasedSecrets secrets("c29tZWJvZHk6c3dvcmRmaXNo");
    CIMSendRequest("<?xml a?>", &text, "127.0.0.1", port, "somebody", "swordfish", 0);
    EXPECT_GE(secrets.released(), 1u);
    EXPECT_EQ(secrets.with_secret(), 0u);
  }
  std::free(text);
  EXPECT_NE(server.received()[0].find("c29tZWJvZHk6c3dvcmRmaXNo"), std::string::npos);
}

}  // namespace
