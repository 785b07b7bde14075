// What the program's exit status says, and the exception that carries it to main().
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace cli {

enum class ExitStatus {
  Success = 0,
  CimError = 1,     // the object manager reported an error
  Usage = 2,        // the command cannot be carried out as it was given
  NoAnswer = 3,     // no connection, no answer in time, or none that can be understood
  Unauthorised = 4  // the object manager refused user or password
};

// Ends a command: `what()` is the text for standard error, without program name and line break.
class Failure : public std::runtime_error {
 public:
  Failure(ExitStatus status, const std::string& text) : runtime_error(text), status_(status) {}

  ExitStatus status() const { return status_; }

 private:
  ExitStatus status_;
};

// The failure for a mistake in what was typed.
Failure usage_failure(const std::string& text);

// The DMTF's name of a CIM status code (DSP0200, "Status codes"), such as "CIM_ERR_NOT_FOUND" for
// 6; empty for a code without a name.
std::string_view cim_status_name(int code);

// The failure for an error that the object manager reported. `code` is the decimal text of its
// status code; both may be null. The library's own "401" becomes Unauthorised.
Failure cim_failure(const char* code, const char* description);

}  // namespace cli
