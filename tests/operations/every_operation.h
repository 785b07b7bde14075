// The fifteen operations in one table, for what holds for all of them.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "operations/object_manager.h"
#include "operations/records.h"

namespace operations_test {

struct Operation {
  std::string name;

  // Calls CIMC_XML_...() with arguments that are all different, takes the result apart, releases
  // it, and tells what it was: "null", a number, or the names in it.  From the second call on
  // nothing but the operation itself allocates memory.
  std::string (*call)(Handle* handle, Error** error_out);

  // The same with the entry point that chooses the back end.
  std::string (*entry_point)(Handle* handle, Error** error_out);

  std::string answer;  // a document that holds a result
  std::string result;  // what call() tells of it

  std::string empty_answer;  // a document that holds no result, and no error
  std::string empty_result;

  std::string error_answer;  // a document that holds the error 6 "not found"
  std::string nothing;       // what call() tells when there is no result

  std::string refusal_result;  // what call() tells when user or password were refused
  bool reports_refusal;        // whether an Error is made of that
};

const std::vector<Operation>& every_operation();

// For test names and messages.
std::ostream& operator<<(std::ostream& out, const Operation& operation);

}  // namespace operations_test
