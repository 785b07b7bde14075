// The exported functions in tables, each with a call that shows what becomes of it when memory
// runs out.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace torture {

// What a function gave: its result and what it made, as a text.
using Outcome = std::string;

struct Function {
  std::string name;

  // Calls it with complete arguments, tells what it gave, and releases everything.  Only the
  // function's own allocations count.
  std::function<Outcome()> call;

  // True for what it may give when an allocation has failed, if that is not its complete outcome.
  std::function<bool(const Outcome& outcome, const Outcome& complete)> may_fail_as;

  // Allocations at its beginning that end the process when they fail, as applications rely on.
  std::size_t vital = 0;

  // Whether it allocates at all.
  bool allocates = true;
};

std::vector<Function> record_functions();     // of records and their lists
std::vector<Function> reader_functions();     // documents to records
std::vector<Function> client_functions();     // handle, exchange, conversions, indications
std::vector<Function> operation_functions();  // the operations, over HTTP

// ---- For may_fail_as ----

inline auto gives(std::vector<Outcome> outcomes) {
  return [outcomes = std::move(outcomes)](const Outcome& outcome, const Outcome&) {
    for (const Outcome& possible : outcomes)
      if (outcome == possible) return true;
    return false;
  };
}

// The beginning of the complete outcome.
inline auto gives_a_beginning() {
  return
      [](const Outcome& outcome, const Outcome& complete) { return complete.starts_with(outcome); };
}

// For what does not allocate.
inline auto never_fails() {
  return [](const Outcome&, const Outcome&) { return false; };
}

}  // namespace torture
