// The words for what an exchange shows.
#include "diagnosis.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "cim-client/answers.h"

namespace cli {
namespace {

HttpExchange answered(const std::string& answer) {
  HttpExchange exchange;
  exchange.answer = answer;
  exchange.first = std::min<std::size_t>(answer.size(), 2047);
  return exchange;
}

std::string said(const HttpExchange& exchange) { return diagnosed(exchange, "device:5988").what(); }

ExitStatus status(const HttpExchange& exchange) {
  return diagnosed(exchange, "device:5988").status();
}

constexpr const char* hint = "; 'cim-client doctor' looks closer";

TEST(Diagnosis, a_failed_connection_is_named) {
  HttpExchange exchange;
  exchange.connect_error = ECONNREFUSED;
  EXPECT_EQ(said(exchange), "the connection to device:5988 failed: Connection refused");
  EXPECT_EQ(status(exchange), ExitStatus::NoAnswer);
}

TEST(Diagnosis, a_refusal_is_a_status_of_its_own) {
  EXPECT_EQ(said(answered(answers::unauthorised())),
            "device:5988 refused the user name or the password");
  EXPECT_EQ(status(answered(answers::unauthorised())), ExitStatus::Unauthorised);
}

TEST(Diagnosis, silence_and_a_closed_connection_differ) {
  HttpExchange exchange;
  exchange.timed_out = true;
  EXPECT_EQ(said(exchange), std::string("device:5988 took the request and stayed silent") + hint);
  exchange.timed_out = false;
  exchange.closed = true;
  EXPECT_EQ(said(exchange),
            std::string("device:5988 closed the connection without an answer") + hint);
}

TEST(Diagnosis, other_protocols_and_statuses_are_shown) {
  EXPECT_EQ(said(answered("SSH-2.0-OpenSSH\r\n")),
            std::string("device:5988 answered, but not in HTTP") + hint);
  EXPECT_EQ(said(answered(answers::http("", "500 Internal Server Error"))),
            std::string("device:5988 answered \"HTTP/1.1 500 Internal Server Error\"") + hint);
}

TEST(Diagnosis, each_shape_that_cannot_be_read_is_named) {
  EXPECT_EQ(said(answered("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n")),
            std::string("device:5988 answers in chunks, which cannot be read") + hint);
  EXPECT_EQ(said(answered("HTTP/1.1 200 OK\r\n\r\n<?xml?>")),
            std::string("device:5988 answered without a Content-Length") + hint);
  EXPECT_EQ(said(answered(answers::http("<html/>"))),
            std::string("device:5988 answered, but not with XML") + hint);
  HttpExchange apart = answered(answers::nothing());
  apart.first = 100;
  EXPECT_EQ(said(apart),
            std::string("device:5988 sends head and body of its answer apart, which cannot be "
                        "read") +
                hint);
}

TEST(Diagnosis, a_good_second_answer_leaves_the_first_unexplained) {
  EXPECT_EQ(said(answered(answers::nothing())),
            std::string("the answer of device:5988 was lost, cut short or is no CIM-XML response") +
                hint);
  EXPECT_EQ(status(answered(answers::nothing())), ExitStatus::NoAnswer);
}

}  // namespace
}  // namespace cli
