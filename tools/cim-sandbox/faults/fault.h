// Misbehavior on purpose: which requests it meets, and what happens to their answers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace sandbox::faults {

// What becomes of the answer itself.
struct ReplaceByStatus {
  int status;
};
struct ReplaceByError {
  int code;  // of CIM
};
struct Malform {};  // the document loses its last closing tags
struct StateLength {
  enum class Kind { Exactly, More, Less, Not } kind;
  std::uint64_t number;
};

// How it is delivered.
struct Delay {
  int milliseconds;
};
struct Split {  // head and body apart
  int pause_ms;
};
struct SplitAt {
  std::size_t position;
  int pause_ms;
};
struct Trickle {
  std::size_t piece;
  int pause_ms;
};
struct CloseAt {
  std::size_t position;
};
struct ResetAt {
  std::size_t position;
};
struct StaySilent {};

using Action = std::variant<ReplaceByStatus, ReplaceByError, Malform, StateLength, Delay, Split,
                            SplitAt, Trickle, CloseAt, ResetAt, StaySilent>;

// Every condition that is there must hold.
struct Fault {
  std::string operation;     // empty: any
  std::uint64_t number = 0;  // of the request, from 1; 0: any
  std::uint64_t every = 0;   // requests whose number this divides; 0: any
  std::uint64_t after = 0;   // requests with a higher number
  std::vector<Action> actions;
};

// The faults of a run, and the count of its requests.
class Plan {
 public:
  // Adds the faults of a text, one on each line:
  //   [all] [request N] [every N] [after N] [operation NAME] ACTION...
  // Empty lines and what follows "#" do not count.  The result says "name:line: expected ...".
  std::optional<std::string> add(std::string_view name, std::string_view text);

  bool empty() const { return faults_.empty(); }

  // Counts one more request and tells what happens to its answer, in the order of the faults.
  // `operation` is empty for a request that calls none.
  std::vector<Action> next(std::string_view operation);

 private:
  std::vector<Fault> faults_;
  std::uint64_t count_ = 0;
};

}  // namespace sandbox::faults
