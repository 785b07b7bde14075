// Answers of an object manager, as scripted servers send them.
#pragma once

#include <string>

namespace answers {

// A whole HTTP answer with this status line ending and body.
inline std::string http(const std::string& body, const std::string& status = "200 OK") {
  return "HTTP/1.1 " + status +
         "\r\nContent-Type: application/xml; charset=\"utf-8\"\r\nContent-Length: " +
         std::to_string(body.size()) +
         "\r\nCache-Control: no-cache\r\nCIMOperation: MethodResponse\r\n\r\n" + body;
}

// The document with this content inside MESSAGE.
inline std::string document(const std::string& message) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n<CIM CIMVERSION=\"2.0\" "
         "DTDVERSION=\"2.0\">\n<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\">\n" +
         message + "\n</MESSAGE>\n</CIM>\n";
}

// The answer of an operation with this content inside IMETHODRESPONSE.
inline std::string operation(const std::string& content) {
  return http(document("<SIMPLERSP>\n<IMETHODRESPONSE NAME=\"Any\">\n" + content +
                       "\n</IMETHODRESPONSE>\n</SIMPLERSP>"));
}

// The answer of an operation that found nothing.
inline std::string nothing() { return operation("<IRETURNVALUE>\n</IRETURNVALUE>"); }

// The answer of an operation that ended in an error.
inline std::string error(int code, const std::string& description) {
  return operation("<ERROR CODE=\"" + std::to_string(code) + "\" DESCRIPTION=\"" + description +
                   "\"/>");
}

inline std::string unauthorised() {
  return "HTTP/1.1  401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"cimom\"\r\n"
         "Content-Length: 0\r\n\r\n";
}

}  // namespace answers
