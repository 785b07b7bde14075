// One exchange looked at closely.
#include "http_probe.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "cim-client/answers.h"
#include "cim_client.h"
#include "support/scripted_server.h"

namespace cli {
namespace {

using support::ScriptedServer;
using support::ServerScript;

HttpExchange exchange_with(const ScriptedServer& server,
                           std::chrono::milliseconds limit = std::chrono::seconds(10)) {
  return probe(server.host(), server.port(), "admin", Secret(std::string_view("geheim")), "<X/>",
               limit);
}

TEST(HttpProbe, an_answer_in_one_piece_came_together) {
  ScriptedServer server(support::answer(answers::nothing()));
  const HttpExchange exchange = exchange_with(server);
  EXPECT_EQ(exchange.connect_error, 0);
  EXPECT_EQ(exchange.status(), 200);
  EXPECT_EQ(exchange.status_line(), "HTTP/1.1 200 OK");
  EXPECT_TRUE(exchange.came_together());
  EXPECT_FALSE(exchange.timed_out);
  EXPECT_TRUE(exchange.document().starts_with("<?xml"));
  EXPECT_EQ(exchange.content_length(), static_cast<long>(exchange.document().size()));
}

TEST(HttpProbe, the_request_is_framed_as_the_library_frames_it) {
  ScriptedServer for_probe(support::answer(answers::nothing()));
  ScriptedServer for_library(support::answer(answers::nothing()));
  exchange_with(for_probe);
  char* body = nullptr;
  CIMSendRequest("<X/>", &body, for_library.host(), for_library.port(), "admin", "geheim", 0);
  std::free(body);
  EXPECT_EQ(for_probe.received(), for_library.received());
}

TEST(HttpProbe, head_and_body_sent_apart_did_not_come_together) {
  const std::string answer = answers::nothing();
  const std::size_t head = answer.find("<?xml");
  ScriptedServer server(ServerScript()
                            .read_request()
                            .send(answer.substr(0, head))
                            .pause(std::chrono::milliseconds(200))
                            .send(answer.substr(head)));
  const HttpExchange exchange = exchange_with(server);
  EXPECT_FALSE(exchange.came_together());
  EXPECT_EQ(exchange.first, head);
  EXPECT_TRUE(exchange.document().starts_with("<?xml")) << "the rest is read all the same";
}

TEST(HttpProbe, a_refused_connection_leaves_its_reason) {
  const HttpExchange exchange =
      probe("127.0.0.1", support::unused_port(), "", Secret(), "<X/>", std::chrono::seconds(5));
  EXPECT_EQ(exchange.connect_error, ECONNREFUSED);
}

TEST(HttpProbe, silence_ends_with_the_time) {
  ScriptedServer server(ServerScript().read_request().pause(std::chrono::seconds(2)));
  const HttpExchange exchange = exchange_with(server, std::chrono::milliseconds(200));
  EXPECT_TRUE(exchange.timed_out);
  EXPECT_EQ(exchange.answer, "");
}

TEST(HttpProbe, a_closed_connection_is_seen) {
  ScriptedServer server(ServerScript().read_request().close());
  const HttpExchange exchange = exchange_with(server);
  EXPECT_TRUE(exchange.closed);
  EXPECT_EQ(exchange.status(), 0);
}

TEST(HttpProbe, a_status_with_two_blanks_before_it_is_read) {
  ScriptedServer server(support::answer(answers::unauthorised()));
  const HttpExchange exchange = exchange_with(server);
  EXPECT_EQ(exchange.status(), 401);
  EXPECT_EQ(exchange.content_length(), 0);
}

TEST(HttpProbe, chunks_are_recognised_and_their_end_is_found) {
  ScriptedServer server(support::answer(
      "HTTP/1.1 200 OK\r\nTransfer-Encoding: Chunked\r\n\r\n5\r\n<?xml\r\n0\r\n\r\n"));
  const HttpExchange exchange = exchange_with(server);
  EXPECT_TRUE(exchange.is_chunked());
  EXPECT_FALSE(exchange.timed_out);
  EXPECT_EQ(exchange.content_length(), -1);
}

TEST(HttpProbe, odd_heads_have_no_status_and_no_length) {
  HttpExchange exchange;
  exchange.answer = "SSH-2.0-OpenSSH";
  EXPECT_EQ(exchange.status(), 0);
  EXPECT_EQ(exchange.content_length(), -1);
  exchange.answer = "HTTP/1.1";
  EXPECT_EQ(exchange.status(), 0);
  exchange.answer = "HTTP/1.1 200 OK\r\nContent-Length: many\r\n";
  EXPECT_EQ(exchange.content_length(), -1);
  exchange.answer = "HTTP/1.1 200 OK\r\nContent-Length: -5\r\n";
  EXPECT_EQ(exchange.content_length(), -1);
  exchange.answer = "HTTP/1.1 200 OK\r\nContent-Length:";
  EXPECT_EQ(exchange.content_length(), -1);
}

}  // namespace
}  // namespace cli
