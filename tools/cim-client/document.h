// Requests made by hand, for what the library's operations do not send; and answers looked at
// whole.
#pragma once

#include <string>
#include <string_view>

#include "owners.h"

namespace cli {

// The text of a GetClass request; both names are already escaped. The answer changes nothing,
// so it may be asked at any time to see whether an object manager answers.
std::string get_class_request(std::string_view name_space, std::string_view class_name);

// The text of a request that calls a method of a class; the names are already escaped, and
// `parameters` is borrowed.
std::string class_method_request(std::string_view name_space, std::string_view class_name,
                                 std::string_view method, ParamValue* parameters);

// What kind of answer a document is.
enum class AnswerKind {
  Empty,   // a response without an error, and without any result
  Filled,  // a response with a result
  Error,   // a response with an error
  Other    // no response of an operation or method, or no CIM-XML at all
};

AnswerKind kind_of(const CIM* document);

// Reads an answer; null when it is not CIM-XML.
CimOwner parse_document(const std::string& text);

// The result of an operation, and the response of a method, in a document; null without one.
IReturnValue* result_of(const CIM& document);
MethodResponse* method_response_of(const CIM& document);

}  // namespace cli
