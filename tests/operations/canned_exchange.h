// CIMSendRequest() in the place of the library's: gives what a test says, without a network.
#pragma once

#include <cstdint>
#include <string>

namespace operations_test {

// What CIMSendRequest() gives while this object exists.  One at a time; a program that has this
// file in it puts its CIMSendRequest() in the place of the library's.
class CannedExchange {
 public:
  // `body` is copied for each call; null leaves *bodyOut as it is.  It must outlive this object.
  CannedExchange(int result, const char* body);
  CannedExchange(const CannedExchange&) = delete;
  CannedExchange& operator=(const CannedExchange&) = delete;
  ~CannedExchange();

  // The arguments of the latest call.
  struct Arguments {
    const char* host;
    std::uint32_t port;
    const char* user;
    const char* password;
    std::uint32_t timeout;
  };
  const Arguments& arguments() const { return arguments_; }

  int calls() const { return calls_; }

  // For the CIMSendRequest() that stands in for the library's.
  int exchange(char** body_out, const Arguments& arguments);

 private:
  int result_;
  const char* body_;
  Arguments arguments_{};
  int calls_ = 0;
};

}  // namespace operations_test
