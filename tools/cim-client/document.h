// Requests made by hand, for what the library's operations do not send; and answers looked at
// whole.
#pragma once

#include <string>
#include <string_view>

#include "owners.h"

namespace cli {

// The text of a GetClass request for `class_name` (already escaped). The answer changes nothing,
// so it may be asked at any time to see whether an object manager answers.
std::string get_class_request(std::string_view name_space, std::string_view class_name);

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

}  // namespace cli
