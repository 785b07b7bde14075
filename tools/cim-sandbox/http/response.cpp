// Heads of responses.
#include "http/response.h"

#include <array>
#include <utility>

namespace sandbox::http {

std::string operation_response(std::string body) {
  const std::string head =
      "HTTP/1.1 200 OK\r\n"
      "Content-Type: application/xml; charset=\"utf-8\"\r\n"
      "Content-Length: " +
      std::to_string(body.size()) +
      "\r\n"
      "Cache-Control: no-cache\r\n"
      "CIMOperation: MethodResponse\r\n"
      "\r\n";
  body.insert(0, head);  // in place, where a large body's capacity allows it
  return body;
}

std::string unauthorized_response() {
  return "HTTP/1.1  401 Unauthorized\r\n"
         "WWW-Authenticate: Basic realm=\"cim-sandbox\"\r\n"
         "Content-Length: 0\r\n"
         "\r\n";
}

std::string status_response(int status, std::string_view extra_headers) {
  std::string response = "HTTP/1.1 " + std::to_string(status) + ' ';
  response += reason_phrase(status);
  response += "\r\n";
  response += extra_headers;
  response += "Content-Length: 0\r\n\r\n";
  return response;
}

std::string_view reason_phrase(int status) {
  static constexpr std::array<std::pair<int, std::string_view>, 12> phrases = {{
      {200, "OK"},
      {400, "Bad Request"},
      {404, "Not Found"},
      {405, "Method Not Allowed"},
      {408, "Request Timeout"},
      {411, "Length Required"},
      {413, "Content Too Large"},
      {417, "Expectation Failed"},
      {431, "Request Header Fields Too Large"},
      {500, "Internal Server Error"},
      {501, "Not Implemented"},
      {505, "HTTP Version Not Supported"},
  }};
  for (const auto& [code, phrase] : phrases) {
    if (code == status) return phrase;
  }
  return "Unknown";
}

}  // namespace sandbox::http
