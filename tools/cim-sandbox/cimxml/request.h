// The call that a CIM-XML request document carries.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "cimxml/element.h"

namespace sandbox::cimxml {

// A document that is no request at all, answered by HTTP alone (DSP0200, section 7.3).
struct Refusal {
  int status;             // of HTTP
  std::string cim_error;  // the CIMError header
  std::string reason;     // for the log
};

struct Request {
  std::string message_id;
  bool is_intrinsic = true;
  std::string method;
  Element call;                // IMETHODCALL or METHODCALL
  std::string misplaced_text;  // text where only elements belong; empty: there is none
};

std::variant<Request, Refusal> read_request(std::string_view document);

}  // namespace sandbox::cimxml
