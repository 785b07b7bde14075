// What an HTTP request is answered: by the service, by HTTP alone, or with a fault.
#include "program/exchange.h"

#include <cstdio>
#include <fstream>
#include <sstream>

#include "http/response.h"
#include "support/serviced_objects.h"

namespace sandbox {
namespace {

class Exchanges : public test::ServicedObjects {
 protected:
  Exchanges() : ServicedObjects("class C { [Key] string K; };\ninstance of C { K = \"k\"; };") {}

  static http::Request request(std::string body) {
    http::Request request;
    request.method = "POST";
    request.target = "/cimom";
    request.body = std::move(body);
    request.raw_head = "POST /cimom HTTP/1.1\r\nAuthorization: Basic dTpw\r\n\r\n";
    return request;
  }

  static http::Request authorized(const char* authorization) {
    http::Request with = request(names());
    with.headers.emplace_back("Authorization", authorization);
    return with;
  }

  static std::string names() { return test::intrinsic_request("EnumerateClassNames", ""); }

  static Exchange::Settings settings(const char* faults, bool with_credentials = false) {
    Exchange::Settings settings;
    EXPECT_EQ(settings.faults.add("test", faults), std::nullopt);
    if (with_credentials) settings.credentials = http::Credentials{"u", "p"};
    return settings;
  }

  // The only bytes of a script that sends once.
  static std::string sent(const http::Script& script) {
    if (script.size() != 1) return "not one step";
    const auto* send = std::get_if<http::Send>(&script.front());
    return send ? send->bytes : "no bytes";
  }
};

TEST_F(Exchanges, a_request_is_answered_by_the_service) {
  Exchange exchange(service_, {}, nullptr);
  EXPECT_EQ(
      sent(exchange.answer(request(names()))),
      http::operation_response(test::intrinsic_response("EnumerateClassNames",
                                                        "<IRETURNVALUE>\n<CLASSNAME NAME=\"C\"/>\n"
                                                        "</IRETURNVALUE>\n")));
}

TEST_F(Exchanges, another_method_or_path_is_answered_by_http) {
  Exchange exchange(service_, {}, nullptr);
  http::Request get = request("");
  get.method = "GET";
  EXPECT_EQ(sent(exchange.answer(get)),
            "HTTP/1.1 405 Method Not Allowed\r\nAllow: POST, M-POST\r\nContent-Length: 0\r\n\r\n");
  http::Request elsewhere = request(names());
  elsewhere.target = "/other";
  EXPECT_EQ(sent(exchange.answer(elsewhere)),
            "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
}

TEST_F(Exchanges, m_post_is_answered_like_post) {
  Exchange exchange(service_, {}, nullptr);
  http::Request extended = request(names());
  extended.method = "M-POST";
  EXPECT_TRUE(sent(exchange.answer(extended)).starts_with("HTTP/1.1 200 OK\r\n"));
}

TEST_F(Exchanges, what_is_no_request_is_answered_400_with_a_cim_error) {
  Exchange exchange(service_, {}, nullptr);
  EXPECT_EQ(sent(exchange.answer(request("<CIM"))),
            "HTTP/1.1 400 Bad Request\r\nCIMError: request-not-well-formed\r\n"
            "Content-Length: 0\r\n\r\n");
}

TEST_F(Exchanges, wrong_credentials_are_answered_401_when_there_are_right_ones) {
  Exchange open(service_, settings(""), nullptr);
  EXPECT_TRUE(sent(open.answer(authorized("Basic d3Jvbmc6"))).starts_with("HTTP/1.1 200"));
  Exchange closed(service_, settings("", true), nullptr);
  EXPECT_TRUE(sent(closed.answer(authorized("Basic dTpw"))).starts_with("HTTP/1.1 200"));
  EXPECT_EQ(sent(closed.answer(authorized("Basic dTpx"))), http::unauthorized_response());
  EXPECT_EQ(sent(closed.answer(request(names()))), http::unauthorized_response());
}

TEST_F(Exchanges, faults_meet_the_requests_they_name) {
  Exchange exchange(service_, settings("request 2 drop\noperation GetClass status 500"), nullptr);
  EXPECT_TRUE(sent(exchange.answer(request(names()))).starts_with("HTTP/1.1 200"));
  const http::Script dropped = exchange.answer(request(names()));
  ASSERT_EQ(dropped.size(), 1U);
  EXPECT_TRUE(std::holds_alternative<http::Close>(dropped[0]));
  EXPECT_TRUE(sent(exchange.answer(request(names()))).starts_with("HTTP/1.1 200"));
  EXPECT_EQ(sent(exchange.answer(request(test::intrinsic_request("GetClass", "")))),
            "HTTP/1.1 500 Internal Server Error\r\nContent-Length: 0\r\n\r\n");
}

TEST_F(Exchanges, an_error_takes_the_place_of_the_operation) {
  Exchange exchange(service_, settings("operation DeleteInstance error 2"), nullptr);
  const std::string request_text = test::intrinsic_request(
      "DeleteInstance",
      test::parameter("InstanceName",
                      "<INSTANCENAME CLASSNAME=\"C\"><KEYVALUE>k</KEYVALUE></INSTANCENAME>"));
  EXPECT_EQ(sent(exchange.answer(request(request_text))),
            http::operation_response(error("DeleteInstance", "2", "the sandbox was told to fail")));
  EXPECT_EQ(value("C.K=\"k\"", "K"), "k");
}

TEST_F(Exchanges, a_status_takes_the_place_of_the_operation) {
  Exchange exchange(service_, settings("all status 401"), nullptr);
  const std::string request_text = test::intrinsic_request(
      "DeleteInstance",
      test::parameter("InstanceName",
                      "<INSTANCENAME CLASSNAME=\"C\"><KEYVALUE>k</KEYVALUE></INSTANCENAME>"));
  EXPECT_EQ(sent(exchange.answer(request(request_text))), http::unauthorized_response());
  EXPECT_EQ(value("C.K=\"k\"", "K"), "k");
}

TEST_F(Exchanges, every_exchange_is_recorded_without_credentials) {
  const std::string path = testing::TempDir() + "sandbox_record";
  record::Recorder recorder;
  ASSERT_TRUE(recorder.open(path));
  Exchange exchange(service_, settings("request 2 close-at 8"), &recorder);
  const std::string first = sent(exchange.answer(request(names())));
  exchange.answer(request("nonsense"));
  std::ostringstream content;
  content << std::ifstream(path).rdbuf();
  const std::string text = content.str();
  std::remove(path.c_str());
  const auto read = record::read_record(text);
  ASSERT_TRUE(std::holds_alternative<std::vector<record::Exchange>>(read));
  const auto& exchanges = std::get<std::vector<record::Exchange>>(read);
  ASSERT_EQ(exchanges.size(), 2U);
  EXPECT_EQ(exchanges[0].operation, "EnumerateClassNames");
  EXPECT_EQ(exchanges[0].request,
            "POST /cimom HTTP/1.1\r\nAuthorization: Basic KjoqKg==\r\n\r\n" + names());
  EXPECT_EQ(exchanges[0].answer, first);
  EXPECT_EQ(exchanges[1].operation, "");
  EXPECT_EQ(exchanges[1].answer, "HTTP/1.1");
  EXPECT_EQ(text.find("dTpw"), std::string::npos);
}

}  // namespace
}  // namespace sandbox
