// Connections over real sockets.
#include "http/server.h"

#include <gtest/gtest.h>
#include <sys/eventfd.h>

#include <thread>

#include "http/response.h"
#include "support/raw_client.h"

namespace sandbox::http {
namespace {

using test::RawClient;

// A server in a thread of its own; its handler answers as the request's body says.
class Connections : public testing::Test {
 protected:
  Connections() : stop_(eventfd(0, 0)) {
    Server::Options options;
    options.most_connections = 3;
    options.timeouts.idle = Milliseconds(400);
    options.timeouts.short_body = Milliseconds(100);
    server_ = std::make_unique<Server>(
        loop_, [](const Request& request) { return answer(request); }, options);
    EXPECT_EQ(server_->start(), std::nullopt);
    loop_.watch(stop_.get(), POLLIN, [this](short) { loop_.stop(); });
    thread_ = std::thread([this] { loop_.run(); });
  }

  ~Connections() override {
    const std::uint64_t one = 1;
    EXPECT_EQ(write(stop_.get(), &one, sizeof one), static_cast<ssize_t>(sizeof one));
    thread_.join();
  }

  static Script answer(const Request& request) {
    const std::string body(test_body(request.body));
    if (body == "large") return {Send{std::string(20'000'000, 'x')}, Close{}};
    if (body == "wait") return {Send{"a"}, Wait{Milliseconds(150)}, Send{"b"}, Close{}};
    if (body == "reset") return {Send{"a"}, Reset{}};
    if (body == "silence") return {Send{"a"}, Silence{}};
    return {Send{operation_response("<" + body + ">")}};
  }

  static std::string_view test_body(std::string_view body) {
    if (body.starts_with('\r')) body.remove_prefix(1);
    return body;
  }

  static std::string post(const std::string& body, const std::string& headers = "") {
    return "POST /cimom HTTP/1.1\r\n" + headers + "Content-Length: " + std::to_string(body.size()) +
           "\r\n\r\n" + body;
  }

  static std::string body_of(const std::string& response) {
    return response.substr(response.find("\r\n\r\n") + 4);
  }

