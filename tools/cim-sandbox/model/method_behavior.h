// What the sandbox does when a method is invoked, as the method's qualifiers tell.
#pragma once

#include <string_view>
#include <vector>

#include "model/class.h"
#include "model/instance.h"
#include "model/outcome.h"

namespace sandbox {

// An argument after its check.
struct Argument {
  const Parameter* parameter;
  Value value;
};

// What a call leads to.
struct Effect {
  Value return_value;
  std::vector<Argument> out;
  bool changes_instance = false;
};

// Carries out the behavior of `method`:
//   SandboxFails(6)                    answers that CIM error
//   SandboxRefuses{"Active=TRUE:2"}    returns 2, and does no more, while Active is TRUE
//   SandboxEchoes                      gives parameters that go in and out back as they came
//   SandboxGives{"Old=Speed"}          gives property Speed in parameter Old
//   SandboxSets{"Speed=$New", "On=1"}  sets properties to arguments and to fixed values
//   SandboxReturns("text")             returns it; without it a number is 0
// `instance` is null for a class's method; it is what SandboxSets changes.
// A method without any of these answers MethodNotAvailable.
Outcome<Effect> carry_out(const Method& method, const std::vector<Argument>& arguments,
                          Instance* instance);

}  // namespace sandbox
