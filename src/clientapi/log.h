// Entry and exit lines of the local operations.
#pragma once

#include <cstdio>

#include "cim_client.h"

namespace cim::broker {

// A text for a printf "%s".
inline const char* shown(const char* text) { return text ? text : "(null)"; }

// Logs that an operation begins: a line made of `format` and texts, cut to 255 characters.
[[gnu::format(printf, 1, 2)]] void log_entry(const char* format, ...);

// Logs the end of an operation when it goes out of scope.
class LoggedExit {
 public:
  explicit LoggedExit(const char* operation) : operation_(operation) {}
  ~LoggedExit() { cimc_debug(0, operation_); }
  LoggedExit(const LoggedExit&) = delete;
  LoggedExit& operator=(const LoggedExit&) = delete;

 private:
  const char* operation_;
};

}  // namespace cim::broker
