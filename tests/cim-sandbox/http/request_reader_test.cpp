// Requests out of bytes: what devices' clients send, what others send, and what is wrong.
#include "http/request_reader.h"

#include <gtest/gtest.h>

namespace sandbox::http {
namespace {

using State = RequestReader::State;

// What a reader makes of all bytes at once.
RequestReader fed(std::string_view bytes, Limits limits = {}) {
  RequestReader reader(limits);
  reader.feed(bytes);
  return reader;
}

std::string problem(std::string_view bytes) {
  const RequestReader reader = fed(bytes);
  if (reader.state() != State::Bad) return "fine";
  return std::to_string(reader.problem().status) + ' ' + reader.problem().reason;
}

// A device's client: two blanks before the path, one at the line's end, and LF CR between head
// and body, of which the CR counts as part of the body.
constexpr std::string_view device_request =
    "POST  /cimom HTTP/1.1 \r\n"
    "Content-Type: application/xml; charset=\"utf-8\"\r\n"
    "Content-Length: 7\r\n"
    "Authorization: Basic dTpw\r\n"
    "\n\r"
    "<CIM/>";

TEST(RequestReader, the_carriage_return_after_an_lf_cr_separator_belongs_to_the_body) {
  RequestReader reader = fed(device_request);
  ASSERT_EQ(reader.state(), State::Complete);
  const Request request = reader.take();
  EXPECT_EQ(request.method, "POST");
  EXPECT_EQ(request.target, "/cimom");
  EXPECT_EQ(request.body, "\r<CIM/>");
  EXPECT_EQ(*request.header("authorization"), "Basic dTpw");
  EXPECT_TRUE(request.keep_alive);
  EXPECT_TRUE(reader.empty());
}

TEST(RequestReader, a_request_may_arrive_byte_by_byte) {
  RequestReader reader;
  for (std::size_t i = 0; i < device_request.size(); ++i) {
    EXPECT_NE(reader.state(), State::Complete) << i;
    reader.feed(device_request.substr(i, 1));
  }
  ASSERT_EQ(reader.state(), State::Complete);
  EXPECT_EQ(reader.take().body, "\r<CIM/>");
}

TEST(RequestReader, a_length_of_one_more_waits_for_another_byte) {
  std::string bytes(device_request);
  bytes.replace(bytes.find("Length: 7"), 9, "Length: 8");
  RequestReader reader = fed(bytes);
  EXPECT_EQ(reader.state(), State::Body);
  reader.feed("\n");
  EXPECT_EQ(reader.state(), State::Complete);
}

TEST(RequestReader, a_body_that_ends_like_a_document_looks_finished) {
  RequestReader reader = fed("POST /cimom HTTP/1.1\r\nContent-Length: 99\r\n\r\n<CIM></CIM");
  EXPECT_FALSE(reader.body_looks_finished());
  reader.feed(">");
  EXPECT_TRUE(reader.body_looks_finished());
  reader.feed("\r\n");
  EXPECT_TRUE(reader.body_looks_finished());
  reader.feed("<");
  EXPECT_FALSE(reader.body_looks_finished());
}

TEST(RequestReader, ordinary_requests_are_read_one_after_the_other) {
  RequestReader reader =
      fed("POST /cimom HTTP/1.1\r\nHost: localhost\r\ncontent-length:3\r\n\r\none"
          "M-POST /cimom HTTP/1.1\r\nContent-Length: 3\r\nConnection: close\r\n\r\ntwo");
  ASSERT_EQ(reader.state(), State::Complete);
  const Request first = reader.take();
  EXPECT_EQ(first.body, "one");
  EXPECT_EQ(first.raw_head, "POST /cimom HTTP/1.1\r\nHost: localhost\r\ncontent-length:3\r\n\r\n");
  EXPECT_TRUE(first.keep_alive);
  ASSERT_EQ(reader.state(), State::Complete);
  const Request second = reader.take();
  EXPECT_EQ(second.method, "M-POST");
  EXPECT_EQ(second.body, "two");
  EXPECT_FALSE(second.keep_alive);
  EXPECT_EQ(reader.state(), State::Head);
}

TEST(RequestReader, lines_may_end_in_line_feeds_alone) {
  RequestReader reader = fed("POST /cimom HTTP/1.0\nContent-Length: 1\n\nx");
  ASSERT_EQ(reader.state(), State::Complete);
  EXPECT_FALSE(reader.take().keep_alive);
}

TEST(RequestReader, an_old_client_may_ask_to_keep_the_connection) {
  RequestReader reader =
      fed("POST / HTTP/1.0\r\nConnection: Keep-Alive\r\nContent-Length: 0\r\n\r\n");
  ASSERT_EQ(reader.state(), State::Complete);
  EXPECT_TRUE(reader.take().keep_alive);
}

TEST(RequestReader, empty_lines_before_a_request_do_not_matter) {
  RequestReader reader = fed("\r\n\n\r\nGET / HTTP/1.1\r\n\r\n");
  ASSERT_EQ(reader.state(), State::Complete);
  EXPECT_EQ(reader.take().method, "GET");
}

TEST(RequestReader, the_expectation_of_a_continuation_is_told_once) {
  RequestReader reader =
      fed("POST / HTTP/1.1\r\nExpect: 100-continue\r\nContent-Length: 1\r\n\r\n");
  EXPECT_TRUE(reader.take_expectation());
  EXPECT_FALSE(reader.take_expectation());
  reader.feed("x");
  EXPECT_EQ(reader.state(), State::Complete);
}

TEST(RequestReader, malformed_heads_are_answered_400) {
  EXPECT_EQ(problem("nonsense\r\n\r\n"), "400 the request line is not METHOD TARGET VERSION");
  EXPECT_EQ(problem("POST /cimom\r\n\r\n"), "400 the request line is not METHOD TARGET VERSION");
  EXPECT_EQ(problem("POST /cimom HTTP/1.1 more\r\n\r\n"),
            "400 the request line is not METHOD TARGET VERSION");
  EXPECT_EQ(problem("P\x01ST / HTTP/1.1\r\n\r\n"), "400 the request line holds control characters");
  EXPECT_EQ(problem("P{ST / HTTP/1.1\r\n\r\n"),
            "400 the request line is not METHOD TARGET VERSION");
  EXPECT_EQ(problem("POST / HTTP/1.1\r\nno colon\r\n\r\n"), "400 a header line has no colon");
  EXPECT_EQ(problem("POST / HTTP/1.1\r\nna me: x\r\n\r\n"), "400 a header's name is not valid");
  EXPECT_EQ(problem("POST / HTTP/1.1\r\n: x\r\n\r\n"), "400 a header's name is not valid");
  EXPECT_EQ(problem("POST / HTTP/1.1\r\nA: \x01\r\n\r\n"), "400 a header's value is not valid");
}

TEST(RequestReader, lengths_must_be_there_and_make_sense) {
  const auto with = [](const std::string& header) {
    return problem("POST / HTTP/1.1\r\n" + header + "\r\n\r\n");
  };
  EXPECT_EQ(problem("POST / HTTP/1.1\r\n\r\n"), "411 there is no Content-Length");
  EXPECT_EQ(with("Content-Length: -1"), "400 the Content-Length is no number");
  EXPECT_EQ(with("Content-Length: 1x"), "400 the Content-Length is no number");
  EXPECT_EQ(with("Content-Length:"), "400 the Content-Length is no number");
  EXPECT_EQ(with("Content-Length: +1"), "400 the Content-Length is no number");
  EXPECT_EQ(with("Content-Length: 99999999999999999999999"), "413 the body is too large");
  EXPECT_EQ(with("Content-Length: 67108865"), "413 the body is too large");
  EXPECT_EQ(with("Content-Length: 1\r\nContent-Length: 2"),
            "400 there are two different Content-Lengths");
  EXPECT_EQ(with("Transfer-Encoding: chunked"), "501 transfer encodings are not supported");
  EXPECT_EQ(with("Content-Length: 0\r\nExpect: gold"), "417 unknown expectation");
}

TEST(RequestReader, other_versions_are_refused) {
  EXPECT_EQ(problem("POST / HTTP/2.0\r\n\r\n"), "505 the version is not HTTP/1.x");
  EXPECT_EQ(problem("POST / SPDY/1.1\r\n\r\n"),
            "400 the request line is not METHOD TARGET VERSION");
}

TEST(RequestReader, a_head_without_end_is_cut_off) {
  EXPECT_EQ(problem(std::string(40000, 'a')), "431 the header block is too large");
  std::string lines = "POST / HTTP/1.1\r\n";
  while (lines.size() < 40000) lines += "A: b\r\n";
  EXPECT_EQ(problem(lines), "431 the header block is too large");
}

TEST(RequestReader, nothing_is_read_after_a_problem) {
  RequestReader reader = fed("nonsense\r\n\r\n");
  reader.feed("POST / HTTP/1.1\r\nContent-Length: 0\r\n\r\n");
  EXPECT_EQ(reader.state(), State::Bad);
}

}  // namespace
}  // namespace sandbox::http
