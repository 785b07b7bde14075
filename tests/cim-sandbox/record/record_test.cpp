// Records, and what is wrong with them.
#include "record/record.h"

#include <gtest/gtest.h>

namespace sandbox::record {
namespace {

std::string problem(std::string_view text) {
  const auto read = read_record(text);
  const auto* problem = std::get_if<std::string>(&read);
  return problem ? *problem : "fine";
}

TEST(Record, exchanges_are_read_by_their_lengths) {
  const auto read = read_record(
      "cim-sandbox record 1\n"
      "exchange 1 GetClass\n"
      "request 9\nline\nline\n"
      "answer 0\n\n"
      "exchange 2\n"
      "request 1\nx\n"
      "answer 2\n\n\n\n");
  ASSERT_TRUE(std::holds_alternative<std::vector<Exchange>>(read));
  const auto& exchanges = std::get<std::vector<Exchange>>(read);
  ASSERT_EQ(exchanges.size(), 2U);
  EXPECT_EQ(exchanges[0].operation, "GetClass");
  EXPECT_EQ(exchanges[0].request, "line\nline");
  EXPECT_EQ(exchanges[0].answer, "");
  EXPECT_EQ(exchanges[1].operation, "");
  EXPECT_EQ(exchanges[1].answer, "\n\n");
}

TEST(Record, mistakes_are_named) {
  EXPECT_EQ(problem(""), "expected \"cim-sandbox record 1\"");
  EXPECT_EQ(problem("cim-sandbox record 2\n"), "expected \"cim-sandbox record 1\"");
  EXPECT_EQ(problem("cim-sandbox record 1\n"), "fine");
  EXPECT_EQ(problem("cim-sandbox record 1\nsomething\n"), "expected \"exchange\"");
  EXPECT_EQ(problem("cim-sandbox record 1\nexchange 1"), "a line has no end");
  EXPECT_EQ(problem("cim-sandbox record 1\nexchange 1\nanswer 0\n\n"), "expected \"request\"");
  EXPECT_EQ(problem("cim-sandbox record 1\nexchange 1\nrequest x\n"), "expected a number of bytes");
  EXPECT_EQ(problem("cim-sandbox record 1\nexchange 1\nrequest 9\nshort\n"), "bytes are missing");
  EXPECT_EQ(problem("cim-sandbox record 1\nexchange 1\nrequest 1\nlong\n"), "bytes are missing");
  EXPECT_EQ(problem("cim-sandbox record 1\nexchange 1\nrequest 99999999999999999999\n"),
            "expected a number of bytes");
}

TEST(Record, credentials_are_made_unreadable) {
  EXPECT_EQ(without_credentials("POST / HTTP/1.1\r\nauthorization:Basic c2VjcmV0\r\nA: b\r\n\r\n"),
            "POST / HTTP/1.1\r\nAuthorization: Basic KjoqKg==\r\nA: b\r\n\r\n");
  EXPECT_EQ(without_credentials("no line end"), "no line end");
}

TEST(Record, a_file_that_cannot_be_written_is_noticed) {
  Recorder recorder;
  EXPECT_FALSE(recorder.open("/nowhere/record"));
  recorder.write({"", "", ""});
}

}  // namespace
}  // namespace sandbox::record
