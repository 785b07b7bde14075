// What this program learns from the library's trace lines.
#include "exchange.h"

#include <gtest/gtest.h>

#include "cim-client/answers.h"
#include "cim_client.h"
#include "document.h"
#include "owners.h"
#include "support/scripted_server.h"

namespace cli {
namespace {

TEST(Exchange, the_text_of_the_answer_is_kept) {
  support::ScriptedServer server(support::answer(answers::nothing()));
  const HandleOwner handle(
      client_Configuration(server.host(), server.port(), "root/cimv2", 0, "", ""));
  last_exchange().clear();
  Error* error = nullptr;
  EXPECT_EQ(EnumerateClassNames(handle.get(), nullptr, 0, &error), nullptr);
  EXPECT_TRUE(last_exchange().answered);
  const std::string answer = answers::nothing();
  EXPECT_EQ(last_exchange().answer, answer.substr(answer.find("<?xml")));
}

TEST(Exchange, without_an_answer_nothing_is_kept) {
  const HandleOwner handle(
      client_Configuration("127.0.0.1", support::unused_port(), "root/cimv2", 0, "", ""));
  last_exchange().clear();
  Error* error = nullptr;
  EXPECT_EQ(EnumerateClassNames(handle.get(), nullptr, 0, &error), nullptr);
  EXPECT_FALSE(last_exchange().answered);
}

TEST(Exchange, a_method_call_is_seen_like_an_operation) {
  support::ScriptedServer server(support::answer(answers::http(
      answers::document("<SIMPLERSP><METHODRESPONSE NAME=\"M\"></METHODRESPONSE></SIMPLERSP>"))));
  const HandleOwner handle(
      client_Configuration(server.host(), server.port(), "root/cimv2", 0, "", ""));
  last_exchange().clear();
  Error* error = nullptr;
  EXPECT_EQ(invokeMethod(handle.get(), nullptr, "M", nullptr, nullptr, &error), -1);
  EXPECT_TRUE(last_exchange().answered);
}

TEST(Exchange, objects_are_counted_while_they_are_read) {
  last_exchange().clear();
  parse_document(answers::document(
      "<SIMPLERSP><IMETHODRESPONSE NAME=\"X\"><IRETURNVALUE><INSTANCE CLASSNAME=\"A\"/>"
      "<INSTANCE CLASSNAME=\"B\"/><INSTANCENAME CLASSNAME=\"C\"/></IRETURNVALUE>"
      "</IMETHODRESPONSE></SIMPLERSP>"));
  EXPECT_EQ(last_exchange().objects.load(), 2U);
}

}  // namespace
}  // namespace cli
