// Faults: how they are written, whom they meet, and what they do.
#include "faults/fault.h"

#include <gtest/gtest.h>

#include "faults/misbehavior.h"
#include "http/response.h"

namespace sandbox::faults {
namespace {

// A script as text: "a"=bytes, 5=pause, !=close, R=reset, S=silence.
std::string shown(const http::Script& script) {
  std::string text;
  for (const http::Step& step : script) {
    if (const auto* send = std::get_if<http::Send>(&step)) text += '"' + send->bytes + "\" ";
    if (const auto* wait = std::get_if<http::Wait>(&step)) {
      text += std::to_string(wait->time.count()) + ' ';
    }
    if (std::holds_alternative<http::Close>(step)) text += "! ";
    if (std::holds_alternative<http::Reset>(step)) text += "R ";
    if (std::holds_alternative<http::Silence>(step)) text += "S ";
  }
  return text;
}

constexpr auto answer = "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nbody";

// What one fault for every request makes of `response`.
std::string misbehaved(const std::string& fault, const std::string& response = answer) {
  Plan plan;
  const auto problem = plan.add("test", fault);
  return problem ? *problem : shown(misbehave(response, plan.next("GetClass")));
}

// The numbers of the first ten requests that a fault meets.
std::string met(const std::string& condition, const std::string& operation = "GetClass") {
  Plan plan;
  EXPECT_EQ(plan.add("test", condition + " drop"), std::nullopt);
  std::string numbers;
  for (int i = 1; i <= 10; ++i) {
    if (!plan.next(operation).empty()) numbers += std::to_string(i) + ' ';
  }
  return numbers;
}

TEST(Faults, conditions_choose_requests) {
  EXPECT_EQ(met(""), "1 2 3 4 5 6 7 8 9 10 ");
  EXPECT_EQ(met("all"), "1 2 3 4 5 6 7 8 9 10 ");
  EXPECT_EQ(met("request 4"), "4 ");
  EXPECT_EQ(met("every 3"), "3 6 9 ");
  EXPECT_EQ(met("after 7"), "8 9 10 ");
  EXPECT_EQ(met("every 2 after 5"), "6 8 10 ");
  EXPECT_EQ(met("operation getclass every 5"), "5 10 ");
  EXPECT_EQ(met("operation GetInstance"), "");
  EXPECT_EQ(met("operation GetInstance", ""), "");
}

TEST(Faults, an_answer_is_delayed_split_and_trickled) {
  EXPECT_EQ(misbehaved("delay 50"), "50 \"" + std::string(answer) + "\" ");
  EXPECT_EQ(misbehaved("split 70"),
            "\"HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n\" 70 \"body\" ");
  EXPECT_EQ(misbehaved("split"), "\"HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n\" 200 \"body\" ");
  EXPECT_EQ(misbehaved("split-at 4 1", "abcdef"), "\"abcd\" 1 \"ef\" ");
  EXPECT_EQ(misbehaved("split-at 9", "abcdef"), "\"abcdef\" ");
  EXPECT_EQ(misbehaved("trickle 4 2", "abcdefghij"), "\"abcd\" 2 \"efgh\" 2 \"ij\" ");
  EXPECT_EQ(misbehaved("trickle 4", "abcde"), "\"abcd\" 10 \"e\" ");
}

TEST(Faults, an_answer_ends_early) {
  EXPECT_EQ(misbehaved("close-at 3", "abcdef"), "\"abc\" ! ");
  EXPECT_EQ(misbehaved("close-at 99", "abcdef"), "\"abcdef\" ! ");
  EXPECT_EQ(misbehaved("reset-at 3", "abcdef"), "\"abc\" R ");
  EXPECT_EQ(misbehaved("drop", "abcdef"), "! ");
  EXPECT_EQ(misbehaved("silent", "abcdef"), "S ");
}

TEST(Faults, the_stated_length_lies) {
  const auto length = [](const std::string& number) {
    return "\"HTTP/1.1 200 OK\r\nContent-Length: " + number + "\r\n\r\nbody\" ";
  };
  EXPECT_EQ(misbehaved("length +10"), length("14"));
  EXPECT_EQ(misbehaved("length -1"), length("3"));
  EXPECT_EQ(misbehaved("length -10"), length("-6"));
  EXPECT_EQ(misbehaved("length 0"), length("0"));
  EXPECT_EQ(misbehaved("length 18446744073709551615"), length("18446744073709551615"));
  EXPECT_EQ(misbehaved("no-length"), "\"HTTP/1.1 200 OK\r\n\r\nbody\" ");
}

TEST(Faults, another_answer_takes_its_place) {
  EXPECT_EQ(misbehaved("status 401"), '"' + http::unauthorized_response() + "\" ");
  EXPECT_EQ(misbehaved("status 500"), '"' + http::status_response(500) + "\" ");
  EXPECT_EQ(misbehaved("malformed", http::operation_response("<CIM><MESSAGE>x</MESSAGE></CIM>")),
            '"' + http::operation_response("<CIM><MESSAGE>x") + "\" ");
}

TEST(Faults, an_error_is_for_the_service_to_answer) {
  Plan plan;
  EXPECT_EQ(plan.add("test", "error 7\nrequest 1 error 3"), std::nullopt);
  EXPECT_EQ(replacing_error(plan.next("GetClass")), 3);
  EXPECT_EQ(replacing_error(plan.next("GetClass")), 7);
  EXPECT_EQ(replacing_error({}), std::nullopt);
}

TEST(Faults, several_of_them_work_together) {
  EXPECT_EQ(misbehaved("delay 5 split-at 2 7 trickle 1 3 close-at 4", "abcdef"),
            "5 \"a\" 3 \"b\" 7 \"c\" 3 \"d\" ! ");
  EXPECT_EQ(misbehaved("delay 5\nall delay 6 # comment\n\n# nothing\n", "a"), "11 \"a\" ");
}

TEST(Faults, mistakes_are_reported_with_their_line) {
  EXPECT_EQ(misbehaved("drop\n\nevery x drop"),
            "test:3: expected a number from 1 to 18446744073709551615, not \"x\"");
  EXPECT_EQ(misbehaved("every 0 drop"),
            "test:1: expected a number from 1 to 18446744073709551615, not \"0\"");
  EXPECT_EQ(misbehaved("explode"), "test:1: expected a condition or an action, not \"explode\"");
  EXPECT_EQ(misbehaved("drop explode"), "test:1: expected an action, not \"explode\"");
  EXPECT_EQ(misbehaved("every 2"), "test:1: expected an action, not the end of the line");
  EXPECT_EQ(misbehaved("delay"),
            "test:1: expected milliseconds from 0 to 600000, not the end of the line");
  EXPECT_EQ(misbehaved("delay 600001"),
            "test:1: expected milliseconds from 0 to 600000, not \"600001\"");
  EXPECT_EQ(misbehaved("trickle 0"),
            "test:1: expected a number of bytes from 1 to 4294967295, not \"0\"");
  EXPECT_EQ(misbehaved("status 99"), "test:1: expected a status from 100 to 599, not \"99\"");
  EXPECT_EQ(misbehaved("error 0"), "test:1: expected a CIM code from 1 to 255, not \"0\"");
  EXPECT_EQ(misbehaved("length"),
            "test:1: expected a number from 0 to 18446744073709551615, not the end of the line");
  EXPECT_EQ(misbehaved("operation 5 drop"), "test:1: expected the name of an operation, not \"5\"");
}

}  // namespace
}  // namespace sandbox::faults
