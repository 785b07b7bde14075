// HTTP responses as bytes.
#pragma once

#include <string>
#include <string_view>

namespace sandbox::http {

// The response to an operation, head and body in one text.
std::string operation_response(std::string body);

// The response to wrong credentials, with the two blanks that devices put into its first line.
std::string unauthorized_response();

// A response without a body.  `extra_headers`: whole lines, each with its line end.
std::string status_response(int status, std::string_view extra_headers = {});

std::string_view reason_phrase(int status);

}  // namespace sandbox::http
