// Sending a request, and handing out what comes back.
#pragma once

#include <utility>

#include "operations/parsed_document.h"
#include "operations/request.h"

namespace cim {

// The answer to one request.  What is not taken out of it goes with it, whatever shape it has.
class Response {
 public:
  // What becomes of a body that a failed exchange has left behind.
  enum class LeftOver { Dropped, Parsed };

  // Sends `request` and waits for the answer.
  Response(const Handle& handle, const Request& request, LeftOver left_over = LeftOver::Dropped);

  // True when the object manager refused user or password.
  bool is_refused() const { return is_refused_; }

  // True when a body came and was parsed, whatever it held.
  bool is_parsed() const { return is_parsed_; }

  // Takes that part of what an operation returned; null when there is none.  An error, or a
  // refusal, goes to *error_out.
  template <class R>
  R* take(R* IReturnValue::*part, Error** error_out) {
    IReturnValue* values = take_error_unless_returned(error_out);
    return values ? std::exchange(values->*part, nullptr) : nullptr;
  }

  // Takes the error that an operation ended in, or a refusal.
  void take_error(Error** error_out);

  // The answer of a method, or null.  It stays part of this response.
  MethodResponse* method_response() const;

 private:
  IMethodResponse* operation_response() const;
  IReturnValue* take_error_unless_returned(Error** error_out);
  void parse(const char* body);

  ParsedDocument document_;
  bool is_refused_ = false;
  bool is_parsed_ = false;
};

// Moves `error`, unless it is null, to *error_out.  Without a place to go it stays.
void hand_out(Error*& error, Error** error_out);

}  // namespace cim
