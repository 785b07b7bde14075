// CIMSendRequest() in the place of the library's: gives what a test says, without a network.
#include "operations/canned_exchange.h"

#include <cstdlib>
#include <cstring>

#include "cim_client.h"

namespace operations_test {
namespace {

CannedExchange* current = nullptr;

}  // namespace

CannedExchange::CannedExchange(int result, const char* body) : result_(result), body_(body) {
  current = this;
}

CannedExchange::~CannedExchange() { current = nullptr; }

int CannedExchange::exchange(char** body_out, const Arguments& arguments) {
  ++calls_;
  arguments_ = arguments;
  if (body_) *body_out = strdup(body_);
  return result_;
}

}  // namespace operations_test

int CIMSendRequest(const char* /*request*/, char** bodyOut, const char* host, uint32_t port,
                   const char* user, const char* password, uint32_t timeout) {
  if (!operations_test::current) std::abort();  // a test has forgotten its CannedExchange
  return operations_test::current->exchange(bodyOut, {host, port, user, password, timeout});
}