  EventLoop loop_;
  Descriptor stop_;
  std::unique_ptr<Server> server_;
  std::thread thread_;
};

TEST_F(Connections, head_and_body_arrive_in_one_read) {
  RawClient client(server_->port());
  client.send("POST  /cimom HTTP/1.1 \r\nContent-Length: 4\r\n\n\rone");
  const std::string first = client.receive_once(2047);
  EXPECT_EQ(first, operation_response("<one>"));
}

TEST_F(Connections, a_connection_serves_request_after_request) {
  RawClient client(server_->port());
  for (int i = 0; i < 50; ++i) {
    client.send(post(std::to_string(i)));
    EXPECT_EQ(body_of(client.receive_response()), "<" + std::to_string(i) + ">");
  }
}

TEST_F(Connections, requests_sent_in_one_go_are_answered_in_their_order) {
  RawClient client(server_->port());
  std::string all;
  for (int i = 0; i < 2000; ++i) all += post(std::to_string(i));
  all += post("last", "Connection: close\r\n");
  std::thread sender([&] { client.send(all); });
  const std::string answers = client.receive_all();
  sender.join();
  std::string expected;
  for (int i = 0; i < 2000; ++i) {
    expected += operation_response("<" + std::to_string(i) + ">");
  }
  EXPECT_EQ(answers, expected + operation_response("<last>"));
}

TEST_F(Connections, several_clients_are_served_at_once) {
  RawClient slow(server_->port());
  slow.send("POST /cimom HTTP/1.1\r\nContent-Len");
  RawClient quick(server_->port());
  quick.send(post("quick"));
  EXPECT_EQ(body_of(quick.receive_response()), "<quick>");
  slow.send("gth: 4\r\n\r\nslow");
  EXPECT_EQ(body_of(slow.receive_response()), "<slow>");
}

TEST_F(Connections, beyond_the_limit_clients_wait_until_another_has_gone) {
  auto first = std::make_unique<RawClient>(server_->port());
  first->send(post("1"));
  first->receive_response();
  RawClient second(server_->port());
  second.send(post("2"));
  second.receive_response();
  RawClient third(server_->port());
  third.send(post("3"));
  third.receive_response();
  RawClient fourth(server_->port());
  fourth.send(post("4"));
  EXPECT_TRUE(fourth.stays_silent(100));
  first.reset();
  EXPECT_EQ(body_of(fourth.receive_response()), "<4>");
}

TEST_F(Connections, malformed_requests_get_400_and_the_next_client_is_served) {
  for (const char* bytes :
       {"nonsense\r\n\r\n", "POST / HTTP/1.1\r\nContent-Length: x\r\n\r\n", "\x16\x03\x01\n\n"}) {
    RawClient client(server_->port());
    client.send(bytes);
    EXPECT_EQ(client.receive_all(), "HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\n\r\n");
  }
  RawClient client(server_->port());
  client.send(post("alive"));
  EXPECT_EQ(body_of(client.receive_response()), "<alive>");
}

TEST_F(Connections, an_error_response_reaches_a_client_that_goes_on_sending) {
  RawClient client(server_->port());
  client.send("POST / HTTP/1.1\r\nContent-Length: 99999999999\r\n\r\n" + std::string(300000, 'x'));
  EXPECT_EQ(client.receive_once(2047),
            "HTTP/1.1 413 Content Too Large\r\nContent-Length: 0\r\n\r\n");
}

TEST_F(Connections, a_document_shorter_than_announced_gets_400_soon) {
  RawClient client(server_->port());
  client.send("POST  /cimom HTTP/1.1 \r\nContent-Length: 13\r\n\n\r<CIM></CIM>");
  EXPECT_EQ(client.receive_all(), "HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\n\r\n");
}

TEST_F(Connections, an_unfinished_request_gets_400_when_the_client_stops) {
  RawClient client(server_->port());
  client.send("POST /cimom HTTP/1.1\r\nContent-Length: 10\r\n\r\nhalf");
  client.finish_sending();
  EXPECT_EQ(client.receive_all(), "HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\n\r\n");
}

TEST_F(Connections, an_unfinished_request_gets_400_when_it_takes_too_long) {
  RawClient client(server_->port());
  client.send("POST /cimom HTTP/1.1\r\nContent-Length: 10\r\n\r\nhalf");
  EXPECT_EQ(client.receive_all(), "HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\n\r\n");
}

TEST_F(Connections, a_client_that_stops_sending_still_gets_its_answer) {
  RawClient client(server_->port());
  client.send(post("one"));
  client.finish_sending();
  EXPECT_EQ(client.receive_all(), operation_response("<one>"));
}

TEST_F(Connections, an_idle_connection_is_closed) {
  RawClient client(server_->port());
  client.send(post("one"));
  EXPECT_EQ(client.receive_all(), operation_response("<one>"));
  EXPECT_FALSE(client.timed_out());
  EXPECT_FALSE(client.was_reset());
}

TEST_F(Connections, a_client_that_waits_for_continuation_is_told_to_go_on) {
  RawClient client(server_->port());
  client.send("POST / HTTP/1.1\r\nExpect: 100-continue\r\nContent-Length: 3\r\n\r\n");
  EXPECT_EQ(client.receive_once(100), "HTTP/1.1 100 Continue\r\n\r\n");
  client.send("one");
  EXPECT_EQ(client.receive_response(), operation_response("<one>"));
}

TEST_F(Connections, large_responses_arrive_whole) {
  RawClient client(server_->port());
  client.send(post("large"));
  EXPECT_EQ(client.receive_all().size(), 20'000'000U);
}

TEST_F(Connections, scripts_wait_reset_and_fall_silent) {
  RawClient waiting(server_->port());
  waiting.send(post("wait"));
  EXPECT_EQ(waiting.receive_once(10), "a");
  EXPECT_TRUE(waiting.stays_silent(50));
  EXPECT_EQ(waiting.receive_all(), "b");

  RawClient reset(server_->port());
  reset.send(post("reset"));
  reset.receive_all();
  EXPECT_TRUE(reset.was_reset());

  RawClient silent(server_->port());
  silent.send(post("silence"));
  EXPECT_EQ(silent.receive_once(10), "a");
  EXPECT_TRUE(silent.stays_silent(600));
}

TEST_F(Connections, a_client_that_leaves_while_it_is_answered_does_no_harm) {
  for (int i = 0; i < 10; ++i) {
    RawClient client(server_->port());
    client.send(post(i % 2 == 0 ? "large" : "wait"));
    client.receive_once(1);
  }
  RawClient client(server_->port());
  client.send(post("alive"));
  EXPECT_EQ(body_of(client.receive_response()), "<alive>");
}

TEST(Server, a_port_in_use_is_reported) {
  EventLoop loop;
  const auto handler = [](const Request&) { return Script(); };
  Server first(loop, handler, {});
  ASSERT_EQ(first.start(), std::nullopt);
  Server::Options options;
  options.port = first.port();
  Server second(loop, handler, options);
  EXPECT_EQ(second.start(), "cannot listen on 127.0.0.1:" + std::to_string(first.port()) +
                                ": Address already in use");
  options.address = "localhost";
  Server third(loop, handler, options);
  EXPECT_EQ(third.start(), "\"localhost\" is no IPv4 address");
}

}  // namespace
}  // namespace sandbox::http
