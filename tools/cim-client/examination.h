// What 'doctor' finds out about an object manager, step by step.
#pragma once

#include <string>

#include "exit_status.h"
#include "http_probe.h"

namespace cli {

// One step of the examination.
struct Step {
  enum class Result { Ok, Failed, Skipped };

  std::string name;  // such as "connection"
  Result result = Result::Ok;
  std::string text;                         // what was found
  std::string advice;                       // what to do about a failure; may be empty
  ExitStatus status = ExitStatus::Success;  // of a failure
};

// "ok", "failed" or "skipped".
const char* result_word(Step::Result result);

// The step "connection", judged from an exchange. `peer` names the object manager.
Step judge_connection(const HttpExchange& exchange, const std::string& peer);

// The step "HTTP answer": whether the library can read the answer.
Step judge_answer(const HttpExchange& exchange);

// The step "authentication". `user` may be empty.
Step judge_authentication(const HttpExchange& exchange, const std::string& user);

}  // namespace cli
