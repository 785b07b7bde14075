// Sending a request, and handing out what comes back.
#include "operations/response.h"

#include <cstdlib>

#include "base/memory.h"
#include "base/trace.h"

namespace cim {

namespace {

constexpr int refused = 401;  // of CIMSendRequest(): HTTP's status code

// The Error that stands for a refused user or password; null when memory runs out.  Callers
// write into its texts in place, so they have 10 and 30 bytes.
Error* make_refusal() {
  auto* error = allocate<Error>();
  if (!error) return nullptr;
  error->code = duplicate("401", 3, 6);
  error->description = duplicate("Unauthorized User", 17, 12);
  if (error->code && error->description) return error;
  release(error);
  return nullptr;
}

void trace_answer(const char* body) {
  trace("\n ******************End of Response*******************\n");
  trace("\n\nResponse::\n\n%s", body ? body : "");
}

}  // namespace

Response::Response(const Handle& handle, const Request& request, LeftOver left_over) {
  char* text = request.write();
  if (!text) return;
  trace("\n\nRequest::\n\n%s", text);

  char* body = nullptr;
  const int outcome = CIMSendRequest(text, &body, handle.host, handle.port, handle.user,
                                     handle.password, handle.timeout);
  std::free(text);

  is_refused_ = outcome == refused;
  if (outcome == -1) trace("\n\n Couldn't send request !!!!!!!\n\n");
  if (outcome == 0 || (outcome == -1 && left_over == LeftOver::Parsed)) parse(body);
  std::free(body);
}

void Response::parse(const char* body) {
  trace_answer(body);
  if (!body || !*body) return;
  document_.parse(body);
  is_parsed_ = true;
}

IMethodResponse* Response::operation_response() const {
  const Message* message = document_.message();
  return message && message->simpleRsp ? message->simpleRsp->iMethodResponse : nullptr;
}

MethodResponse* Response::method_response() const {
  const Message* message = document_.message();
  return message && message->simpleRsp ? message->simpleRsp->methodResponse : nullptr;
}

void Response::take_error(Error** error_out) {
  if (is_refused_) {
    Error* refusal = make_refusal();
    hand_out(refusal, error_out);
    release(refusal);
  } else if (IMethodResponse* response = operation_response()) {
    hand_out(response->error, error_out);
  }
}

// An answer with both counts as returned.
IReturnValue* Response::take_error_unless_returned(Error** error_out) {
  IMethodResponse* response = operation_response();
  if (response && response->iReturnValue) return response->iReturnValue;
  take_error(error_out);
  return nullptr;
}

void hand_out(Error*& error, Error** error_out) {
  if (error && error_out) *error_out = std::exchange(error, nullptr);
}

}  // namespace cim
