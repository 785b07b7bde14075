// What holds for a whole run of the program, whatever the command.
#pragma once

#include <chrono>

#include "backend.h"
#include "output.h"
#include "password.h"
#include "target.h"

namespace cli {

struct Settings {
  Target target;
  Backend backend = Backend::AsHandles;
  PasswordSource password;
  std::chrono::seconds timeout{60};  // 0: no limit
  bool verbose = false;
  OutputSettings output;
};

}  // namespace cli
