// An object manager on a loopback port that answers as a test says.
#include "operations/object_manager.h"

#include <stdexcept>
#include <utility>

namespace operations_test {
namespace {

std::string in_envelope(const std::string& response) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n"
         "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n"
         "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\">\n"
         "<SIMPLERSP>\n" +
         response +
         "</SIMPLERSP>\n"
         "</MESSAGE>\n"
         "</CIM>";
}

}  // namespace

std::string operation_answer(const std::string& name, const std::string& content) {
  return in_envelope("<IMETHODRESPONSE NAME=\"" + name + "\">\n" + content +
                     "</IMETHODRESPONSE>\n");
}

std::string method_answer(const std::string& name, const std::string& content) {
  return in_envelope("<METHODRESPONSE NAME=\"" + name + "\">\n" + content + "</METHODRESPONSE>\n");
}

std::string operation_request(const std::string& name, const std::string& parameters) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
         "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
         "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
         "<IMETHODCALL NAME=\"" +
         name +
         "\">"
         "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root/cimv2\"/></LOCALNAMESPACEPATH>" +
         parameters + "</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>";
}

std::string http_answer(const std::string& document) {
  return "HTTP/1.1 200 OK\r\n"
         "Content-Type: application/xml; charset=\"utf-8\"\r\n"
         "Content-Length: " +
         std::to_string(document.size()) +
         "\r\n"
         "Cache-Control: no-cache\r\n"
         "CIMOperation: MethodResponse\r\n"
         "\r\n" +
         document;
}

std::string http_refusal() {
  return "HTTP/1.1  401 Unauthorized\r\n"
         "WWW-Authenticate: Basic realm=\"cimom\"\r\n"
         "Content-Length: 0\r\n"
         "\r\n";
}

ObjectManager::ObjectManager(const std::string& http) : ObjectManager(support::answer(http)) {}

ObjectManager::ObjectManager(const support::ServerScript& script)
    : ObjectManager(std::vector{script}) {}

ObjectManager::ObjectManager(std::vector<support::ServerScript> scripts)
    : server_(std::move(scripts)),
      handle_(client_Configuration(server_.host(), server_.port(), "root/cimv2", 1000, "user",
                                   "secret")) {
  if (!handle_) throw std::runtime_error("no handle");
  handle_->interface = 0;
}

ObjectManager::~ObjectManager() { Free_client_Configuration(handle_); }

std::string ObjectManager::message(std::size_t index) {
  const auto messages = server_.received(index + 1);
  return index < messages.size() ? messages[index] : "nothing arrived";
}

std::string ObjectManager::request(std::size_t index) {
  const std::string whole = message(index);
  const auto separator = whole.find("\r\n\n\r");
  return separator == std::string::npos ? whole : whole.substr(separator + 4);
}

}  // namespace operations_test
