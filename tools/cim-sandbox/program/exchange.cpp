// Which requests are answered, and how.
#include "program/exchange.h"

#include <cstdio>

#include "http/response.h"

namespace sandbox {
namespace {

constexpr std::string_view object_manager_path = "/cimom";

}  // namespace

http::Script Exchange::answer(const http::Request& request) {
  Reply reply = reply_to(request);
  ++count_;
  if (verbose_) {
    std::fprintf(stderr, "request %lu: %s, %zu bytes\n", count_, reply.summary.c_str(),
                 reply.bytes.size());
  }
  return {http::Send{std::move(reply.bytes)}};
}

Exchange::Reply Exchange::reply_to(const http::Request& request) {
  if (request.method != "POST" && request.method != "M-POST") {
    return {http::status_response(405, "Allow: POST, M-POST\r\n"), "405, method " + request.method};
  }
  if (request.target != object_manager_path) {
    return {http::status_response(404), "404, path " + request.target};
  }
  if (credentials_ && !credentials_->match(request.header("Authorization"))) {
    return {http::unauthorized_response(), "401, wrong user or password"};
  }
  return reply_to_document(request);
}

Exchange::Reply Exchange::reply_to_document(const http::Request& request) {
  auto answer = service_.answer(request.body);
  if (const auto* refusal = std::get_if<cimxml::Refusal>(&answer)) {
    const std::string header = "CIMError: " + refusal->cim_error + "\r\n";
    return {http::status_response(refusal->status, header),
            std::to_string(refusal->status) + ", " + refusal->reason};
  }
  const auto& response = std::get<cimxml::Response>(answer);
  return {http::operation_response(response.document), "200, " + response.operation};
}

}  // namespace sandbox
