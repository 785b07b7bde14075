// Whole heads of responses.
#include "http/response.h"

#include <gtest/gtest.h>

namespace sandbox::http {
namespace {

TEST(Response, an_operation_is_answered_with_these_headers_in_this_order) {
  EXPECT_EQ(operation_response("<?xml?>"),
            "HTTP/1.1 200 OK\r\n"
            "Content-Type: application/xml; charset=\"utf-8\"\r\n"
            "Content-Length: 7\r\n"
            "Cache-Control: no-cache\r\n"
            "CIMOperation: MethodResponse\r\n"
            "\r\n"
            "<?xml?>");
}

TEST(Response, wrong_credentials_are_answered_with_two_blanks_in_the_first_line) {
  EXPECT_EQ(unauthorized_response(),
            "HTTP/1.1  401 Unauthorized\r\n"
            "WWW-Authenticate: Basic realm=\"cim-sandbox\"\r\n"
            "Content-Length: 0\r\n"
            "\r\n");
}

TEST(Response, other_statuses_have_their_phrase_and_no_body) {
  EXPECT_EQ(status_response(400, "CIMError: request-not-valid\r\n"),
            "HTTP/1.1 400 Bad Request\r\n"
            "CIMError: request-not-valid\r\n"
            "Content-Length: 0\r\n"
            "\r\n");
  EXPECT_EQ(status_response(501), "HTTP/1.1 501 Not Implemented\r\nContent-Length: 0\r\n\r\n");
  EXPECT_EQ(status_response(599), "HTTP/1.1 599 Unknown\r\nContent-Length: 0\r\n\r\n");
}

}  // namespace
}  // namespace sandbox::http
