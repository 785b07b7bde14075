// The HTTP server for indications.
#include "indication_receiver.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "cim-client/answers.h"
#include "descriptor.h"
#include "exit_status.h"

namespace cli {
namespace {

const std::string indication = answers::document(
    "<SIMPLEEXPREQ><EXPMETHODCALL NAME=\"ExportIndication\"><EXPPARAMVALUE "
    "NAME=\"NewIndication\"><INSTANCE CLASSNAME=\"CIM_Alert\"></INSTANCE></EXPPARAMVALUE>"
    "</EXPMETHODCALL></SIMPLEEXPREQ>");

Descriptor connected(std::uint16_t port) {
  Descriptor connection(socket(AF_INET, SOCK_STREAM, 0));
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  EXPECT_EQ(
      connect(connection.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  return connection;
}

void send_all(const Descriptor& connection, std::string_view request) {
  while (!request.empty()) {
    const ssize_t count = send(connection.number(), request.data(), request.size(), MSG_NOSIGNAL);
    if (count <= 0) return;
    request.remove_prefix(static_cast<std::size_t>(count));
  }
}

// What comes back until the server closes.
std::string received(const Descriptor& connection) {
  std::string answer;
  char buffer[4096];
  ssize_t count = 0;
  while ((count = recv(connection.number(), buffer, sizeof buffer, 0)) > 0)
    answer.append(buffer, static_cast<std::size_t>(count));
  return answer;
}

std::string talk(std::uint16_t port, const std::string& request) {
  const Descriptor connection = connected(port);
  send_all(connection, request);
  return received(connection);
}

std::string head(const std::string& body, const std::string& method = "POST") {
  return method +
         " / HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\n"
         "Content-Type: application/xml; charset=\"utf-8\"\r\n"
         "CIMExport: MethodRequest\r\nCIMExportMethod: ExportIndication\r\n"
         "Content-Length: " +
         std::to_string(body.size()) + "\r\n\r\n";
}

std::string post(std::uint16_t port, const std::string& body, const std::string& method = "POST") {
  return talk(port, head(body, method) + body);
}

bool holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(IndicationReceiver, an_indication_is_accepted_and_queued) {
  IndicationQueue queue(4);
  const IndicationReceiver receiver("127.0.0.1", 0, queue);
  const std::string answer = post(receiver.port(), indication);
  EXPECT_TRUE(answer.starts_with("HTTP/1.1 200 OK\r\n")) << answer;
  EXPECT_TRUE(holds(answer, "CIMExport: MethodResponse\r\n"));
  EXPECT_TRUE(holds(answer, "<MESSAGE ID=\"1234\""));
  EXPECT_TRUE(holds(answer, "<IRETURNVALUE>"));
  ASSERT_TRUE(queue.pop());
  EXPECT_EQ(receiver.malformed(), 0U);
}

TEST(IndicationReceiver, malformed_requests_are_refused_and_do_not_stop_it) {
  IndicationQueue queue(4);
  const IndicationReceiver receiver("127.0.0.1", 0, queue);
  const std::string no_xml = post(receiver.port(), "rubbish");
  EXPECT_TRUE(no_xml.starts_with("HTTP/1.1 400 Bad Request\r\n")) << no_xml;
  EXPECT_TRUE(holds(no_xml, "CIMError: request-not-well-formed\r\n"));
  const std::string no_indication = post(receiver.port(), answers::document("<SIMPLERSP/>"));
  EXPECT_TRUE(holds(no_indication, "<ERROR CODE=\"4\"")) << no_indication;
  EXPECT_TRUE(holds(post(receiver.port(), ""), " 400 "));
  EXPECT_FALSE(queue.pop());
  EXPECT_EQ(receiver.malformed(), 3U);
  EXPECT_TRUE(holds(post(receiver.port(), indication), "<IRETURNVALUE>")) << "it goes on";
}

TEST(IndicationReceiver, what_is_no_http_does_not_stop_it) {
  IndicationQueue queue(4);
  const IndicationReceiver receiver("127.0.0.1", 0, queue);
  talk(receiver.port(), "SSH-2.0-OpenSSH\r\n\r\n");
  EXPECT_TRUE(holds(post(receiver.port(), indication), "<IRETURNVALUE>"));
}

TEST(IndicationReceiver, other_methods_are_not_allowed) {
  IndicationQueue queue(4);
  const IndicationReceiver receiver("127.0.0.1", 0, queue);
  EXPECT_TRUE(holds(post(receiver.port(), "", "GET"), " 405 "));
  EXPECT_TRUE(holds(post(receiver.port(), indication, "M-POST"), "<IRETURNVALUE>"));
}

TEST(IndicationReceiver, a_request_beyond_the_limit_is_refused) {
  IndicationQueue queue(4);
  const IndicationReceiver receiver("127.0.0.1", 0, queue);
  const std::string answer =
      post(receiver.port(), std::string(IndicationReceiver::request_limit + 1, 'x'));
  EXPECT_TRUE(holds(answer, " 413 ")) << answer;
}

TEST(IndicationReceiver, a_full_queue_turns_indications_away) {
  IndicationQueue queue(1);
  const IndicationReceiver receiver("127.0.0.1", 0, queue);
  EXPECT_TRUE(holds(post(receiver.port(), indication), "<IRETURNVALUE>"));
  EXPECT_TRUE(holds(post(receiver.port(), indication), "<ERROR CODE=\"1\""));
  EXPECT_EQ(receiver.turned_away(), 1U);
}

TEST(IndicationReceiver, what_is_at_work_is_answered_before_it_finishes) {
  IndicationQueue queue(4);
  IndicationReceiver receiver("127.0.0.1", 0, queue);
  const Descriptor connection = connected(receiver.port());
  const std::string request = head(indication) + indication;
  send_all(connection, request.substr(0, request.size() - 10));
  while (receiver.at_work() == 0) std::this_thread::yield();
  std::atomic<bool> finished = false;
  std::thread finisher([&] {
    receiver.finish();
    finished = true;
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  EXPECT_FALSE(finished) << "a request is at work";
  send_all(connection, request.substr(request.size() - 10));
  EXPECT_TRUE(holds(received(connection), "<IRETURNVALUE>"));
  finisher.join();
  EXPECT_EQ(receiver.at_work(), 0U);
  EXPECT_TRUE(queue.pop());
}

TEST(IndicationReceiver, a_port_in_use_is_a_failure) {
  IndicationQueue queue(1);
  const IndicationReceiver first("127.0.0.1", 0, queue);
  try {
    const IndicationReceiver second("127.0.0.1", first.port(), queue);
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.status(), ExitStatus::Usage);
    EXPECT_EQ(
        std::string(failure.what()),
        "cannot listen on 127.0.0.1:" + std::to_string(first.port()) + ": Address already in use");
  }
}

TEST(IndicationReceiver, an_address_must_be_dotted) {
  IndicationQueue queue(1);
  EXPECT_THROW(IndicationReceiver("localhost", 0, queue), Failure);
}

}  // namespace
}  // namespace cli
