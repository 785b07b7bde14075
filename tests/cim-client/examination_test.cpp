// What the doctor makes of an exchange.
#include "examination.h"

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

void expect_failed(const Step& step, const std::string& text) {
  EXPECT_EQ(step.result, Step::Result::Failed);
  EXPECT_EQ(step.status, ExitStatus::NoAnswer);
  EXPECT_EQ(step.text, text);
  EXPECT_FALSE(step.advice.empty());
}

TEST(Examination, a_connection_is_taken_or_not) {
  EXPECT_EQ(judge_connection(HttpExchange(), "device:5988").result, Step::Result::Ok);
  HttpExchange refused;
  refused.connect_error = ECONNREFUSED;
  expect_failed(judge_connection(refused, "device:5988"), "device:5988: Connection refused");
}

TEST(Examination, a_good_answer_is_good) {
  EXPECT_EQ(judge_answer(answered(answers::nothing())).result, Step::Result::Ok);
  EXPECT_EQ(judge_answer(answered(answers::error(6, "x"))).result, Step::Result::Ok);
}

TEST(Examination, silence_and_closing_are_told_apart) {
  HttpExchange exchange;
  exchange.timed_out = true;
  expect_failed(judge_answer(exchange), "the request was taken, and nothing came back in time");
  exchange.timed_out = false;
  expect_failed(judge_answer(exchange), "the connection was closed without an answer");
}

TEST(Examination, other_protocols_are_recognised) {
  expect_failed(judge_answer(answered("\x15\x03\x01\x02")), "the other end speaks TLS");
  expect_failed(judge_answer(answered("SSH-2.0-OpenSSH_9.2\r\n")),
                "what came is no HTTP: SSH-2.0-OpenSSH_9.2");
}

TEST(Examination, http_errors_are_shown) {
  expect_failed(judge_answer(answered(answers::http("", "500 Internal Server Error"))),
                "the object manager answered \"HTTP/1.1 500 Internal Server Error\"");
  expect_failed(judge_answer(answered(answers::http("", "404 Not Found"))),
                "the object manager answered \"HTTP/1.1 404 Not Found\"");
}

TEST(Examination, head_and_body_apart_are_named_with_the_bytes_of_the_first_read) {
  const std::string answer = answers::nothing();
  HttpExchange exchange = answered(answer);
  exchange.first = answer.find("<?xml");
  expect_failed(judge_answer(exchange), "head and body arrive apart: the first read held " +
                                            std::to_string(exchange.first) + " of " +
                                            std::to_string(answer.size()) + " bytes");
}

TEST(Examination, a_torn_short_body_is_named_because_the_library_reads_it_at_once) {
  const std::string answer = answers::nothing();
  HttpExchange exchange = answered(answer);
  exchange.first = answer.size() - 10;
  expect_failed(judge_answer(exchange), "the body arrives in pieces: the first read held " +
                                            std::to_string(exchange.first) + " of " +
                                            std::to_string(answer.size()) + " bytes");
}

TEST(Examination, a_longer_body_may_come_in_pieces) {
  const std::string answer =
      answers::operation("<IRETURNVALUE>" + std::string(600, ' ') + "</IRETURNVALUE>");
  HttpExchange exchange = answered(answer);
  exchange.first = answer.size() - 300;
  EXPECT_EQ(judge_answer(exchange).result, Step::Result::Ok);
}

TEST(Examination, answers_that_the_library_cannot_frame_are_named) {
  expect_failed(
      judge_answer(answered("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\n<?xml")),
      "the answer comes in chunks");
  expect_failed(judge_answer(answered("HTTP/1.1 200 OK\r\n\r\n<?xml")),
                "the answer has no Content-Length");
  expect_failed(judge_answer(answered(answers::http("<html/>"))),
                "the answer holds no XML document");
}

TEST(Examination, other_documents_are_no_answer) {
  for (const char* body : {"<?xml version=\"1.0\"?><html></html>", "<?xml version=\"1.0\"?><CIM"})
    expect_failed(judge_answer(answered(answers::http(body))),
                  "the document is cut short or is no CIM-XML response");
}

TEST(Examination, a_refusal_answers_in_http_but_lets_nobody_in) {
  const HttpExchange exchange = answered(answers::unauthorised());
  EXPECT_EQ(judge_answer(exchange).result, Step::Result::Ok);
  const Step nobody = judge_authentication(exchange, "");
  EXPECT_EQ(nobody.status, ExitStatus::Unauthorised);
  EXPECT_EQ(nobody.text, "the object manager asks for a user");
  EXPECT_EQ(judge_authentication(exchange, "admin").text, "user admin is refused");
}

TEST(Examination, who_is_let_in_is_said) {
  EXPECT_EQ(judge_authentication(answered(answers::nothing()), "").text, "no user is asked for");
  EXPECT_EQ(judge_authentication(answered(answers::nothing()), "admin").text,
            "user admin is let in");
}

}  // namespace
}  // namespace cli
