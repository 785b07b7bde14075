// Which requests are answered, and how.
#include "program/exchange.h"

#include <algorithm>
#include <cstdio>

#include "faults/misbehavior.h"
#include "http/response.h"

namespace sandbox {
namespace {

constexpr std::string_view object_manager_path = "/cimom";

// True when an HTTP status takes the answer's place: then the operation is not carried out either.
bool is_replaced_by_status(const std::vector<faults::Action>& actions) {
  return std::any_of(actions.begin(), actions.end(), [](const faults::Action& action) {
    return std::holds_alternative<faults::ReplaceByStatus>(action);
  });
}

}  // namespace

http::Script Exchange::answer(const http::Request& request) {
  actions_.reset();
  Reply reply = reply_to(request);
  if (!actions_) actions_ = settings_.faults.next({});
  log(reply);
  http::Script script = actions_->empty() ? http::Script{http::Send{std::move(reply.bytes)}}
                                          : faults::misbehave(std::move(reply.bytes), *actions_);
  record(request, reply, script);
  return script;
}

Exchange::Reply Exchange::reply_to(const http::Request& request) {
  if (request.method != "POST" && request.method != "M-POST") {
    return {
        http::status_response(405, "Allow: POST, M-POST\r\n"), "405, method " + request.method, {}};
  }
  if (request.target != object_manager_path) {
    return {http::status_response(404), "404, path " + request.target, {}};
  }
  const auto& credentials = settings_.credentials;
  if (credentials && !credentials->match(request.header("Authorization"))) {
    return {http::unauthorized_response(), "401, wrong user or password", {}};
  }
  return reply_to_document(request);
}

Exchange::Reply Exchange::reply_to_document(const http::Request& request) {
  auto answer = service_.answer(
      request.body, [this](std::string_view operation) { return intercept(operation); });
  if (const auto* refusal = std::get_if<cimxml::Refusal>(&answer)) {
    const std::string header = "CIMError: " + refusal->cim_error + "\r\n";
    return {http::status_response(refusal->status, header),
            std::to_string(refusal->status) + ", " + refusal->reason,
            {}};
  }
  auto& response = std::get<cimxml::Response>(answer);
  return {http::operation_response(std::move(response.document)), "200, " + response.operation,
          std::move(response.operation)};
}

std::optional<Error> Exchange::intercept(std::string_view operation) {
  actions_ = settings_.faults.next(operation);
  if (const auto code = faults::replacing_error(*actions_)) {
    return Error{static_cast<ErrorCode>(*code), "the sandbox was told to fail"};
  }
  if (is_replaced_by_status(*actions_)) return Error{ErrorCode::Failed, {}};
  return std::nullopt;
}

void Exchange::log(const Reply& reply) {
  ++count_;
  if (!settings_.verbose) return;
  std::fprintf(stderr, "request %lu: %s%s\n", count_, reply.summary.c_str(),
               actions_->empty() ? "" : ", with faults");
}

void Exchange::record(const http::Request& request, const Reply& reply,
                      const http::Script& script) {
  if (!recorder_) return;
  record::Exchange exchange{
      reply.operation, record::without_credentials(request.raw_head) + request.body, {}};
  for (const http::Step& step : script) {
    if (const auto* send = std::get_if<http::Send>(&step)) exchange.answer += send->bytes;
  }
  recorder_->write(exchange);
}

}  // namespace sandbox
