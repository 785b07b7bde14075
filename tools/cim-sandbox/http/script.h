// What a connection does to answer a request.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "http/event_loop.h"

namespace sandbox::http {

struct Send {
  std::string bytes;
};
struct Wait {
  Milliseconds time;
};
struct Close {};
struct Reset {};    // close so that the peer sees a reset
struct Silence {};  // nothing more, until the peer gives up

using Step = std::variant<Send, Wait, Close, Reset, Silence>;
using Script = std::vector<Step>;

}  // namespace sandbox::http
